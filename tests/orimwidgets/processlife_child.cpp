// SPDX-License-Identifier: MIT
// A program of many lives: its environment variable ORIM_LIFE names the one it is to lead.
#include "guicentral.h"

#include "coloryrulerleft.h"
#include "control.h"
#include "guibase.h"
#include "guicentralaccess.h"
#include "memorycfg.h"
#include "resortpopupmenu.h"
#include "tree.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLocale>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

bool IsLife(char const * name)
{
    char const * const life = std::getenv("ORIM_LIFE");
    return life && std::strcmp(life, name) == 0;
}

void Expect(bool holds, char const * what)
{
    if (holds)
        return;
    std::fprintf(stderr, "broken: %s\n", what);
    std::_Exit(99);
}

GuiCentral & Central() { return GuiCentral::Instance(); }

//! Leaves something to be stored: the red part of the first user colour.
void Mark(int red) { Central().GetWaterfallColorSets()[0].SetColorNr(0, QColor(red, 0, 0)); }

//! Asks for colours and everything else that needs no application.
void Use()
{
    Expect(Central().GetWaterfallColorSets().size() == 20, "twenty sets");
    Expect(Central().GetShadingRGB(0.0, VC::eShadingAzimuth, 0.0, 1.0, false) == qRgb(0xfe, 0, 0), "a colour");
    Central().GetBackgroundRGB(0);
    Central().isColorSetFixed(VC::eShadingDifference);
    Central().SetGuiName(QStringLiteral("name"));
    Expect(!Central().GetValuePath4ID(static_cast<VC::ID>(3)), "no value");
}

class Pane : public QWidget, public Control
{
public:
    Pane() : Control(this, "pane") { Use(); }

    ~Pane() override { Use(); }
};

//! A context menu with one item.
ResortPopupMenu * MakeMenu(QWidget * parent)
{
    auto * const menu = new ResortPopupMenu(parent, "menu");
    menu->insertItem(QStringLiteral("item"), 1, -1);
    return menu;
}

//! Is there before main() and after it.
class Companion
{
public:
    Companion()
    {
        if (IsLife("used before main"))
            Use();
        m_set.Resize(0);
    }

    Companion(Companion const &) = delete;
    Companion & operator=(Companion const &) = delete;

    ~Companion()
    {
        if (IsLife("used before main"))
            Use();
        if (IsLife("empty set at the end"))
            Expect(m_set.GetColor(0.0, 0.0, 1.0, false) == QColor(Qt::black), "black without a central object");
    }

private:
    ShadingColorSet m_set;
};

Companion const companion;

class Program
{
public:
    Program() : m_application(m_argc, m_argv) { Central().SetApplication(&m_application); }

    int Run(int milliseconds = 0)
    {
        QTimer::singleShot(milliseconds, &m_application, &QCoreApplication::quit);
        return QApplication::exec();
    }

private:
    int m_argc = 1;
    char m_name[5] = "life";
    char * m_argv[2] = { m_name, nullptr };
    QApplication m_application;
};

void InsertOperation()
{
    auto * const result = new Value<bool>(QStringLiteral("result"));
    Expect(Tree::Instance()->Insert(QStringLiteral("/life"), new ValueNumeric<int>(QStringLiteral("source"))),
           "a source");
    Expect(Tree::Instance()->Insert(QStringLiteral("/life"), result), "a result");
    GuiCentralAccess::BoolOperations(Central())[QStringLiteral("/life/result")] = std::make_unique<BoolOperation>(
        QStringLiteral("/life/result"), QStringLiteral("/life/source"), 0, BoolOperation::eEqual);
    Expect(result->GetValue(), "the operation works");
    result->AddObserver(&Central());
}

//! One path of each way to unique values; the numbers count on.
QStringList MakeUniqueValues()
{
    GuiCentral & central = Central();
    return { central.CreateUniqueValueBoolean(true),
             central.CreateUniqueValueFloat(1.0, 0.0, 2.0, 0.0),
             central.CreateUniqueAgeingStepsSelection(),
             central.CreateBoolOperation(QStringLiteral("/life/source"), 0, BoolOperation::eEqual),
             central.CreateNumericOperation(QStringLiteral("/life/source"), 1.0, NumericOperation::eAdd),
             central.CreateNumericCoupler(QStringLiteral("/life/source"), 1.0, NumericCoupler::eOffset),
             central.CreateSelectionCoupledToBool(QStringLiteral("/life/result"), false) };
}

int NeverTold()
{
    Program const program;
    Use();
    Mark(1);
    return 0;
}

int ToldTwice()
{
    Program const program;
    Mark(1);
    Central().aboutToTerminate();
    Mark(2);
    Central().aboutToTerminate();
    Use();
    return 0;
}

int ToldByTheApplication()
{
    Program program;
    Mark(1);
    int const code = program.Run();
    Mark(2); // too late
    return code;
}

int ExitInASlot()
{
    Program program;
    Pane pane;
    pane.show();
    Mark(1);
    QTimer::singleShot(0, &pane, [] { std::exit(3); });
    program.Run(60000);
    return 4;
}

int NoApplication()
{
    Use();
    Mark(1);
    return 0;
}

int UsedBeforeTheApplication()
{
    Use();
    Mark(1);
    int code = 0;
    {
        Program program;
        Use();
        code = program.Run();
    }
    Use();
    return code;
}

int UsedAfterTheApplication()
{
    {
        int argc = 0;
        QApplication application(argc, nullptr);
        QTimer::singleShot(0, &application, &QCoreApplication::quit);
        QApplication::exec();
    }
    Use();
    Mark(1);
    return 0;
}

