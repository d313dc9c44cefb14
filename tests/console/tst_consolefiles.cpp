// SPDX-License-Identifier: MIT
#include "testmain.h"

#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>
#include <fstream>
#include <string>

//! Starts the program as the operator does.
class tst_ConsoleFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refusesBadFiles_data();
    void refusesBadFiles();
    void refusesBadOptions_data();
    void refusesBadOptions();
    void helpAndVersion_data();
    void helpAndVersion();
    void writesAPicture_data();
    void writesAPicture();
    void writesAPictureWithoutADisplay();
    void linesUntilThePicture();
    void leavesTheSettingsAlone_data();
    void leavesTheSettingsAlone();
    void refusesAPictureItCannotWrite();
    void playsARecording();
    void namesBeyondAscii();
    void endsAfterSeconds();
};

namespace {

struct Run
{
    int code = -1;
    QString out;
    QString err;
};

Run Start(QStringList const & arguments, QProcessEnvironment const & more = {}, QStringList const & without = {})
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(more);
    for (QString const & name : without)
        environment.remove(name);
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(ORIM_CONSOLE_PROGRAM), arguments);
    Run run;
    if (process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit)
        run.code = process.exitCode();
    run.out = QString::fromUtf8(process.readAllStandardOutput());
    run.err = QString::fromUtf8(process.readAllStandardError());
    return run;
}

bool WriteFile(QString const & path, QByteArray const & bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QByteArray Meta(char const * datatype, char const * rate)
{
    return QByteArray(R"({"global":{"core:datatype":")") + datatype + R"(","core:sample_rate":)" + rate +
           R"(,"core:version":"1.0.0"},"captures":[{"core:sample_start":0,"core:frequency":100000000}],"annotations":[]})";
}

QProcessEnvironment With(char const * name, QString const & value)
{
    QProcessEnvironment more;
    more.insert(QLatin1String(name), value);
    return more;
}

QStringList FilesBelow(QString const & folder)
{
    QStringList files;
    for (QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories); it.hasNext();)
        files.append(it.next());
    return files;
}

//! The number before a text; -1 where there is none.
int NumberBefore(QString const & out, char const * text)
{
    QRegularExpression const form(QLatin1String("([0-9]+) ") + QLatin1String(text));
    QRegularExpressionMatch const match = form.match(out);
    return match.hasMatch() ? match.captured(1).toInt() : -1;
}

} // namespace

void tst_ConsoleFiles::refusesBadFiles_data()
{
    QTest::addColumn<QByteArray>("meta"); // null: no such file
    QTest::addColumn<QByteArray>("data"); // null: no such file
    QByteArray const samples(4096, 'x');
    QTest::newRow("missing") << QByteArray() << QByteArray();
    QTest::newRow("empty") << QByteArray("") << samples;
    QTest::newRow("no JSON") << QByteArray("This is a letter.") << samples;
    QTest::newRow("JSON cut short") << Meta("cu8", "1000").left(60) << samples;
    QTest::newRow("JSON of another kind") << QByteArray("[1, 2, 3]") << samples;
    QTest::newRow("no global part") << QByteArray(R"({"captures":[]})") << samples;
    QTest::newRow("unknown datatype") << Meta("cq7", "1000") << samples;
    QTest::newRow("sample rate 0") << Meta("cu8", "0") << samples;
    QTest::newRow("sample rate below 0") << Meta("cu8", "-5") << samples;
    QTest::newRow("sample rate is text") << Meta("cu8", "\"fast\"") << samples;
    QTest::newRow("no data file") << Meta("cu8", "1000") << QByteArray();
    QTest::newRow("empty data file") << Meta("cu8", "1000") << QByteArray("");
    QTest::newRow("data file of half a sample") << Meta("cf32_le", "1000") << QByteArray("1234");
    QTest::newRow("binary metadata") << QByteArray(1000, '\0') << samples;
}

void tst_ConsoleFiles::refusesBadFiles()
{
    QFETCH(QByteArray, meta);
    QFETCH(QByteArray, data);
    QTemporaryDir folder;
    QString const base = folder.filePath(QStringLiteral("odd"));
    if (!meta.isNull())
        QVERIFY(WriteFile(base + QStringLiteral(".sigmf-meta"), meta));
    if (!data.isNull())
        QVERIFY(WriteFile(base + QStringLiteral(".sigmf-data"), data));
    Run const run = Start({ base + QStringLiteral(".sigmf-meta") });
    QCOMPARE(run.code, 2);
    QCOMPARE(run.out, QString());
    // the message names the program, the file and the reason, in one line
    QVERIFY2(run.err.startsWith(QStringLiteral("orim-console: ")), qPrintable(run.err));
    QVERIFY2(run.err.contains(base + QStringLiteral(".sigmf-")), qPrintable(run.err));
    QVERIFY2(run.err.trimmed().size() > base.size() + 35, qPrintable(run.err));
    QCOMPARE(run.err.count(QLatin1Char('\n')), 1);
}

