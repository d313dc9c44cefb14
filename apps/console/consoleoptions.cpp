// SPDX-License-Identifier: MIT
#include "consoleoptions.h"

#include <QCommandLineParser>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

using Colors = ConsoleOptions::Colors;

struct OptionRow
{
    char const * name;
    char const * value; // null for a switch
    char const * text;
    char const * letter = nullptr; // second name
};

constexpr std::array<OptionRow, 17> OptionRows{ {
    { "simulate", nullptr, "Show the simulated receiver. This is the default without a file." },
    { "seed", "NUMBER", "Seed of the simulated receiver, a whole number. Default 1." },
    { "speed", "FACTOR", "Play this many times as fast, 0.01 to 100. Default 1." },
    { "bins", "NUMBER", "Levels in a line: a power of two from 64 to 65536." },
    { "rate", "NUMBER", "Lines a second, 1 to 200." },
    { "range", "MIN:MAX", "Level range in dBFS, for example -120:0." },
    { "colors", "SET", "Colour set: day, night or contrast." },
    { "markers", nullptr, "Show the markers: on the highest signals and on two times." },
    { "windows", nullptr, "Mark the five highest signals with windows." },
    { "panes", "NAMES", "Show more panes: persistence, azimuth and elevation, or some of them." },
    { "size", "WxH", "Size of the window, for example 1280x800." },
    { "screenshot", "FILE.png", "Write a picture of the window to this file, then end." },
    { "after", "SECONDS", "Time before the picture is written. Default 2." },
    { "seconds", "NUMBER", "End after this many seconds." },
    { "verbose", nullptr, "Print lines a second, drops and frame time each second." },
    { "help", nullptr, "Show this help.", "h" },
    { "version", nullptr, "Show the version.", "v" },
} };

struct ColorRow
{
    char const * name;
    Colors colors;
};

constexpr std::array<ColorRow, 3> ColorRows{ {
    { "day", Colors::eDay },
    { "night", Colors::eNight },
    { "contrast", Colors::eContrast },
} };

constexpr std::array<char const *, 3> PaneNames{ { "persistence", "azimuth", "elevation" } };

struct NumberLimits
{
    double least;
    double most;
};

constexpr NumberLimits SpeedLimits{ 0.01, 100.0 };
constexpr NumberLimits RateLimits{ 1.0, 200.0 };
constexpr NumberLimits AfterLimits{ 0.0, 86400.0 };
constexpr NumberLimits SecondsLimits{ 0.001, 86400.0 };
constexpr NumberLimits LevelLimits{ -160.0, 60.0 };
constexpr int LeastBins = 64;
constexpr int MostBins = 65536;
constexpr int MostSize = 16384;         // px
constexpr int MostPixels = 7680 * 4320; // in both directions together

//! Reads values of options; the first that is none leaves a message.
class ValueReader
{
public:
    explicit ValueReader(QCommandLineParser const & parser) : m_parser(parser) {}

    QString const & Message() const { return m_message; }

    bool IsSet(char const * name) const { return m_parser.isSet(QLatin1String(name)); }

    QString Text(char const * name) const { return m_parser.value(QLatin1String(name)); }

    void Refuse(char const * name, QString const & wanted)
    {
        if (m_message.isEmpty())
            m_message = QStringLiteral("--%1 %2: %3").arg(QLatin1String(name), Text(name), wanted);
    }

    //! Refuses the option whatever its value.
    void RefuseOption(char const * name, QString const & reason)
    {
        if (m_message.isEmpty())
            m_message = QStringLiteral("--%1: %2").arg(QLatin1String(name), reason);
    }

    std::optional<double> Number(char const * name, NumberLimits const & limits)
    {
        if (!IsSet(name))
            return std::nullopt;
        std::optional<double> const number = ReadNumber(Text(name), limits);
        if (!number)
            Refuse(name, QStringLiteral("a number from %1 to %2 is wanted").arg(limits.least).arg(limits.most));
        return number;
    }

    static std::optional<double> ReadNumber(QString const & text, NumberLimits const & limits)
    {
        bool ok = false;
        double const number = text.toDouble(&ok);
        bool const good = ok && std::isfinite(number) && number >= limits.least && number <= limits.most;
        return good ? std::optional<double>(number) : std::nullopt;
    }

private:
    QCommandLineParser const & m_parser;
    QString m_message;
};

void AddOptions(QCommandLineParser & parser)
{
    for (OptionRow const & row : OptionRows) {
        QStringList names{ QLatin1String(row.name) };
        if (row.letter)
            names.append(QLatin1String(row.letter));
        QCommandLineOption option(names, QLatin1String(row.text));
        if (row.value)
            option.setValueName(QLatin1String(row.value));
        parser.addOption(option);
    }
}

//! Written here and not by the parser, which needs an application object for it.
QString HelpText()
{
    QString text = QStringLiteral("Usage: orim-console [options] [FILE.sigmf-meta]\n"
                                  "Plays a radio recording as spectrum and waterfall.\n\nOptions:\n");
    for (OptionRow const & row : OptionRows) {
        QString name = QLatin1String("--") + QLatin1String(row.name);
        if (row.value)
            name += QLatin1Char(' ') + QLatin1String(row.value);
        if (row.letter)
            name += QLatin1String(", -") + QLatin1String(row.letter);
        text += QLatin1String("  ") + name.leftJustified(24) + QLatin1String(row.text) + QLatin1Char('\n');
    }
    return text;
}

void ReadBins(ValueReader & reader, ConsoleOptions & options)
{
    if (!reader.IsSet("bins"))
        return;
    bool ok = false;
    int const bins = reader.Text("bins").toInt(&ok);
    if (ok && bins >= LeastBins && bins <= MostBins && (bins & (bins - 1)) == 0)
        options.bins = bins;
    else
        reader.Refuse("bins", QStringLiteral("a power of two from 64 to 65536 is wanted"));
}