int TwoApplications()
{
    int heard = 0;
    int index = -1;
    for (int turn = 1; turn <= 2; ++turn) {
        Program program;
        Pane pane;
        QObject::connect(&Central(), &GuiCentral::signalHotKey, &pane, [&heard](int) { ++heard; });
        index = Central().AddHotKey(Qt::Key_F5, 0u, &pane, QStringLiteral("key"), QStringLiteral("group"), true, false);
        Expect(index >= 0, "a hot key");
        QKeyEvent press(QEvent::KeyPress, Qt::Key_F5, Qt::NoModifier);
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_F5, Qt::NoModifier);
        QCoreApplication::sendEvent(&pane, &press);
        QCoreApplication::sendEvent(&pane, &release);
        Expect(heard == turn, "the key is heard once in each");
        pane.show();
        QWidget only;
        Central().BlockCloseApplication(&only);
        Expect(!pane.close() && pane.isVisible(), "the pane stays open");
        Central().BlockCloseApplication(nullptr);
        Expect(pane.close(), "the pane closes");
        if (turn == 1)
            Mark(1);
        Expect(program.Run() == 0, "the application ends");
        Mark(2);
    }
    return 0;
}

//! Widgets outlive the application, hidden: one that is shown then is beyond Qt 5.
int StaticWidget()
{
    Program program;
    static Pane pane;
    pane.show();
    Mark(1);
    int const code = program.Run();
    pane.hide();
    return code;
}

int StaticAxis()
{
    Program program;
    static ColorYRulerLeft axis;
    axis.resize(60, 300);
    axis.show();
    axis.grab();
    Mark(1);
    int const code = program.Run();
    axis.hide();
    return code;
}

//! Ends between the tree, which is younger, and the central object.
class BetweenThem
{
public:
    BetweenThem() = default;
    BetweenThem(BetweenThem const &) = delete;
    BetweenThem & operator=(BetweenThem const &) = delete;

    ~BetweenThem()
    {
        Expect(!Tree::Instance(), "the tree has gone");
        Expect(!Central().GetValuePath4ID(static_cast<VC::ID>(3)), "no value without a tree");
        Expect(GuiCentralAccess::BoolOperations(Central()).empty(), "the operation went with its result");
        Expect(MakeUniqueValues().last() == QLatin1String("/GuiCentral/unique/selection/UNIQUE_SELECTION_3"),
               "paths without a tree");
        Central().slotRestoreDefaultPersistant();
        Mark(1);
    }
};

int TreeEndsFirst()
{
    Central();
    static BetweenThem const between;
    InsertOperation();
    MakeUniqueValues();
    return 0;
}

int TreeEndsLast()
{
    Tree::Instance();
    Mark(1);
    InsertOperation();
    MakeUniqueValues();
    return 0;
}

int ToldWithOperations()
{
    Program program;
    Mark(1);
    InsertOperation();
    MakeUniqueValues();
    int const code = program.Run();
    Expect(GuiCentralAccess::BoolOperations(Central()).empty(), "no operation is left");
    Expect(Tree::Instance()->GetPaths(QStringLiteral("/GuiCentral/unique")).isEmpty(), "no unique value is left");
    return code;
}

int StoreDiesFirst()
{
    MemoryCfg store;
    Persistant::SetStore(&store);
    Program const program;
    Mark(1);
    return 0;
}

int MenuOpen()
{
    Program program;
    Pane pane;
    pane.SetContextMenu(MakeMenu(&pane), false);
    pane.show();
    pane.GetContextMenu()->popup(QPoint(10, 10));
    Expect(pane.GetContextMenu()->isVisible(), "the menu is open");
    Mark(1);
    return program.Run();
}

int EmptySetAtTheEnd()
{
    Use();
    Mark(1);
    return 0;
}

int EmptySetFirst()
{
    int heard = 0;
    QObject context;
    QObject::connect(&GuiBase::Instance(), &GuiBase::signalColorsChanged, &context, [&heard] { ++heard; });
    ShadingColorSet set;
    set.Resize(0);
    Expect(set.GetColor(0.0, 0.0, 1.0, false) == QColor(Qt::black), "black without colours");
    Expect(heard > 2, "a central object is made, and restores the colours");
    Use();
    Mark(1);
    return 0;
}

int UsedBeforeMain()
{
    Program program;
    Mark(1);
    return program.Run();
}

struct Life
{
    char const * name;
    int (*lead)();
};

constexpr Life Lives[] = {
    { "never told", NeverTold },
    { "told twice", ToldTwice },
    { "told by the application", ToldByTheApplication },
    { "exit in a slot", ExitInASlot },
    { "no application", NoApplication },
    { "used before the application", UsedBeforeTheApplication },
    { "used after the application", UsedAfterTheApplication },
    { "used before main", UsedBeforeMain },
    { "two applications", TwoApplications },
    { "static widget", StaticWidget },
    { "static axis", StaticAxis },
    { "tree ends first", TreeEndsFirst },
    { "tree ends last", TreeEndsLast },
    { "told with operations", ToldWithOperations },
    { "store dies first", StoreDiesFirst },
    { "menu open", MenuOpen },
    { "empty set at the end", EmptySetAtTheEnd },
    { "empty set first", EmptySetFirst },
};

} // namespace

int main()
{
    for (Life const & life : Lives)
        if (IsLife(life.name))
            return life.lead();
    std::fputs("no such life\n", stderr);
    return 98;
}