void tst_ConsoleFiles::refusesBadOptions_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("part");
    QTest::newRow("unknown option") << QStringList{ "--loud" } << "loud";
    QTest::newRow("bad number") << QStringList{ "--bins", "1000" } << "--bins 1000";
    QTest::newRow("two files") << QStringList{ "a.sigmf-meta", "b.sigmf-meta" } << "b.sigmf-meta";
    QTest::newRow("a folder") << QStringList{ "/tmp" } << "/tmp";
    QTest::newRow("a window too small") << QStringList{ "--size", "100x480", "--seconds", "1" }
                                        << "--size 100x480: the window needs at least ";
    QTest::newRow("a window too low") << QStringList{ "--size", "1280x50", "--seconds", "1" }
                                      << "--size 1280x50: the window needs at least ";
    QTest::newRow("another kind of file") << QStringList{ ORIM_CONSOLE_PROGRAM } << "orim-console: /";
}

void tst_ConsoleFiles::refusesBadOptions()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, part);
    Run const run = Start(arguments);
    QCOMPARE(run.code, 2);
    QCOMPARE(run.out, QString());
    QVERIFY2(run.err.contains(part), qPrintable(run.err));
}

void tst_ConsoleFiles::helpAndVersion_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("part");
    QTest::newRow("help") << "--help"
                          << "Usage: orim-console";
    QTest::newRow("version") << "--version"
                             << "orim-console 0.1.0";
    QTest::newRow("help by its letter") << "-h"
                                        << "Usage: orim-console";
    QTest::newRow("version by its letter") << "-v"
                                           << "orim-console 0.1.0";
}

void tst_ConsoleFiles::helpAndVersion()
{
    QFETCH(QString, option);
    QFETCH(QString, part);
    // no display is needed
    Run const run = Start({ option }, With("QT_QPA_PLATFORM", QStringLiteral("no-such-platform")));
    QCOMPARE(run.code, 0);
    QCOMPARE(run.err, QString());
    QVERIFY2(run.out.contains(part), qPrintable(run.out));
}

void tst_ConsoleFiles::writesAPicture_data()
{
    QTest::addColumn<QString>("scale");
    QTest::addColumn<QString>("size");
    QTest::addColumn<QSize>("expected");
    QTest::newRow("1280 x 800") << "1"
                                << "1280x800" << QSize(1280, 800);
    QTest::newRow("640 x 480") << "1"
                               << "640x480" << QSize(640, 480);
    QTest::newRow("twice as dense") << "2"
                                    << "640x480" << QSize(1280, 960);
}

void tst_ConsoleFiles::writesAPicture()
{
    QFETCH(QString, scale);
    QFETCH(QString, size);
    QFETCH(QSize, expected);
    QTemporaryDir folder;
    QString const picture = folder.filePath(QStringLiteral("screen.png"));
    Run const run =
        Start({ QStringLiteral("--simulate"), QStringLiteral("--bins"), QStringLiteral("256"), QStringLiteral("--size"),
                size, QStringLiteral("--screenshot"), picture, QStringLiteral("--after"), QStringLiteral("0.7") },
              With("QT_SCALE_FACTOR", scale));
    QVERIFY2(run.code == 0, qPrintable(run.err));
    QImage const image(picture);
    QCOMPARE(image.size(), expected);
    QVERIFY2(run.out.startsWith(QStringLiteral("lines: ")) && run.out.contains(QStringLiteral("of one core")),
             qPrintable(run.out));
    QCOMPARE(run.out.count(QLatin1Char('\n')), 1);
    // not an empty window
    QSet<QRgb> colors;
    for (int y = 0; y < image.height(); y += 3)
        for (int x = 0; x < image.width(); x += 3)
            colors.insert(image.pixel(x, y));
    QVERIFY(colors.size() > 50);
}

void tst_ConsoleFiles::writesAPictureWithoutADisplay()
{
    QTemporaryDir folder;
    QString const picture = folder.filePath(QStringLiteral("screen.png"));
    Run const run =
        Start({ QStringLiteral("--size"), QStringLiteral("800x600"), QStringLiteral("--screenshot"), picture,
                QStringLiteral("--after"), QStringLiteral("0.3") },
              {}, { QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("DISPLAY"), QStringLiteral("WAYLAND_DISPLAY") });
    QVERIFY2(run.code == 0, qPrintable(run.err));
    QCOMPARE(QImage(picture).size(), QSize(800, 600));
}

