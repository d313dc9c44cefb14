// SPDX-License-Identifier: MIT
// Loads and unloads the library at run time, without knowing anything of it: it is linked to Qt alone. Arguments: path
// of the library, name of the life to lead.
#include <QApplication>
#include <QFile>
#include <QLocale>
#include <QPushButton>
#include <QTimer>
#include <QWidget>

#include <array>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>

class GuiCentral;

namespace {

char const * library = nullptr;

void Expect(bool holds, char const * what)
{
    if (holds)
        return;
    std::fprintf(stderr, "broken: %s\n", what);
    std::_Exit(99);
}

void * Load()
{
    void * const handle = dlopen(library, RTLD_NOW | RTLD_LOCAL);
    Expect(handle, "the library loads");
    return handle;
}

bool IsLoaded()
{
    void * const handle = dlopen(library, RTLD_NOW | RTLD_NOLOAD);
    if (handle)
        dlclose(handle);
    return handle;
}

//! \param last  whether the library is to be gone then.
void Unload(void * handle, bool last = true)
{
    Expect(dlclose(handle) == 0, "the library unloads");
    Expect(IsLoaded() != last, "the library is gone with its last user");
}

bool IsTranslated() { return QCoreApplication::translate("GuiCentral", "Rainbow") == QLatin1String("Regenbogen"); }

class Program
{
public:
    Program() : m_application(m_argc, m_argv) {}

