// SPDX-License-Identifier: MIT
#include "inicfg.h"
#include "storesoak.h"

#include "testmain.h"

#include <QLocale>
#include <QSettings>

#include <random>

//! Random keys and texts come back as they were, and the bytes are the same in every locale.
class tst_StoreRoundTrip : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void randomEntries();
    void colourSetLines_data();
    void colourSetLines();

private:
    QString RandomText(int most);
    QString RandomKey();
    bool ThroughAFile(IniText::Entries const & entries, bool byQt);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::mt19937_64 m_random;
};

namespace {

struct Range
{
    unsigned int first;
    unsigned int last;
};

// one class of code points a row
constexpr std::array<Range, 16> Classes{ { { 0x20, 0x7e },
                                           { '0', '9' },
                                           { 'a', 'f' },
                                           { 0x00, 0x1f },
                                           { 0x7f, 0x9f },
                                           { 0xa0, 0xff },
                                           { 0x100, 0x24f },
                                           { 0x600, 0x6ff },
                                           { 0x900, 0x97f },
                                           { 0x2000, 0x206f },
                                           { 0x4e00, 0x9fff },
                                           { 0xd800, 0xdfff },
                                           { 0xe000, 0xf8ff },
                                           { 0xfdd0, 0xffff },
                                           { 0x1f300, 0x1f9ff },
                                           { 0x10fff0, 0x10ffff } } };

constexpr char Signs[] = "=;[]\\\"'@%,#/ \t\n\r";

QList<QLocale> Locales()
{
    return { QLocale::c(), QLocale(QLocale::German, QLocale::Germany), QLocale(QLocale::Turkish),
             QLocale(QLocale::Arabic, QLocale::Egypt), QLocale(QLocale::Hindi, QLocale::India) };
}

} // namespace

void tst_StoreRoundTrip::initTestCase()
{
    m_folder = std::make_unique<QTemporaryDir>(StoreSoak::Template());
    m_random.seed(TestStage::Seed());
}

QString tst_StoreRoundTrip::RandomText(int most)
{
    int const length = static_cast<int>(m_random() % static_cast<unsigned int>(most + 1));
    QString text(QLatin1String(""));
    for (int i = 0; i < length; ++i) {
        std::uint64_t const pick = m_random();
        if (pick % 4 == 0) {
            text += QLatin1Char(Signs[(pick >> 8) % (sizeof Signs - 1)]);
            continue;
        }
        Range const & range = Classes[(pick >> 8) % Classes.size()];
        auto const c = range.first + static_cast<unsigned int>((pick >> 32) % (range.last - range.first + 1));
        if (c > 0xffff)
            text += QString(QChar(QChar::highSurrogate(c))) + QChar(QChar::lowSurrogate(c));
        else
            text += QChar(static_cast<char16_t>(c));
    }
    return text;
}

QString tst_StoreRoundTrip::RandomKey()
{
    QString key = RandomText(8);
    int const levels = static_cast<int>(m_random() % 4);
    for (int i = 0; i < levels; ++i)
        key += QLatin1Char('/') + RandomText(6);
    return key;
}

bool tst_StoreRoundTrip::ThroughAFile(IniText::Entries const & entries, bool byQt)
{
    QString const path = m_folder->filePath(QStringLiteral("store.ini"));
    QFile::remove(path);
    {
        IniCfg store(path);
        for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry)
            store.WriteString(entry.key(), entry.value());
    }
    IniCfg const store(path);
    if (store.GetEntries() != entries)
        return false;
    if (!byQt)
        return true;
    QSettings const settings(path, QSettings::IniFormat);
    for (auto entry = entries.cbegin(); entry != entries.cend(); ++entry)
        if (settings.value(entry.key()).toString() != entry.value())
            return false;
    return true;
}

void tst_StoreRoundTrip::randomEntries()
{
    constexpr int LinesOfAStore = 1000;
    long long const lines = TestStage::Turns(StoreSoak::Optimised() ? 200000 : 100000, 20000000);
    QElapsedTimer timer;
    timer.start();
    for (long long done = 0; done < lines; done += LinesOfAStore) {
        IniText::Entries entries;
        while (entries.size() < LinesOfAStore)
            entries.insert(RandomKey(), RandomText(24));
        entries.insert(QStringLiteral("long"), RandomText(65536 / 4).leftJustified(65536, QLatin1Char('"')));
        QByteArray const bytes = IniText::Print(entries);
        IniText::Parsed const parsed = IniText::Parse(bytes);
        QCOMPARE(parsed.damagedLines, 0);
        QVERIFY2(parsed.entries == entries, qPrintable(QStringLiteral("store at line %1").arg(done)));
        QLocale::setDefault(Locales().at(static_cast<int>(done / LinesOfAStore) % 5));
        bool const same = IniText::Print(entries) == bytes && IniText::Parse(bytes).entries == entries;
        QLocale::setDefault(QLocale::c());
        QVERIFY(same);
        if (done % (LinesOfAStore * 20) == 0)
            QVERIFY(ThroughAFile(entries, false));
    }
    std::printf("figures: round trip: %lld random lines, seed %llu, 5 locales, %lld ms: 0 differ\n", lines,
                TestStage::Seed(), static_cast<long long>(timer.elapsed()));
}

void tst_StoreRoundTrip::colourSetLines_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("newest layout") << QStringLiteral("V02;2;1;0;0;100;0;0;0;#000000;#000000;#fe0000;");
    QTest::newRow("the layout before") << QStringLiteral("V01;2;1;0;0.5;1e+06;-7.25;1;#000000;#fe0000;");
    QTest::newRow("oldest layout") << QStringLiteral("20;0;1;0;360;1;#fe0000;#fe0077;#0000fe;");
}

void tst_StoreRoundTrip::colourSetLines()
{
    QFETCH(QString, line);
    IniText::Entries entries;
    for (int i = 0; i < 3; ++i)
        entries.insert(QStringLiteral("GuiCentral/UserColor%1").arg(i), line);
    QByteArray const bytes = IniText::Print(entries);
    for (QLocale const & locale : Locales()) {
        QLocale::setDefault(locale);
        bool const good = IniText::Print(entries) == bytes && ThroughAFile(entries, true);
        QLocale::setDefault(QLocale::c());
        QVERIFY2(good, qPrintable(locale.name()));
    }
}

ORIM_CORE_TEST_MAIN(tst_StoreRoundTrip)
#include "tst_storeroundtrip.moc"
