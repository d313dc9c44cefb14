// SPDX-License-Identifier: MIT
#include "initext.h"

#include "testmain.h"

#include <QSettings>
#include <QTemporaryDir>

using IniText::Entries;
using IniText::Parsed;

namespace {

QString Latin(char const * text) { return QString::fromLatin1(text); }

//! What QSettings of this Qt reads from the bytes.
Entries ReadByQt(QByteArray const & bytes, bool * ok = nullptr)
{
    QTemporaryDir const folder;
    QString const path = folder.filePath(QStringLiteral("store.ini"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return {};
    file.write(bytes);
    file.close();
    QSettings settings(path, QSettings::IniFormat);
    Entries entries;
    QStringList const keys = settings.allKeys();
    for (QString const & key : keys)
        entries.insert(key, settings.value(key).toString());
    if (ok)
        *ok = settings.status() == QSettings::NoError;
    return entries;
}

} // namespace

class tst_IniText : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void prints_data();
    void prints();
    void readsBackAndByQt_data();
    void readsBackAndByQt();
    void readsBackOddKeys_data();
    void readsBackOddKeys();
    void groupsSections();
    void reads_data();
    void reads();
    void passesOverDamage_data();
    void passesOverDamage();
    void readsWhatQtWrites();
    void marks_data();
    void marks();
    void emptyIsNotNull();
    void numberOfTheDamagedLine();
    void lineEnds();
    void everyCharacter();
};

void tst_IniText::prints_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    auto const row = [](char const * name, QString const & key, QString const & text, char const * bytes) {
        QTest::newRow(name) << key << text << QByteArray(bytes);
    };
    row("nothing special", Latin("k"), Latin("abc"), "[General]\nk=abc\n");
    row("a number", Latin("k"), Latin("-1.5e+300"), "[General]\nk=-1.5e+300\n");
    row("empty", Latin("k"), Latin(""), "[General]\nk=\"\"\n");
    row("null is empty", Latin("k"), QString(), "[General]\nk=\"\"\n");
    row("separators are quoted", Latin("k"), Latin("a;b,c=d"), "[General]\nk=\"a;b,c=d\"\n");
    row("a blank is quoted", Latin("k"), Latin(" a"), "[General]\nk=\" a\"\n");
    row("quotes and backslashes", Latin("k"), Latin("\"a\\"), "[General]\nk=\"\\\"a\\\\\"\n");
    row("line ends and tab", Latin("k"), Latin("a\n\r\t"), "[General]\nk=\"a\\n\\r\\t\"\n");
    row("control characters", Latin("k"), Latin("\x01\x1f\x7f"), "[General]\nk=\"\\x1\\x1f\\x7f\"\n");
    row("NUL", Latin("k"), QString(QChar(0)), "[General]\nk=\"\\x0\"\n");
    row("beyond ASCII", Latin("k"), QString(QChar(0xb5)) + QChar(0x20ac), "[General]\nk=\"\\xb5\\x20ac\"\n");
    row("beyond the first plane", Latin("k"), QString::fromUtf8("\xf0\x9f\x93\xa1"),
        "[General]\nk=\"\\xd83d\\xdce1\"\n");
    row("a digit behind an escape is escaped", Latin("k"), QString(QChar(0xb5)) + Latin("5ag"),
        "[General]\nk=\"\\xb5\\x35\\x61g\"\n");
    row("a letter beyond the digits is not", Latin("k"), QString(QChar(0xb5)) + Latin("g5"),
        "[General]\nk=\"\\xb5g5\"\n");
    row("an at sign in front is doubled", Latin("k"), Latin("@x"), "[General]\nk=\"@@x\"\n");
    row("an at sign behind is not", Latin("k"), Latin("x@"), "[General]\nk=\"x@\"\n");
    row("two levels", Latin("GuiCentral/ColorSet"), Latin("3"), "[GuiCentral]\nColorSet=3\n");
    row("three levels", Latin("a/b/c"), Latin("3"), "[a]\nb\\c=3\n");
    row("a key that is escaped", Latin("s/_2nd W=%"), Latin("3"), "[s]\n_2nd%20W%3D%25=3\n");
    row("a key beyond ASCII", QString(QChar(0xb5)) + QChar(0x20ac), Latin("3"), "[General]\n%b5%U20ac=3\n");
    row("a section that is escaped", Latin("a b]/k"), Latin("3"), "[a%20b%5d]\nk=3\n");
    row("a section of the short keys' name", Latin("General/k"), Latin("3"), "[%47eneral]\nk=3\n");
    row("that name in another case", Latin("gENERAL/k"), Latin("3"), "[%67ENERAL]\nk=3\n");
    row("a slash in front", Latin("/k"), Latin("3"), "[General]\n%2fk=3\n");
    row("a slash behind", Latin("a/"), Latin("3"), "[General]\na%2f=3\n");
    row("a doubled slash", Latin("a//b"), Latin("3"), "[a]\n%2fb=3\n");
}

