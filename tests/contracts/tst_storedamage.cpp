// SPDX-License-Identifier: MIT
#include "inicfg.h"
#include "storesoak.h"

#include "cpuclock.h"
#include "testmain.h"

#include <QDir>

//! Damaged stores of every kind: no crash, the rest of the keys is kept, the next start is clean.
class tst_StoreDamage : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void cutAtEveryByte();
    void everyBitFlipped();
    void otherDamage_data();
    void otherDamage();
    void largeStores_data();
    void largeStores();
    void cleanupTestCase();

private:
    //! Lines of the store with what they say.
    struct Line
    {
        qint64 from = 0;
        qint64 to = 0; // behind the line end
        QString section;
        QString key; // empty for a section and a blank line
    };

    void Split();
    //! Whether a start reads what it must of a damaged store, and the start after it finds the same without damage.
    bool StartsTwice(QByteArray const & bytes, QSet<QString> const & mayDiffer);
    QSet<QString> TouchedBy(qint64 place) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path;
    IniText::Entries m_entries;
    QByteArray m_bytes;
    QVector<Line> m_lines;
    int m_variants = 0;
    double m_worstLoad = 0.0; // ms a MB
    QElapsedTimer m_timer;
};

namespace {

QString Latin(char const * text) { return QString::fromLatin1(text); }

//! Whether this build is fast enough for every variant, and for times.
bool Thorough() { return StoreSoak::Optimised() && !TestStage::Sanitized(); }

//! A store as the library writes it, of about 1.7 KB.
IniText::Entries Sample()
{
    IniText::Entries entries;
    for (char const * key : { "CompX", "CompT", "WaterfallDimension", "AzimuthHold", "AgedImageHoldTime",
                              "_2ndWidgetBorder", "KeepLast", "Sweep" })
        entries.insert(Latin("Spectrum/") + Latin(key), Latin("3"));
    for (char const * key : { "CurveShow", "UseMaxHold", "ThresholdLine", "SparklesVisible", "FillCurve", "AzimuthShow",
                              "ElevationShow", "UseLegend" })
        entries.insert(Latin("Elevation display/") + Latin(key), Latin("true"));
    for (char const * key : { "ColorSet", "ColorSetA", "ColorSetE", "ColorSetBitStream", "ColorSetAgeing",
                              "ColorSetQuality", "ColorSetPifpan", "ColorSetDifferenceMode" })
        entries.insert(Latin("GuiCentral/") + Latin(key), Latin("12"));
    QString line = Latin("V02;30;0;1;0;360;0;1;0;#000000;");
    for (int i = 0; i < 30; ++i)
        line += QStringLiteral("#%1;").arg(i * 801319 + 4096, 6, 16, QLatin1Char('0'));
    for (char const * key : { "UserColor0", "UserColor1", "UserColor2" })
        entries.insert(Latin("GuiCentral/") + Latin(key), line);
    for (char const * key : { "Start", "Stop", "Threshold", "MaxHold", "Level/First", "Level/Second", "Level/Third" })
        entries.insert(Latin("Receiver/") + Latin(key), Latin("-0.33333333333333331"));
    entries.insert(Latin("Receiver/Name"), Latin("Antenna \"N\\S\" 5 \xb5V; [a=b]\n") + QChar(0x20ac) + Latin("7"));
    entries.insert(Latin("Language"), Latin("en"));
    entries.insert(Latin("Last folder"), Latin("/home/operator/recordings"));
    return entries;
}

} // namespace

void tst_StoreDamage::initTestCase()
{
    m_timer.start();
    m_folder = std::make_unique<QTemporaryDir>(StoreSoak::Template());
    m_path = m_folder->filePath(Latin("store.ini"));
    m_entries = Sample();
    m_bytes = IniText::Print(m_entries);
    QVERIFY2(m_bytes.size() > 1500 && m_bytes.size() < 1900, qPrintable(QString::number(m_bytes.size())));
    Split();
}

void tst_StoreDamage::cleanup() { qInstallMessageHandler(nullptr); }

