// SPDX-License-Identifier: MIT
#include "consoleoptions.h"
#include "consolerun.h"
#include "consolewindow.h"
#include "lineplayer.h"
#include "memorycfg.h"
#include "opensource.h"
#include "persistant.h"
#include "simulator.h"

#include <QApplication>
#include <QFileInfo>

#include <clocale>
#include <cstdio>

namespace {

constexpr int CodeRefused = 2;

int Refuse(QString const & message)
{
    std::fprintf(stderr, "orim-console: %s\n", qPrintable(message));
    return CodeRefused;
}

QString SourceName(ConsoleOptions const & options)
{
    return options.file.isEmpty() ? QCoreApplication::translate("main", "Simulated receiver")
                                  : QFileInfo(options.file).fileName();
}

QStringList Arguments(int argc, char * argv[])
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

//! A picture can be made on a machine without a display.
void ChoosePlatform(ConsoleOptions const & options)
{
    bool const hasDisplay = qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    if (!options.screenshot.isEmpty() && !hasDisplay && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

//! A run that ends by itself finds an empty store and leaves nothing in that of the operator.
void ChooseStore(ConsoleOptions const & options)
{
    if (!options.EndsByItself())
        return;
    static auto * const store = new MemoryCfg; // never destroyed: static objects write while the process ends
    Persistant::SetStore(store);
}

} // namespace

int main(int argc, char * argv[])
{
    std::setlocale(LC_CTYPE, ""); // file names beyond ASCII among the arguments
    ConsoleOptions const options = ConsoleOptions::Parse(Arguments(argc, argv));
    switch (options.action) {
    case ConsoleOptions::Action::eHelp:
        std::printf("%s", qPrintable(options.help));
        return 0;
    case ConsoleOptions::Action::eVersion:
        std::printf("orim-console %s\n", ORIM_VERSION);
        return 0;
    case ConsoleOptions::Action::eRefuse:
        return Refuse(options.message + QStringLiteral("\nTry orim-console --help."));
    case ConsoleOptions::Action::eRun:
        break;
    }
    QString message;
    std::unique_ptr<ISampleSource> source = OpenSource(options, message);
    if (!source)
        return Refuse(message);
    ChoosePlatform(options);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("orim-console"));
    QApplication::setApplicationVersion(QStringLiteral(ORIM_VERSION));
    QApplication::setStyle(QStringLiteral("Fusion"));
    ChooseStore(options);
    ConsoleWindow window(std::make_unique<LinePlayer>(std::move(source)), SourceName(options));
    if (options.file.isEmpty())
        window.FindDirections(Simulator::Emitters(), options.seed);
    ConsoleRun run(window, options);
    if (!run.Start())
        return CodeRefused;
    return run.Finish(QApplication::exec());
}