void tst_IniText::prints()
{
    QFETCH(QString, key);
    QFETCH(QString, text);
    QFETCH(QByteArray, bytes);
    // hexadecimal digits of keys are read in both cases; here they are told in one
    QCOMPARE(IniText::Print({ { key, text } }).toLower(), bytes.toLower());
}

void tst_IniText::readsBackAndByQt_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    auto const text = [](char const * name, QString const & t) { QTest::newRow(name) << Latin("a/b/key") << t; };
    auto const key = [](char const * name, QString const & k) { QTest::newRow(name) << k << Latin("text"); };
    text("plain", Latin("abc"));
    text("empty", Latin(""));
    text("blank", Latin(" "));
    text("blanks at the ends", Latin("  a  "));
    text("a list's comma", Latin("a, b"));
    text("a colour set line", Latin("V02;2;1;0;0;100;0;0;0;#000000;#fe0000;#ffffff;"));
    text("a comment's sign", Latin(";a"));
    text("a section's look", Latin("[a]"));
    text("equals", Latin("=a="));
    text("quotes", Latin("\"a\" \"b\""));
    text("backslashes", Latin("\\a\\\\n\\"));
    text("what looks like an escape", Latin("\\x41"));
    text("line ends", Latin("a\nb\r\nc\r"));
    text("percent", Latin("%41%U0041"));
    text("at", Latin("@"));
    text("two at", Latin("@@"));
    text("what looks like a typed value", Latin("@ByteArray(a)"));
    text("what looks like an invalid one", Latin("@Invalid()"));
    text("digits behind an escape", QString(QChar(0xb5)) + Latin("5 deg"));
    text("a digit pair behind an escape", QString(QChar(1)) + Latin("ff"));
    text("Latin-1", Latin("\xc4\xd6\xdc\xb5\xff"));
    text("Arabic", QString::fromUtf8("\xd9\x85\xd8\xb1\xd8\xad\xd8\xa8\xd8\xa7"));
    text("beyond the first plane", QString::fromUtf8("\xf0\x9f\x93\xa1"));
    text("half of a pair", QString(QChar(0xd800)) + QLatin1Char('a'));
    text("the last character", QString(QChar(0xffff)));
    text("a mark of byte order", QString(QChar(0xfeff)));
    text("64 KiB", QString(65536, QChar(0x20ac)));
    key("one level", Latin("k"));
    key("the name of short keys", Latin("General/k"));
    key("signs", Latin("s/a b=c;d,e\"f\\g%h[i]"));
    key("beyond ASCII in a key", Latin("s\xb5/k") + QChar(0x20ac));
    key("beyond the first plane in a key", Latin("s/") + QString::fromUtf8("\xf0\x9f\x93\xa1"));
    key("four levels", Latin("a/b/c/d"));
    key("a digit in front", Latin("s/_2ndWidgetBorder"));
}