void tst_StoreDamage::Split()
{
    QString section;
    for (qint64 from = 0; from < m_bytes.size();) {
        qint64 const to = m_bytes.indexOf('\n', static_cast<int>(from)) + 1;
        QByteArray const text = m_bytes.mid(static_cast<int>(from), static_cast<int>(to - from));
        if (text.startsWith('['))
            section = IniText::Parse(text + "k=1").entries.firstKey().chopped(1);
        Line line{ from, to, section, QString() };
        if (text.contains('=') && !text.startsWith('['))
            line.key = section + IniText::Parse(text).entries.firstKey();
        m_lines << line;
        from = to;
    }
    QSet<QString> keys;
    for (Line const & line : m_lines)
        if (!line.key.isEmpty())
            keys << line.key;
    QCOMPARE(keys.size(), static_cast<int>(m_entries.size()));
}

//! Keys that a damaged byte may cost: those of its line, of the next one when it is a line end, and of the section when
//! its head is among them.
QSet<QString> tst_StoreDamage::TouchedBy(qint64 place) const
{
    QSet<QString> keys;
    for (int i = 0; i < m_lines.size(); ++i) {
        Line const & line = m_lines[i];
        bool const own = place >= line.from && place < line.to;
        bool const next = i > 0 && place == line.from - 1;
        if (!own && !next)
            continue;
        keys << line.key;
        if (line.key.isEmpty()) // a section's head, or the blank line before one
            for (int j = i + 1; j < m_lines.size() && (!m_lines[j].key.isEmpty() || j == i + 1); ++j)
                keys << m_lines[j].key;
    }
    return keys;
}

bool tst_StoreDamage::StartsTwice(QByteArray const & bytes, QSet<QString> const & mayDiffer)
{
    ++m_variants;
    QFile::remove(m_path + Latin(".corrupt"));
    if (!StoreSoak::Put(m_path, bytes))
        return false;
    int const damage = IniText::Parse(bytes).damagedLines;
    StoreSoak::CountLines();
    IniText::Entries first;
    {
        IniCfg const store(m_path);
        first = store.GetEntries();
    }
    bool good =
        StoreSoak::Lines() == (damage > 0 ? 1 : 0) && QFileInfo::exists(m_path + Latin(".corrupt")) == (damage > 0);
    if (damage > 0)
        good = good && StoreSoak::Bytes(m_path + Latin(".corrupt")) == bytes;
    for (auto entry = m_entries.cbegin(); entry != m_entries.cend(); ++entry)
        if (!mayDiffer.contains(entry.key()))
            good = good && first.value(entry.key(), Latin("missing")) == entry.value();
    StoreSoak::CountLines();
    IniCfg const second(m_path);
    return good && StoreSoak::Lines() == 0 && second.GetEntries() == first;
}

void tst_StoreDamage::cutAtEveryByte()
{
    auto const step = static_cast<int>(TestStage::Turns(Thorough() ? 1 : 5, 1));
    for (int size = 0; size < m_bytes.size(); size += step) {
        QSet<QString> lost;
        for (Line const & line : qAsConst(m_lines))
            if (line.to > size)
                lost << line.key;
        if (!StartsTwice(m_bytes.left(size), lost)) {
            cleanup();
            QFAIL(qPrintable(QStringLiteral("cut at %1").arg(size)));
        }
    }
}

void tst_StoreDamage::everyBitFlipped()
{
    auto const step = static_cast<int>(TestStage::Turns(Thorough() ? 1 : 7, 1));
    for (int bit = 0; bit < 8 * m_bytes.size(); bit += step) {
        QByteArray bytes = m_bytes;
        bytes[bit / 8] = static_cast<char>(bytes.at(bit / 8) ^ (1 << (bit % 8)));
        if (!StartsTwice(bytes, TouchedBy(bit / 8))) {
            cleanup();
            QFAIL(qPrintable(QStringLiteral("bit %1 of byte %2 flipped: %3")
                                 .arg(bit % 8)
                                 .arg(bit / 8)
                                 .arg(QString::fromLatin1(bytes.mid(qMax(0, bit / 8 - 20), 40)))));
        }
    }
}