    void Run()
    {
        QTimer::singleShot(0, &m_application, &QCoreApplication::quit);
        Expect(QApplication::exec() == 0, "the application ends");
    }

private:
    int m_argc = 1;
    char m_name[5] = "life";
    char * m_argv[2] = { m_name, nullptr };
    QApplication m_application;
};

int LoadedBefore()
{
    void * const handle = Load();
    Program program;
    Expect(IsTranslated(), "the application is built translated");
    program.Run();
    Unload(handle);
    Expect(!IsTranslated(), "the translation went with the library");
    program.Run();
    return 0;
}

int UnloadedBefore()
{
    Unload(Load());
    Program program;
    Expect(!IsTranslated(), "nothing is registered");
    program.Run();
    return 0;
}

int LoadedAfter()
{
    Program program;
    Expect(!IsTranslated(), "nothing is registered yet");
    Load();
    Expect(IsTranslated(), "translated at once");
    program.Run();
    return 0;
}

int UnloadedAfter()
{
    void * const handle = Load();
    {
        Program program;
        Expect(IsTranslated(), "translated");
        program.Run();
    }
    Unload(handle);
    Program program;
    Expect(!IsTranslated(), "nothing is registered any more");
    program.Run();
    return 0;
}

int LoadedTwice()
{
    Program program;
    void * const first = Load();
    void * const second = Load();
    Unload(first, false);
    Expect(IsTranslated(), "somebody uses it still");
    Unload(second);
    Expect(!IsTranslated(), "the translation went with the library");
    program.Run();
    return 0;
}

int LoadedAgain()
{
    Program program;
    for (int i = 0; i < 20; ++i) {
        void * const handle = Load();
        Expect(IsTranslated(), "translated again");
        Unload(handle);
        Expect(!IsTranslated(), "taken back again");
    }
    program.Run();
    return 0;
}

int ExitInASlot()
{
    Program program;
    Load();
    Expect(IsTranslated(), "translated");
    QWidget widget;
    widget.show();
    QTimer::singleShot(0, &widget, [] { std::exit(3); });
    QTimer::singleShot(60000, &widget, [] { std::_Exit(97); });
    QApplication::exec();
    return 4;
}

int NoApplication()
{
    Unload(Load());
    return 0;
}

int LeftOpen()
{
    Load();
    return 0;
}

int UnloadedWithCentralObject()
{
    Program program;
    void * const handle = Load();
    // GuiCentral::Instance(), by its name in the library
    auto const instance = reinterpret_cast<GuiCentral & (*)()>(dlsym(handle, "_ZN10GuiCentral8InstanceEv"));
    Expect(instance, "the library has a central object");
    Expect(&instance() == &instance(), "it is built");
    program.Run();
    Unload(handle);
    program.Run();
    return 0;
}

int UnloadedWithAParkedFilter()
{
    Program program;
    QByteArray contracts(library);
    contracts.replace("OrimWidgets", "OrimContracts");
    Expect(dlopen(contracts.constData(), RTLD_NOW | RTLD_LOCAL), "somebody else uses the library below");
    void * const handle = Load();
    // a Control without a widget, whose event filter nobody owns, by the names in the library
    auto const build = reinterpret_cast<void (*)(void *)>(dlsym(handle, "_ZN7ControlC1Ev"));
    auto const end = reinterpret_cast<void (*)(void *)>(dlsym(handle, "_ZN7ControlD1Ev"));
    Expect(build && end, "the library has controls");
    alignas(std::max_align_t) std::array<unsigned char, 4096> room{};
    build(room.data());
    end(room.data());
    Unload(handle);
    program.Run();
    return 0; // what the library left behind does not outlive its code
}

//! Builds a caption with buttons by the names in the library.
//! \param pause, resume  what its stop button is to say.  \param full  what the button "Waterfall only" is to say.
void ExpectCaption(void * handle, char const * pause, char const * resume, char const * full)
{
    using Build = void (*)(void *, QWidget *, char const *, unsigned int, int, int);
    auto const build = reinterpret_cast<Build>(dlsym(handle, "_ZN9VCCaptionC1EP7QWidgetPKcjii"));
    auto const end = reinterpret_cast<void (*)(void *)>(dlsym(handle, "_ZN9VCCaptionD1Ev"));
    Expect(build && end, "the library has captions");
    alignas(std::max_align_t) std::array<unsigned char, 8192> room{};
    build(room.data(), nullptr, nullptr, 8, 10, 7);
    auto * const bar = reinterpret_cast<QWidget *>(room.data());
    auto const * const stop = bar->findChild<QPushButton *>(QStringLiteral("stop"));
    Expect(stop && stop->statusTip() == QLatin1String(pause), "the status tip was translated when the library loaded");
    Expect(QMetaObject::invokeMethod(bar, "slotStopped"), "it is stopped");
    Expect(stop->toolTip() == QLatin1String(resume), "so was the tool tip of the stopped one");
    Expect(QMetaObject::invokeMethod(bar, "slotStarted"), "it is started");
    Expect(stop->toolTip() == QLatin1String(pause), "and that of the running one");
    auto const * const other = bar->findChild<QPushButton *>(QStringLiteral("Waterfall only"));
    Expect(other && other->toolTip() == QLatin1String(full), "the rest is translated when a caption is built");
    end(room.data());
}

bool HasPictures()
{
    return QFile::exists(QStringLiteral(":/GUIControl/Pause.png")) && QFile::exists(QStringLiteral(":/Caption/On")) &&
           QFile::exists(QStringLiteral(":/Caption/Off"));
}

int CaptionsLoadedAfter()
{
    Program program;
    Expect(!HasPictures(), "no pictures yet");
    void * const handle = Load();
    Expect(HasPictures(), "loading brings the pictures");
    ExpectCaption(handle, "Anhalten", "Fortsetzen", "Nur Wasserfall");
    program.Run();
    Unload(handle);
    Expect(!HasPictures(), "the pictures went with the library");
    return 0;
}

int CaptionsLoadedBefore()
{
    void * const handle = Load();
    Expect(HasPictures(), "loading brings the pictures");
    Program program;
    ExpectCaption(handle, "Pause", "Resume", "Nur Wasserfall");
    program.Run();
    return 0;
}

struct Life
{
    char const * name;
    int (*lead)();
};

constexpr Life Lives[] = {
    { "loaded before the application", LoadedBefore },
    { "unloaded before the application", UnloadedBefore },
    { "loaded after the application", LoadedAfter },
    { "unloaded after the application", UnloadedAfter },
    { "loaded twice", LoadedTwice },
    { "loaded again and again", LoadedAgain },
    { "exit in a slot", ExitInASlot },
    { "no application", NoApplication },
    { "left open", LeftOpen },
    { "unloaded with its central object", UnloadedWithCentralObject },
    { "unloaded with a parked filter", UnloadedWithAParkedFilter },
    { "captions loaded after the application", CaptionsLoadedAfter },
    { "captions loaded before the application", CaptionsLoadedBefore },
};

} // namespace

int main(int argc, char * argv[])
{
    if (argc != 3)
        return 98;
    library = argv[1];
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    for (Life const & life : Lives)
        if (std::strcmp(life.name, argv[2]) == 0)
            return life.lead();
    std::fputs("no such life\n", stderr);
    return 98;
}