void tst_IniText::readsBackAndByQt()
{
    QFETCH(QString, key);
    QFETCH(QString, text);
    Entries const entries{ { key, text }, { Latin("a/b/last"), Latin("1") }, { Latin("short"), Latin("2") } };
    QByteArray const bytes = IniText::Print(entries);
    for (char const c : bytes)
        QVERIFY(c == '\n' || (c >= 0x20 && c < 0x7f));
    Parsed const parsed = IniText::Parse(bytes);
    QCOMPARE(parsed.damagedLines, 0);
    QCOMPARE(parsed.entries, entries);
    bool ok = false;
    QCOMPARE(ReadByQt(bytes, &ok), entries);
    QVERIFY(ok);
}

void tst_IniText::readsBackOddKeys_data()
{
    QTest::addColumn<QString>("key");
    for (char const * key :
         { "",    "/",  "//",   "/a", "a/",   "a//b", "a///b//", "/General/a", "General", "General/", "/a/b",
           "%2f", "\\", "a\\b", "\n", "a\tb", " a ",  "[a]/b",   ";a",         "#a",      "a=b" })
        QTest::newRow(qPrintable(Latin("key \"%1\"").arg(Latin(key)))) << Latin(key);
    QTest::newRow("NUL") << QString(QChar(0)) + QLatin1Char('/') + QChar(0);
    QTest::newRow("half of a pair") << QString(QChar(0xdc00));
    QTest::newRow("10,000 levels") << Latin("ab/").repeated(10000) + QLatin1Char('c');
    QTest::newRow("10,000 slashes") << QString(10000, QLatin1Char('/'));
}

void tst_IniText::readsBackOddKeys()
{
    QFETCH(QString, key);
    Entries const entries{ { key, Latin("odd") }, { Latin("a/b"), Latin("1") }, { Latin("c"), Latin("2") } };
    Entries expected = entries;
    expected.insert(key, Latin("odd"));
    Parsed const parsed = IniText::Parse(IniText::Print(expected));
    QCOMPARE(parsed.damagedLines, 0);
    QCOMPARE(parsed.entries, expected);
}

void tst_IniText::groupsSections()
{
    Entries const entries{ { Latin("b/2"), Latin("x") }, { Latin("a-/1"), Latin("x") }, { Latin("z"), Latin("x") },
                           { Latin("a/1"), Latin("x") }, { Latin("b/1"), Latin("x") },  { Latin("a"), Latin("x") } };
    QCOMPARE(IniText::Print(entries), QByteArray("[General]\na=x\nz=x\n\n[a-]\n1=x\n\n[a]\n1=x\n\n[b]\n1=x\n2=x\n"));
    QCOMPARE(IniText::Print({}), QByteArray());
    QCOMPARE(IniText::Parse(QByteArray()).entries, Entries());
    QCOMPARE(IniText::Parse(QByteArray()).damagedLines, 0);
}

void tst_IniText::reads_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("text");
    auto const row = [](char const * name, char const * bytes, char const * key, QString const & text) {
        QTest::newRow(name) << QByteArray(bytes) << Latin(key) << text;
    };
    row("without a section", "k=a", "k", Latin("a"));
    row("blanks around all", " [ s ] \n\t k \t=  a b  ", "s/k", Latin("a b"));
    row("the short keys' section in any case", "[x]\ny=1\n[gEnErAl]\nk=a", "k", Latin("a"));
    row("the escaped form that Qt writes of it", "[%General]\nk=a", "General/k", Latin("a"));
    row("a later line wins", "k=a\nk=b\n", "k", Latin("b"));
    row("a section that comes again", "[s]\nk=a\n[t]\nk=b\n[s]\nl=c\n", "s/l", Latin("c"));
    row("comments", "; [s]\n# k=a\nk=b", "k", Latin("b"));
    row("an unquoted line of fields", "k=V02;2;1,3", "k", Latin("V02;2;1,3"));
    row("empty without quotes", "k=", "k", Latin(""));
    row("equals in the text", "k=a=b", "k", Latin("a=b"));
    row("upper case digits", "k%3D=\"\\xB5\"", "k=", QString(QChar(0xb5)));
    row("all escapes", "k=\"\\a\\b\\f\\n\\r\\t\\v\\\"\\?\\'\\\\\"", "k", Latin("\a\b\f\n\r\t\v\"?'\\"));
    row("octal", "k=\"\\101\\60\"", "k", Latin("A0"));
    row("escapes without quotes", "k=a\\x42 c", "k", Latin("aB c"));
    row("raw UTF-8 in a text", "k=\"\xe2\x82\xac\"", "k", QString(QChar(0x20ac)));
    row("raw UTF-8 in a key", "\xc2\xb5=a", "\xb5", Latin("a"));
    row("a raw slash in a key", "[s]\na/b=c", "s/a/b", Latin("c"));
    row("a single at", "k=@x", "k", Latin("@x"));
    row("a tab inside", "k=\"a\tb\"", "k", Latin("a\tb"));
    row("no key", "=a", "", Latin("a"));
}