void ReadRange(ValueReader & reader, ConsoleOptions & options)
{
    if (!reader.IsSet("range"))
        return;
    QStringList const parts = reader.Text("range").split(QLatin1Char(':'));
    if (parts.size() == 2) {
        options.levelMin = ValueReader::ReadNumber(parts[0], LevelLimits);
        options.levelMax = ValueReader::ReadNumber(parts[1], LevelLimits);
    }
    if (!options.levelMin || !options.levelMax || *options.levelMax < *options.levelMin + 1.0)
        reader.Refuse("range",
                      QStringLiteral("two levels from -160 to 60 dBFS are wanted, as in -120:0, at least 1 dB apart"));
}

void ReadSize(ValueReader & reader, ConsoleOptions & options)
{
    if (!reader.IsSet("size"))
        return;
    static QRegularExpression const form(QStringLiteral("\\A([0-9]{1,5})x([0-9]{1,5})\\z"));
    QRegularExpressionMatch const match = form.match(reader.Text("size"));
    QSize const size(match.captured(1).toInt(), match.captured(2).toInt());
    bool const inside = !size.isEmpty() && size.width() <= MostSize && size.height() <= MostSize &&
                        size.width() * size.height() <= MostPixels;
    if (match.hasMatch() && inside)
        options.size = size;
    else
        reader.Refuse("size", QStringLiteral("a width and a height up to %1, together up to %2 pixels, are wanted, as "
                                             "in 1280x800")
                                  .arg(MostSize)
                                  .arg(MostPixels));
}

void ReadColors(ValueReader & reader, ConsoleOptions & options)
{
    if (!reader.IsSet("colors"))
        return;
    for (ColorRow const & row : ColorRows) {
        if (reader.Text("colors") == QLatin1String(row.name))
            options.colors = row.colors;
    }
    if (!options.colors)
        reader.Refuse("colors", QStringLiteral("day, night or contrast is wanted"));
}

void ReadPanes(ValueReader & reader, ConsoleOptions & options)
{
    if (!reader.IsSet("panes"))
        return;
    options.panes = reader.Text("panes").split(QLatin1Char(','));
    bool const good = std::all_of(options.panes.cbegin(), options.panes.cend(), [](QString const & name) {
        return std::any_of(PaneNames.begin(), PaneNames.end(),
                           [&name](char const * known) { return name == QLatin1String(known); });
    });
    if (!good)
        reader.Refuse("panes", QStringLiteral("some of persistence, azimuth and elevation with commas between them "
                                              "are wanted"));
}

void ReadSeed(ValueReader & reader, ConsoleOptions & options)
{
    if (!reader.IsSet("seed"))
        return;
    bool ok = false;
    options.seed = reader.Text("seed").toULongLong(&ok);
    if (!ok)
        reader.Refuse("seed", QStringLiteral("a whole number from 0 on is wanted"));
}

void ReadFile(QCommandLineParser const & parser, ConsoleOptions & options)
{
    QStringList const files = parser.positionalArguments();
    if (files.size() > 1)
        options.message = QStringLiteral("%1: only one recording can be played").arg(files[1]);
    else if (!files.isEmpty() && parser.isSet(QStringLiteral("simulate")))
        options.message = QStringLiteral("%1: a recording and --simulate exclude each other").arg(files[0]);
    else if (!files.isEmpty() && files[0].isEmpty())
        options.message = QStringLiteral("the name of the recording is empty");
    else
        options.file = files.value(0);
}

void ReadValues(QCommandLineParser const & parser, ConsoleOptions & options)
{
    ReadFile(parser, options);
    ValueReader reader(parser);
    ReadSeed(reader, options);
    ReadBins(reader, options);
    ReadRange(reader, options);
    ReadSize(reader, options);
    ReadColors(reader, options);
    ReadPanes(reader, options);
    options.speed = reader.Number("speed", SpeedLimits).value_or(options.speed);
    options.rate = reader.Number("rate", RateLimits);
    options.after = reader.Number("after", AfterLimits).value_or(options.after);
    options.runSeconds = reader.Number("seconds", SecondsLimits).value_or(options.runSeconds);
    options.screenshot = reader.Text("screenshot");
    if (reader.IsSet("screenshot") && options.screenshot.isEmpty())
        reader.Refuse("screenshot", QStringLiteral("the name of a file is wanted"));
    options.verbose = reader.IsSet("verbose");
    options.markers = reader.IsSet("markers");
    options.windows = reader.IsSet("windows");
    if (reader.IsSet("after") && !reader.IsSet("screenshot"))
        reader.RefuseOption("after", QStringLiteral("needs --screenshot"));
    if (reader.IsSet("seconds") && reader.IsSet("screenshot"))
        reader.RefuseOption("seconds", QStringLiteral("excludes --screenshot"));
    if (options.message.isEmpty())
        options.message = reader.Message();
}

} // namespace

ConsoleOptions ConsoleOptions::Parse(QStringList const & arguments)
{
    QCommandLineParser parser;
    AddOptions(parser);
    ConsoleOptions options;
    if (!parser.parse(arguments)) {
        options.message = parser.errorText();
    } else if (parser.isSet(QStringLiteral("help"))) {
        options.action = Action::eHelp;
        options.help = HelpText();
        return options;
    } else if (parser.isSet(QStringLiteral("version"))) {
        options.action = Action::eVersion;
        return options;
    } else {
        ReadValues(parser, options);
    }
    if (!options.message.isEmpty())
        options.action = Action::eRefuse;
    return options;
}