void tst_ConsoleFiles::linesUntilThePicture()
{
    QTemporaryDir folder;
    Run const run = Start({ QStringLiteral("--screenshot"), folder.filePath(QStringLiteral("screen.png")),
                            QStringLiteral("--after"), QStringLiteral("1.5"), QStringLiteral("--rate"),
                            QStringLiteral("50"), QStringLiteral("--bins"), QStringLiteral("64") });
    QVERIFY2(run.code == 0, qPrintable(run.err));
    // 75 in time; a loaded machine skips some, and comes late to the picture
    int const lines = NumberBefore(run.out, "produced") + std::max(0, NumberBefore(run.out, "skipped"));
    QVERIFY2(lines >= 40 && lines <= 90, qPrintable(run.out));
}

void tst_ConsoleFiles::leavesTheSettingsAlone_data()
{
    QTest::addColumn<QStringList>("end");
    QTest::newRow("after seconds") << QStringList{ "--seconds", "0.2" };
    QTest::newRow("with a picture") << QStringList{ "--after", "0.2", "--screenshot" };
}

void tst_ConsoleFiles::leavesTheSettingsAlone()
{
    QFETCH(QStringList, end);
    QTemporaryDir settings;
    QTemporaryDir pictures;
    if (end.last() == QLatin1String("--screenshot"))
        end.append(pictures.filePath(QStringLiteral("screen.png")));
    Run const run = Start(QStringList{ QStringLiteral("--colors"), QStringLiteral("night") } + end,
                          With("XDG_CONFIG_HOME", settings.path()));
    QVERIFY2(run.code == 0, qPrintable(run.err));
    QCOMPARE(FilesBelow(settings.path()), QStringList());
}

void tst_ConsoleFiles::refusesAPictureItCannotWrite()
{
    Run const run = Start({ QStringLiteral("--screenshot"), QStringLiteral("/no/such/folder/screen.png"),
                            QStringLiteral("--after"), QStringLiteral("0.1") });
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains(QStringLiteral("/no/such/folder/screen.png: cannot write the picture: ")),
             qPrintable(run.err));
}

void tst_ConsoleFiles::playsARecording()
{
    QTemporaryDir folder;
    QString const base = folder.filePath(QStringLiteral("good"));
    QVERIFY(WriteFile(base + QStringLiteral(".sigmf-meta"), Meta("cu8", "8000")));
    QByteArray samples;
    for (int i = 0; i < 16000; ++i)
        samples.append(static_cast<char>(i * 37));
    QVERIFY(WriteFile(base + QStringLiteral(".sigmf-data"), samples));
    Run const run = Start({ base + QStringLiteral(".sigmf-meta"), QStringLiteral("--seconds"), QStringLiteral("1.5"),
                            QStringLiteral("--verbose"), QStringLiteral("--bins"), QStringLiteral("256") });
    QVERIFY2(run.code == 0, qPrintable(run.err));
    QVERIFY2(run.out.contains(QStringLiteral(" lines/s, 0 drops, frame time ")), qPrintable(run.out));
    QVERIFY2(run.out.contains(QStringLiteral(" produced, ")), qPrintable(run.out));
    QVERIFY2(!run.out.contains(QStringLiteral("lines: 0 produced")), qPrintable(run.out));
}

void tst_ConsoleFiles::namesBeyondAscii()
{
    QTemporaryDir folder;
    QString const base = folder.filePath(QString::fromUtf8("gr\xc3\xb6\xc3\x9f\x65"));
    QStringList const arguments{ base + QStringLiteral(".sigmf-meta"), QStringLiteral("--seconds"),
                                 QStringLiteral("0.3") };
    QProcessEnvironment const utf8 = With("LC_ALL", QStringLiteral("C.UTF-8"));
    Run const missing = Start(arguments, utf8);
    QCOMPARE(missing.code, 2);
    QVERIFY2(missing.err.contains(base + QStringLiteral(".sigmf-meta: cannot be opened")), qPrintable(missing.err));
    // by the bytes of the names, whatever the locale of this test
    std::ofstream((base + QStringLiteral(".sigmf-meta")).toStdString()) << Meta("cu8", "8000").constData();
    std::ofstream((base + QStringLiteral(".sigmf-data")).toStdString()) << std::string(16000, 'x');
    Run const playing = Start(arguments, utf8);
    QVERIFY2(playing.code == 0, qPrintable(playing.err));
}

void tst_ConsoleFiles::endsAfterSeconds()
{
    Run const run =
        Start({ QStringLiteral("--seconds"), QStringLiteral("0.2"), QStringLiteral("--bins"), QStringLiteral("64") });
    QVERIFY2(run.code == 0, qPrintable(run.err));
    QVERIFY(run.out.startsWith(QStringLiteral("lines: ")));
}

ORIM_TEST_MAIN(tst_ConsoleFiles)
#include "tst_consolefiles.moc"