void tst_IniText::reads()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, key);
    QFETCH(QString, text);
    Parsed const parsed = IniText::Parse(bytes);
    QCOMPARE(parsed.damagedLines, 0);
    QVERIFY(parsed.entries.contains(key));
    QCOMPARE(parsed.entries.value(key), text);
}

void tst_IniText::passesOverDamage_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<bool>("sectionIsLost");
    auto const row = [](char const * name, QByteArray const & line, bool lost = false) {
        QTest::newRow(name) << line << lost;
    };
    row("no equals sign", "damaged");
    row("NUL", QByteArray("k=a\0b", 5));
    row("NUL in a key", QByteArray("k\0=b", 4));
    row("a control character", "k=a\x01");
    row("delete", "k=\x7f");
    row("an open quote", "k=\"a");
    row("only a quote", "k=\"");
    row("an escaped closing quote", "k=\"a\\\"");
    row("text behind the quotes", "k=\"a\"b");
    row("a quote inside unquoted text", "k=a\"b\"");
    row("an unknown escape", "k=\"\\q\"");
    row("a lone backslash", "k=a\\");
    row("an escape without digits", "k=\"\\xg\"");
    row("an escape of too many digits", "k=\"\\x10000\"");
    row("an octal escape of too many digits", "k=\"\\200000\"");
    row("a percent without digits", "k%=a");
    row("a percent of one digit", "k%4=a");
    row("a wide percent of three digits", "k%U123=a");
    row("a percent with a sign", "k%+1=a");
    row("invalid UTF-8", "k=\xff");
    row("half a UTF-8 sequence", "k=\xe2\x82");
    row("an overlong UTF-8 sequence", "k=\xc0\xaf");
    row("a surrogate in UTF-8", "k=\xed\xa0\x80");
    row("invalid UTF-8 in a key", "\xff=a");
    row("a section without its end", "[s", true);
    row("a section without its start", "s]", true);
    row("an empty section", "[]", true);
    row("a section with a broken escape", "[%4]", true);
    row("a key that looks like a section's start", "[ey=val");
    row("a section that has lost its line end", "[s]k=v", true);
}

void tst_IniText::passesOverDamage()
{
    QFETCH(QByteArray, line);
    QFETCH(bool, sectionIsLost);
    Parsed const parsed = IniText::Parse("[a]\nfirst=1\n" + line + "\nsecond=2\n\n[b]\nthird=3\n");
    Entries expected{ { Latin("a/first"), Latin("1") }, { Latin("b/third"), Latin("3") } };
    if (!sectionIsLost)
        expected.insert(Latin("a/second"), Latin("2"));
    QCOMPARE(parsed.entries, expected);
    QCOMPARE(parsed.damagedLines, sectionIsLost ? 2 : 1);
    QCOMPARE(parsed.firstDamaged, 3);
}

