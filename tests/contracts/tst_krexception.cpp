// SPDX-License-Identifier: MIT
#include "krexception.h"

#include "testmain.h"

#include <type_traits>

class tst_KRException : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void fromNarrowTexts();
    void fromTexts();
    void nullPointersAreEmpty();
    void narrowTextsAreLatin1();
    void minusOneAsCode();
    void description();
    void caughtAsStandardException();
    void copyOutlivesTheOriginal();
};

void tst_KRException::fromNarrowTexts()
{
    KRException const e(std::string("text"), "class", "controls/orimwidgets/agedimage", "function", 357, 12);
    QCOMPARE(e.GetText(), QStringLiteral("text"));
    QCOMPARE(e.GetClass(), QStringLiteral("class"));
    QCOMPARE(e.GetSource(), QStringLiteral("controls/orimwidgets/agedimage"));
    QCOMPARE(e.GetFunction(), QStringLiteral("function"));
    QCOMPARE(e.GetLine(), 357u);
    QCOMPARE(e.GetCode(), 12u);
}

void tst_KRException::fromTexts()
{
    QString const euro(QChar(0x20ac));
    KRException const e(euro, QStringLiteral("c"), QStringLiteral("s"), QStringLiteral("f"), 1, 2);
    QCOMPARE(e.GetText(), euro);
    QCOMPARE(e.GetClass(), QStringLiteral("c"));
    QCOMPARE(e.GetSource(), QStringLiteral("s"));
    QCOMPARE(e.GetFunction(), QStringLiteral("f"));
    QCOMPARE(e.GetLine(), 1u);
    QCOMPARE(e.GetCode(), 2u);
    QCOMPARE(QByteArray(e.what()), QByteArray("\xe2\x82\xac"));
}

void tst_KRException::nullPointersAreEmpty()
{
    KRException const e(std::string(), nullptr, nullptr, nullptr, 0, 0);
    QCOMPARE(e.GetText(), QString());
    QCOMPARE(e.GetClass(), QString());
    QCOMPARE(e.GetSource(), QString());
    QCOMPARE(e.GetFunction(), QString());
    QVERIFY(e.what());
    QCOMPARE(QByteArray(e.what()), QByteArray());
}

void tst_KRException::narrowTextsAreLatin1()
{
    KRException const e(std::string("5 \xB5s"), "\xC4", "", "", 0, 0);
    QCOMPARE(e.GetText(), QStringLiteral("5 ") + QChar(0xb5) + QLatin1Char('s'));
    QCOMPARE(e.GetClass(), QString(QChar(0xc4)));
    QCOMPARE(QByteArray(e.what()), QByteArray("5 \xc2\xb5s"));
}

void tst_KRException::minusOneAsCode()
{
    KRException const e(std::string("t"), "c", "s", "f", 0, static_cast<unsigned int>(-1));
    QCOMPARE(e.GetCode(), 0xFFFFFFFFu);
}

void tst_KRException::description()
{
    KRException const e(std::string("t"), "c", "s", "f", 3, 4);
    QCOMPARE(e.GetDescription(), QStringLiteral("t [c::f, s:3, code 4]"));
}

void tst_KRException::caughtAsStandardException()
{
    QByteArray what;
    try {
        throw KRException(std::string("told"), "c", "s", "f", 1, 2);
    } catch (std::exception const & e) {
        what = e.what();
    }
    QCOMPARE(what, QByteArray("told"));
}

void tst_KRException::copyOutlivesTheOriginal()
{
    static_assert(std::is_nothrow_copy_constructible<KRException>::value, "a throw copies");
    KRException copy(std::string("other"), "", "", "", 0, 0);
    {
        KRException const original(std::string("told"), "c", "s", "f", 1, 2);
        copy = original;
    }
    QCOMPARE(QByteArray(copy.what()), QByteArray("told"));
    QCOMPARE(copy.GetDescription(), QStringLiteral("told [c::f, s:1, code 2]"));
}

ORIM_CORE_TEST_MAIN(tst_KRException)
#include "tst_krexception.moc"
