// SPDX-License-Identifier: MIT
// Loads and unloads the library at run time, without knowing anything of it: it is linked to Qt alone. Arguments: path
// of the library, name of the life to lead.
#include <QApplication>
#include <QLocale>
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