void tst_IniText::readsWhatQtWrites()
{
    Entries const entries{ { Latin("k"), Latin("a;b, c") },
                           { Latin("General/k"), Latin("@x") },
                           { Latin("s \xb5/a/b"), Latin("\xb5") + QLatin1Char('5') },
                           { Latin("s/n"), Latin("a\nb\\\"") },
                           { Latin("s/e"), Latin("") } };
    QTemporaryDir const folder;
    QString const path = folder.filePath(QStringLiteral("store.ini"));
    {
        QSettings settings(path, QSettings::IniFormat);
        for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry)
            settings.setValue(entry.key(), entry.value());
    }
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    Parsed const parsed = IniText::Parse(file.readAll());
    QCOMPARE(parsed.damagedLines, 0);
    QCOMPARE(parsed.entries, entries);
}

void tst_IniText::marks_data()
{
    QTest::addColumn<QByteArray>("bytes");
    auto const wide = [](bool bigEndian) {
        QByteArray bytes(bigEndian ? "\xfe\xff" : "\xff\xfe");
        for (char const c : { '[', 's', ']', '\n', 'k', '=', 'a', '\n' })
            bytes += bigEndian ? QByteArray(1, '\0') + c : QByteArray(1, c) + '\0';
        return bytes;
    };
    QTest::newRow("UTF-8 with its mark") << QByteArray("\xef\xbb\xbf[s]\nk=a\n");
    QTest::newRow("UTF-16, low byte first") << wide(false);
    QTest::newRow("UTF-16, high byte first") << wide(true);
    QTest::newRow("UTF-16 with half a character more") << wide(false) + 'x';
}

void tst_IniText::marks()
{
    QFETCH(QByteArray, bytes);
    Parsed const parsed = IniText::Parse(bytes);
    QCOMPARE(parsed.damagedLines, 0);
    QCOMPARE(parsed.entries, (Entries{ { Latin("s/k"), Latin("a") } }));
    QCOMPARE(IniText::Parse("\xff\xfe").entries, Entries());
}

void tst_IniText::emptyIsNotNull()
{
    Parsed const parsed = IniText::Parse("a=\nb=\"\"\nc=@@\n");
    QVERIFY(!parsed.entries.value(Latin("a")).isNull());
    QVERIFY(!parsed.entries.value(Latin("b")).isNull());
    QVERIFY(!parsed.entries.value(Latin("c")).isNull());
}

void tst_IniText::numberOfTheDamagedLine()
{
    QCOMPARE(IniText::Parse("a=1\n").firstDamaged, 0);
    QCOMPARE(IniText::Parse("x").firstDamaged, 1);
    QCOMPARE(IniText::Parse("a=1\r\n\r\nx\r\ny\r\n").firstDamaged, 3);
    QCOMPARE(IniText::Parse("a=1\r\n\r\nx\r\ny\r\n").damagedLines, 2);
}

void tst_IniText::lineEnds()
{
    Entries const entries{ { Latin("a"), Latin("1") }, { Latin("b"), Latin("2") } };
    for (char const * bytes :
         { "a=1\nb=2", "a=1\nb=2\n", "a=1\r\nb=2\r\n", "a=1\rb=2\r", "\n\na=1\n\r\nb=2", "a=1\n\rb=2\r" })
        QCOMPARE(IniText::Parse(bytes).entries, entries);
}

void tst_IniText::everyCharacter()
{
    Entries entries;
    for (unsigned int c = 0; c <= 0xffff; ++c) {
        QString const one(QChar(static_cast<char16_t>(c)));
        entries.insert(QStringLiteral("s/") + QString::number(c), one + QLatin1Char('1') + one);
    }
    Parsed const parsed = IniText::Parse(IniText::Print(entries));
    QCOMPARE(parsed.damagedLines, 0);
    QVERIFY(parsed.entries == entries);
    QVERIFY(ReadByQt(IniText::Print(entries)) == entries);
}

ORIM_CORE_TEST_MAIN(tst_IniText)
#include "tst_initext.moc"