void tst_StoreDamage::otherDamage_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("allIsKept");
    QByteArray wide("\xff\xfe");
    for (char const c : qAsConst(m_bytes))
        wide += QByteArray(1, c) + '\0';
    QByteArray const lastKey("[z]\nlast=1\n");
    QTest::newRow("4096 NUL behind") << m_bytes + QByteArray(4096, '\0') << true;
    QTest::newRow("4096 NUL and a line end before") << QByteArray(4096, '\0') + '\n' + m_bytes << true;
    QTest::newRow("only NUL") << QByteArray(4096, '\0') << false;
    QTest::newRow("a mark of UTF-8") << "\xef\xbb\xbf" + m_bytes << true;
    QTest::newRow("UTF-16") << wide << true;
    QTest::newRow("UTF-16 without its mark") << wide.mid(2) << false;
    QTest::newRow("CRLF") << QByteArray(m_bytes).replace('\n', "\r\n") << true;
    QTest::newRow("invalid UTF-8 behind") << m_bytes + "\n[x]\nk=\xff\xfe\xc3\n" << true;
    QTest::newRow("twice the same") << m_bytes + m_bytes << true;
    QTest::newRow("a line of text behind") << m_bytes + "\nhello\n" << true;
    QTest::newRow("random bytes behind") << m_bytes + "\n\x8f\x01\xe2\x28\xa1[\"=\\\n" << true;
    QTest::newRow("another format") << QByteArray("<?xml version=\"1.0\"?>\n<settings/>\n") << false;
    QTest::newRow("nothing") << QByteArray() << false;
}

void tst_StoreDamage::otherDamage()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, allIsKept);
    QSet<QString> lost;
    if (!allIsKept)
        for (QString const & key : m_entries.keys())
            lost << key;
    bool const good = StartsTwice(bytes, lost);
    cleanup();
    QVERIFY(good);
}

void tst_StoreDamage::largeStores_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("entries");
    int const lines = Thorough() ? 1000000 : 100000;
    QByteArray keys("[s]\n");
    for (int i = 0; i < 100000; ++i)
        keys += "Key" + QByteArray::number(i) + "=\"a text; of some length\"\n";
    QByteArray deep("[s]\n");
    for (int i = 0; i < 10; ++i)
        deep += QByteArray("level\\").repeated(10000) + QByteArray::number(i) + "=1\n";
    QTest::newRow("a line of 10 MB") << "k=\"" + QByteArray(10 << 20, 'x') + "\"\nl=1\n" << 2;
    QTest::newRow("a long line of escapes") << "k=\"" + QByteArray("\\x20ac ").repeated(lines) + "\"\nl=1\n" << 2;
    QTest::newRow("a key of 10 MB") << QByteArray(10 << 20, 'k') + "=1\nl=1\n" << 2;
    QTest::newRow("a damaged line of 10 MB") << "k=\"" + QByteArray(10 << 20, 'x') + "\nl=1\n" << 1;
    QTest::newRow("100,000 keys") << keys << 100000;
    QTest::newRow("many lines of one key") << QByteArray("k=12\n").repeated(lines) << 1;
    QTest::newRow("many sections") << QByteArray("[s]\n").repeated(lines) + "k=1\n" << 1;
    QTest::newRow("many damaged lines") << QByteArray("hello\n").repeated(lines) + "k=1\n" << 1;
    QTest::newRow("10,000 levels") << deep << 10;
}

void tst_StoreDamage::largeStores()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, entries);
    QVERIFY(StoreSoak::Put(m_path, bytes));
    CpuClock const clock;
    IniText::Parsed const parsed = IniText::Parse(bytes);
    double const load = clock.Milliseconds() / (static_cast<double>(bytes.size()) / 1048576.0);
    m_worstLoad = std::max(m_worstLoad, load);
    QCOMPARE(static_cast<int>(parsed.entries.size()), entries);
    StoreSoak::CountLines();
    IniText::Entries first;
    {
        IniCfg const store(m_path);
        first = store.GetEntries();
    }
    IniCfg const second(m_path);
    cleanup();
    QVERIFY(first == parsed.entries);
    QVERIFY(second.GetEntries() == first);
    if (Thorough())
        QVERIFY2(load <= 200.0, qPrintable(QStringLiteral("%1 ms a MB").arg(load)));
}

void tst_StoreDamage::cleanupTestCase()
{
    std::printf("figures: damaged stores: %d variants of %d bytes in %lld ms: 0 keys lost beside the damage, every "
                "second start clean; slowest load %.1f ms a MB\n",
                m_variants, static_cast<int>(m_bytes.size()), static_cast<long long>(m_timer.elapsed()), m_worstLoad);
}

ORIM_CORE_TEST_MAIN(tst_StoreDamage)
#include "tst_storedamage.moc"
