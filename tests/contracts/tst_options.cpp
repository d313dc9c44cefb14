// SPDX-License-Identifier: MIT
#include "options.h"

#include "colorset.h"
#include "colorsetctrl.h"
#include "ihasmultiplepropertypages.h"
#include "ihaspropertypage.h"
#include "optionsdialog.h"

#include "testmain.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QStackedWidget>
#include <QTreeWidget>

#include <functional>

namespace {

using Bundle = options::adapters::propertyPage::Configurable;
using options::IConfigurable;
using options::Intent;
using options::OptionsDialog;

// An application's own options: one number, kept by its owner.

struct Speed : options::IOptions
{
    int linesPerSecond = 0;
};

class SpeedValidator : public options::IValidator
{
public:
    bool validate(options::IOptions const & options, QString * reason) const override
    {
        auto const * const speed = dynamic_cast<Speed const *>(&options);
        bool const good = speed && speed->linesPerSecond <= 100;
        if (!good && reason)
            *reason = QStringLiteral("at most 100 lines");
        return good;
    }
};

class SpeedPage : public IConfigurable::OptionEditorPage
{
public:
    QStringList path() const override { return { QStringLiteral("Waterfall"), QStringLiteral("Speed") }; }

    QWidget * createWidget(QWidget * parent) override
    {
        m_box = new QSpinBox(parent);
        m_box->setRange(0, 1000);
        m_box->setObjectName(QStringLiteral("speed"));
        return m_box;
    }

    void showOptions(options::IOptions const & options) override
    {
        m_box->setValue(dynamic_cast<Speed const &>(options).linesPerSecond);
    }

    void takeOptions(options::IOptions & options) override
    {
        dynamic_cast<Speed &>(options).linesPerSecond = m_box->value();
    }

private:
    QPointer<QSpinBox> m_box;
};

class SpeedSettings : public options::Configurable<Speed>
{
public:
    using options::Configurable<Speed>::Configurable;

    std::unique_ptr<options::IValidator> createValidator() const override { return std::make_unique<SpeedValidator>(); }

    Pages createOptionEditorPages() override
    {
        Pages pages;
        pages.push_back(std::make_unique<SpeedPage>());
        return pages;
    }

    int m_inForce = 25;
    int m_applied = 0;
    QWidget * m_parent = nullptr;

protected:
    void fetch(Speed & options, Intent::Type intent) const override
    {
        options.linesPerSecond = intent == Intent::eDefault ? 50 : m_inForce;
    }

    void putInForce(Speed const & options, QWidget * parent) override
    {
        m_inForce = options.linesPerSecond;
        m_parent = parent;
        ++m_applied;
    }
};

// Providers of settings pages.

class Provider : public QObject, public IHasPropertyPage
{
    Q_OBJECT
public:
    explicit Provider(QString const & path) : m_path(path) {}

    QWidget * GetPropertyPage(QWidget * parent, char const * name) override
    {
        if (!m_givesPage)
            return nullptr;
        auto * const page = new QLineEdit(parent);
        page->setObjectName(QString::fromLatin1(name));
        m_pages.append(page);
        return page;
    }

    QString const & GetPropertyPagePath() override { return m_path; }

    bool m_givesPage = true;
    QVector<QPointer<QWidget>> m_pages;
    QStringList m_told;
    QString m_path;
    std::function<void()> m_then; // on Cancel and Restore Defaults

public Q_SLOTS:

    void slotAcceptPropertyChanges() override { m_told.append(QStringLiteral("accept")); }

    void slotCancelPropertyChanges() override { Hear(QStringLiteral("cancel")); }

    void slotDefaultPropertyChanges() override { Hear(QStringLiteral("default")); }

private:
    void Hear(QString const & what)
    {
        m_told.append(what);
        if (m_then)
            m_then();
    }
};

//! Accepts nothing, and says no reason.
class StubbornSettings : public SpeedSettings
{
public:
    using SpeedSettings::SpeedSettings;

    std::unique_ptr<options::IValidator> createValidator() const override { return nullptr; }

    bool applyOptions(options::IOptions const &, QWidget * parent) override
    {
        if (m_endsTheDialog)
            delete parent;
        return false;
    }

    bool m_endsTheDialog = false;
};

class MultiProvider : public QObject, public IHasMultiplePropertyPages
{
    Q_OBJECT
public:
    std::vector<short> GetPropertyPageIds() override { return { 3, -7 }; }

    QString GetPropertyPagePath(short id) override { return QStringLiteral("Axis/Page %1").arg(id); }

    QWidget * GetPropertyPage(short id, QWidget * parent, char const * name) override
    {
        auto * const page = new QLabel(QString::number(id), parent);
        page->setObjectName(QString::fromLatin1(name));
        return page;
    }

    QStringList m_told;
public Q_SLOTS:

    void slotAcceptPropertyChanges() { m_told.append(QStringLiteral("accept")); }

    void slotCancelPropertyChanges() { m_told.append(QStringLiteral("cancel")); }
};

//! No QObject: it must outlive its bundle.
class PlainProvider : public IHasPropertyPage
{
public:
    QWidget * GetPropertyPage(QWidget * parent, char const *) override { return new QLabel(parent); }

    void slotAcceptPropertyChanges() override { ++m_accepted; }

    QString const & GetPropertyPagePath() override { return m_path; }

    QString m_path = QStringLiteral("Plain");
    int m_accepted = 0;
};

QPushButton * Button(QDialog const & dialog, QDialogButtonBox::StandardButton which)
{
    return dialog.findChild<QDialogButtonBox *>()->button(which);
}

void Click(QDialog const & dialog, QDialogButtonBox::StandardButton which)
{
    QTest::mouseClick(Button(dialog, which), Qt::LeftButton);
}

//! The tree as lines, two blanks a level.
QStringList Lines(QTreeWidgetItem const * item, QString const & indent = QString())
{
    QStringList lines;
    for (int i = 0; i < item->childCount(); ++i) {
        lines.append(indent + item->child(i)->text(0));
        lines += Lines(item->child(i), indent + QStringLiteral("  "));
    }
    return lines;
}

QStringList Tree(QDialog const & dialog)
{
    return Lines(dialog.findChild<QTreeWidget *>(QStringLiteral("OptionPages"))->invisibleRootItem());
}

QWidget * Shown(QDialog const & dialog)
{
    return dialog.findChild<QStackedWidget *>(QStringLiteral("OptionStack"))->currentWidget();
}

} // namespace

class tst_Options : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init() { ColorSet::Instance().Load(0); }

    void names();
    void optionsHaveAVirtualDestructor();
    void intents();
    void configurableOfOneType();
    void configurableRefusesOthers();
    void bundle();
    void bundlePages_data();
    void bundlePages();
    void attributes();
    void emptyOptionsOfABundle();
    void multiplePages();
    void providerWithoutPage();
    void onlyShownPagesAreTold();
    void allShownProvidersAreTold();
    void deadProvider();
    void plainProvider();
    void bundleEndsBeforeItsPages();
    void dialogShowsPages();
    void choosingAPage();
    void twoPagesAtOnePlace();
    void applyPutsInForce();
    void okCloses();
    void refusedInput();
    void refusedWithoutAReason();
    void dialogEndsInApply();
    void dialogEndsInTheProvider_data();
    void dialogEndsInTheProvider();
    void providerEndsItsPage();
    void cancelDropsInput_data();
    void cancelDropsInput();
    void defaults();
    void defaultsOfProviders();
    void deadConfigurable();
    void pageWithoutPath();
    void colorsEndToEnd();
};

void tst_Options::names()
{
    QObject parent;
    SpeedSettings const settings("speed", &parent);
    QCOMPARE(settings.name(), QStringLiteral("speed"));
    QCOMPARE(settings.displayName(), QStringLiteral("speed"));
    QCOMPARE(settings.parent(), &parent);
    SpeedSettings const nameless;
    QCOMPARE(nameless.name(), QString());
}

void tst_Options::optionsHaveAVirtualDestructor()
{
    struct Counted : options::IOptions
    {
        explicit Counted(int * ends) : m_ends(ends) {}

        ~Counted() override { ++*m_ends; }

        int * m_ends;
    };

    int ends = 0;
    std::unique_ptr<options::IOptions> stored = std::make_unique<Counted>(&ends);
    stored.reset();
    QCOMPARE(ends, 1);
}

void tst_Options::intents()
{
    SpeedSettings const settings;
    Speed speed;
    QVERIFY(settings.getOptions(speed, Intent::eCurrent));
    QCOMPARE(speed.linesPerSecond, 25);
    QVERIFY(settings.getOptions(speed, Intent::eDefault));
    QCOMPARE(speed.linesPerSecond, 50);
}

void tst_Options::configurableOfOneType()
{
    SpeedSettings settings;
    std::unique_ptr<options::IOptions> const made = settings.createOptions();
    auto * const speed = dynamic_cast<Speed *>(made.get());
    QVERIFY(speed);
    speed->linesPerSecond = 77;
    QWidget parent;
    QVERIFY(settings.applyOptions(*made, &parent));
    QCOMPARE(settings.m_inForce, 77);
    QCOMPARE(settings.m_parent, &parent);
    QVERIFY(settings.createValidator()->validate(*made, nullptr));
}

void tst_Options::configurableRefusesOthers()
{
    struct Other : options::IOptions
    {};

    SpeedSettings settings;
    Other other;
    QVERIFY(!settings.getOptions(other, Intent::eCurrent));
    QVERIFY(!settings.applyOptions(other, nullptr));
    QCOMPARE(settings.m_applied, 0);
    QString reason;
    QVERIFY(!settings.createValidator()->validate(other, &reason));
    QCOMPARE(reason, QStringLiteral("at most 100 lines"));
}

void tst_Options::bundle()
{
    QObject parent;
    Bundle bundle("colors", QStringLiteral("Display colors"), &parent);
    QCOMPARE(bundle.name(), QStringLiteral("colors"));
    QCOMPARE(bundle.displayName(), QStringLiteral("Display colors"));
    QCOMPARE(bundle.parent(), &parent);
    QVERIFY(bundle.createOptionEditorPages().empty());
    QVERIFY(!bundle.createValidator());
    IConfigurable * const face = &bundle;
    QCOMPARE(dynamic_cast<QObject *>(face), &bundle);
}

void tst_Options::bundlePages_data()
{
    QTest::addColumn<QStringList>("headings");
    QTest::addColumn<QString>("own");
    QTest::addColumn<bool>("ownPath");
    QTest::addColumn<QStringList>("path");
    using Strings = QStringList;
    QTest::newRow("own path under headings")
        << Strings{ "Display" } << QStringLiteral("Colors") << true << Strings{ "Display", "Colors" };
    QTest::newRow("own path of several parts")
        << Strings{ "A", "B" } << QStringLiteral("C/D") << true << Strings{ "A", "B", "C", "D" };
    QTest::newRow("empty parts are left out") << Strings{} << QStringLiteral("/C//D/") << true << Strings{ "C", "D" };
    QTest::newRow("without the own path") << Strings{ "A", "B" } << QStringLiteral("C") << false << Strings{ "A", "B" };
    QTest::newRow("nothing at all") << Strings{} << QString() << true << Strings{};
}

void tst_Options::bundlePages()
{
    QFETCH(QStringList, headings);
    QFETCH(QString, own);
    QFETCH(bool, ownPath);
    QFETCH(QStringList, path);
    Provider provider(own);
    Bundle bundle("b", QStringLiteral("B"), nullptr);
    bundle.add(headings, provider, {}, ownPath);
    IConfigurable::Pages const pages = bundle.createOptionEditorPages();
    QCOMPARE(pages.size(), std::size_t(1));
    QCOMPARE(pages.at(0)->path(), path);
    QWidget parent;
    QWidget const * const widget = pages.at(0)->createWidget(&parent);
    QVERIFY(widget);
    QCOMPARE(widget->parentWidget(), &parent);
    QCOMPARE(widget->objectName(), path.join(QLatin1Char('/')));
}

void tst_Options::attributes()
{
    Provider provider(QStringLiteral("P"));
    Bundle bundle("b", QStringLiteral("B"), nullptr);
    bundle.add({}, provider,
               { { QStringLiteral("toolTip"), QStringLiteral("hint") }, { QStringLiteral("enabled"), false } }, true);
    QWidget parent;
    QWidget const * const widget = bundle.createOptionEditorPages().at(0)->createWidget(&parent);
    QCOMPARE(widget->toolTip(), QStringLiteral("hint"));
    QVERIFY(!widget->isEnabled());
}

void tst_Options::emptyOptionsOfABundle()
{
    Bundle bundle("b", QStringLiteral("B"), nullptr);
    std::unique_ptr<options::IOptions> const made = bundle.createOptions();
    QVERIFY(dynamic_cast<options::adapters::propertyPage::Options *>(made.get()));
    QVERIFY(bundle.getOptions(*made, Intent::eCurrent));
    QVERIFY(bundle.applyOptions(*made, nullptr));
    Speed foreign;
    QVERIFY(!bundle.applyOptions(foreign, nullptr));
}

void tst_Options::multiplePages()
{
    MultiProvider provider;
    Bundle bundle("b", QStringLiteral("B"), nullptr);
    bundle.add({ QStringLiteral("Display") }, provider, { { QStringLiteral("toolTip"), QStringLiteral("all") } }, true);
    IConfigurable::Pages const pages = bundle.createOptionEditorPages();
    QCOMPARE(pages.size(), std::size_t(2));
    QCOMPARE(pages.at(0)->path(), (QStringList{ "Display", "Axis", "Page 3" }));
    QCOMPARE(pages.at(1)->path(), (QStringList{ "Display", "Axis", "Page -7" }));
    QWidget parent;
    QWidget * const widget = pages.at(1)->createWidget(&parent);
    QCOMPARE(qobject_cast<QLabel *>(widget)->text(), QStringLiteral("-7"));
    QCOMPARE(widget->toolTip(), QStringLiteral("all"));
    bundle.applyOptions(*bundle.createOptions(), nullptr);
    pages.at(0)->cancel();
    pages.at(0)->restoreDefaults(); // it has no such slot
    QCOMPARE(provider.m_told, (QStringList{ "accept", "cancel" }));
}

void tst_Options::providerWithoutPage()
{
    Provider provider(QStringLiteral("P"));
    provider.m_givesPage = false;
    Bundle bundle("b", QStringLiteral("B"), nullptr);
    bundle.add({}, provider);
    QVERIFY(!bundle.createOptionEditorPages().at(0)->createWidget(nullptr));
    OptionsDialog dialog;
    dialog.add(bundle);
    QVERIFY(Tree(dialog).isEmpty());
    Click(dialog, QDialogButtonBox::Apply);
    QVERIFY(provider.m_told.isEmpty());
}

void tst_Options::onlyShownPagesAreTold()
{
    Provider provider(QStringLiteral("P"));
    Bundle bundle("b", QStringLiteral("B"), nullptr);
    bundle.add({}, provider);
    std::unique_ptr<options::IOptions> const made = bundle.createOptions();
    bundle.applyOptions(*made, nullptr);
    QVERIFY(provider.m_told.isEmpty());
    auto const pages = bundle.createOptionEditorPages();
    {
        QWidget parent;
        pages.at(0)->createWidget(&parent);
        pages.at(0)->createWidget(&parent);
        bundle.applyOptions(*made, nullptr);
        QCOMPARE(provider.m_told, QStringList{ "accept" }); // once, however many pages
    }
    bundle.applyOptions(*made, nullptr);
    pages.at(0)->cancel();
    QCOMPARE(provider.m_told.size(), 1);
}

void tst_Options::allShownProvidersAreTold()
{
    Provider first(QStringLiteral("A"));
    Provider second(QStringLiteral("B"));
    Bundle bundle("b", QStringLiteral("B"), nullptr);
    bundle.add({}, first);
    bundle.add({}, second);
    QWidget parent;
    for (auto const & page : bundle.createOptionEditorPages())
        page->createWidget(&parent);
    bundle.applyOptions(*bundle.createOptions(), nullptr);
    QCOMPARE(first.m_told, QStringList{ "accept" });
    QCOMPARE(second.m_told, QStringList{ "accept" });
}

void tst_Options::deadProvider()
{
    auto provider = std::make_unique<Provider>(QStringLiteral("P"));
    auto several = std::make_unique<MultiProvider>();
    Bundle bundle("b", QStringLiteral("B"), nullptr);
    bundle.add({ QStringLiteral("A") }, *provider);
    bundle.add({ QStringLiteral("A") }, *several);
    OptionsDialog dialog;
    dialog.add(bundle);
    auto const pages = bundle.createOptionEditorPages();
    QCOMPARE(pages.size(), std::size_t(3));
    provider.reset();
    several.reset();
    QVERIFY(bundle.createOptionEditorPages().empty());
    QCOMPARE(pages.at(0)->path(), QStringList{ "A" });
    QVERIFY(!pages.at(0)->createWidget(nullptr));
    QVERIFY(!pages.at(1)->createWidget(nullptr));
    pages.at(0)->cancel();
    Click(dialog, QDialogButtonBox::Apply);
    Click(dialog, QDialogButtonBox::RestoreDefaults);
    Click(dialog, QDialogButtonBox::Cancel);
}

void tst_Options::plainProvider()
{
    PlainProvider provider;
    Bundle bundle("b", QStringLiteral("B"), nullptr);
    bundle.add({}, provider);
    OptionsDialog dialog;
    dialog.add(bundle);
    QCOMPARE(Tree(dialog), QStringList{ "Plain" });
    Click(dialog, QDialogButtonBox::RestoreDefaults);
    Click(dialog, QDialogButtonBox::Apply);
    QCOMPARE(provider.m_accepted, 1);
}

void tst_Options::bundleEndsBeforeItsPages()
{
    Provider provider(QStringLiteral("P"));
    IConfigurable::Pages pages;
    {
        Bundle bundle("b", QStringLiteral("B"), nullptr);
        bundle.add({}, provider);
        pages = bundle.createOptionEditorPages();
    }
    QWidget parent;
    QVERIFY(pages.at(0)->createWidget(&parent));
    pages.at(0)->cancel();
    QCOMPARE(provider.m_told, QStringList{ "cancel" });
}

void tst_Options::dialogShowsPages()
{
    Provider first(QStringLiteral("Colors"));
    Provider second(QStringLiteral("Sets"));
    Bundle bundle("b", QStringLiteral("B"), nullptr);
    bundle.add({ QStringLiteral("Display") }, first);
    bundle.add({ QStringLiteral("Display") }, second);
    SpeedSettings settings("speed");
    OptionsDialog dialog;
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Options"));
    dialog.add(bundle);
    dialog.add(settings);
    dialog.show();
    QCOMPARE(Tree(dialog), (QStringList{ "Display", "  Colors", "  Sets", "Waterfall", "  Speed" }));
    QCOMPARE(Shown(dialog), first.m_pages.at(0).data()); // the first page is shown at once
    QVERIFY(Shown(dialog)->isVisible());
    QCOMPARE(dialog.findChild<QSpinBox *>(QStringLiteral("speed"))->value(), 25);
}

void tst_Options::choosingAPage()
{
    Provider first(QStringLiteral("Colors"));
    Provider second(QStringLiteral("Sets"));
    Bundle bundle("b", QStringLiteral("B"), nullptr);
    bundle.add({ QStringLiteral("Display") }, first);
    bundle.add({ QStringLiteral("Display") }, second);
    OptionsDialog dialog;
    dialog.add(bundle);
    dialog.show();
    auto * const tree = dialog.findChild<QTreeWidget *>(QStringLiteral("OptionPages"));
    QTreeWidgetItem const * const sets = tree->topLevelItem(0)->child(1);
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, tree->visualItemRect(sets).center());
    QCOMPARE(Shown(dialog), second.m_pages.at(0).data());
    QTreeWidgetItem const * const heading = tree->topLevelItem(0);
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, tree->visualItemRect(heading).center());
    QCOMPARE(Shown(dialog), second.m_pages.at(0).data()); // a heading has no page
}

void tst_Options::twoPagesAtOnePlace()
{
    Provider first(QStringLiteral("Same"));
    Provider second(QStringLiteral("Same"));
    Provider below(QStringLiteral("Same/Below"));
    Bundle bundle("b", QStringLiteral("B"), nullptr);
    bundle.add({}, first);
    bundle.add({}, second);
    bundle.add({}, below);
    OptionsDialog dialog;
    dialog.add(bundle);
    QCOMPARE(Tree(dialog), (QStringList{ "Same", "  Below", "Same" }));
}

void tst_Options::applyPutsInForce()
{
    Provider provider(QStringLiteral("P"));
    Bundle bundle("b", QStringLiteral("B"), nullptr);
    bundle.add({}, provider);
    SpeedSettings settings("speed");
    OptionsDialog dialog;
    dialog.add(bundle);
    dialog.add(settings);
    dialog.show();
    dialog.findChild<QSpinBox *>(QStringLiteral("speed"))->setValue(60);
    Click(dialog, QDialogButtonBox::Apply);
    QVERIFY(dialog.isVisible());
    QCOMPARE(settings.m_inForce, 60);
    QCOMPARE(settings.m_parent, &dialog);
    QCOMPARE(provider.m_told, QStringList{ "accept" });
}

void tst_Options::okCloses()
{
    SpeedSettings settings("speed");
    OptionsDialog dialog;
    dialog.add(settings);
    dialog.show();
    dialog.findChild<QSpinBox *>(QStringLiteral("speed"))->setValue(61);
    Click(dialog, QDialogButtonBox::Ok);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), static_cast<int>(QDialog::Accepted));
    QCOMPARE(settings.m_inForce, 61);
    QCOMPARE(settings.m_applied, 1);
}

void tst_Options::refusedInput()
{
    Provider later(QStringLiteral("P"));
    Bundle bundle("b", QStringLiteral("B"), nullptr);
    bundle.add({}, later);
    SpeedSettings settings("speed");
    OptionsDialog dialog;
    dialog.add(settings);
    dialog.add(bundle);
    dialog.show();
    auto * const tree = dialog.findChild<QTreeWidget *>(QStringLiteral("OptionPages"));
    tree->setCurrentItem(tree->topLevelItem(1));
    auto * const box = dialog.findChild<QSpinBox *>(QStringLiteral("speed"));
    auto const * const refusal = dialog.findChild<QLabel *>(QStringLiteral("OptionRefusal"));
    QVERIFY(!refusal->isVisible());
    box->setValue(500);
    Click(dialog, QDialogButtonBox::Ok);
    QVERIFY(dialog.isVisible());
    QCOMPARE(settings.m_inForce, 25);
    QVERIFY(refusal->isVisible());
    QCOMPARE(refusal->text(), QStringLiteral("speed: at most 100 lines"));
    QCOMPARE(Shown(dialog), box); // its page comes up
    QVERIFY(later.m_told.isEmpty());
    box->setValue(100);
    Click(dialog, QDialogButtonBox::Ok);
    QVERIFY(!dialog.isVisible());
    QVERIFY(refusal->isHidden());
    QCOMPARE(settings.m_inForce, 100);
    QCOMPARE(later.m_told, QStringList{ "accept" });
}

void tst_Options::refusedWithoutAReason()
{
    StubbornSettings settings("speed");
    OptionsDialog dialog;
    dialog.add(settings);
    dialog.show();
    Click(dialog, QDialogButtonBox::Ok);
    QVERIFY(dialog.isVisible());
    auto const * const refusal = dialog.findChild<QLabel *>(QStringLiteral("OptionRefusal"));
    QVERIFY(refusal->isVisible());
    QCOMPARE(refusal->text(), QStringLiteral("speed: The options were not accepted."));
}

void tst_Options::dialogEndsInApply()
{
    StubbornSettings settings("speed");
    settings.m_endsTheDialog = true;
    QPointer<OptionsDialog> const dialog(new OptionsDialog);
    dialog->add(settings);
    QVERIFY(!dialog->slotApply());
    QVERIFY(!dialog);
}

void tst_Options::dialogEndsInTheProvider_data()
{
    QTest::addColumn<QString>("told");
    QTest::newRow("on Cancel") << QStringLiteral("cancel");
    QTest::newRow("on Restore Defaults") << QStringLiteral("default");
}

void tst_Options::dialogEndsInTheProvider()
{
    QFETCH(QString, told);
    Provider first(QStringLiteral("A"));
    Provider second(QStringLiteral("B"));
    Provider third(QStringLiteral("C"));
    Bundle bundle("b", QStringLiteral("B"), nullptr);
    bundle.add({}, first);
    bundle.add({}, second);
    Bundle later("l", QStringLiteral("L"), nullptr);
    later.add({}, third);
    QPointer<OptionsDialog> const dialog(new OptionsDialog);
    dialog->add(bundle);
    dialog->add(later);
    first.m_then = [&dialog] { delete dialog.data(); };
    if (told == QLatin1String("cancel"))
        dialog->reject();
    else
        dialog->slotRestoreDefaults();
    QVERIFY(!dialog);
    QCOMPARE(first.m_told, QStringList{ told });
    QVERIFY(second.m_told.isEmpty());
    QVERIFY(third.m_told.isEmpty());
}

void tst_Options::providerEndsItsPage()
{
    Provider first(QStringLiteral("A"));
    Provider second(QStringLiteral("B"));
    Provider third(QStringLiteral("C"));
    Bundle bundle("b", QStringLiteral("B"), nullptr);
    bundle.add({}, first);
    bundle.add({}, second);
    bundle.add({}, third);
    OptionsDialog dialog;
    dialog.add(bundle);
    auto * const tree = dialog.findChild<QTreeWidget *>(QStringLiteral("OptionPages"));
    delete first.m_pages.at(0);
    tree->setCurrentItem(tree->topLevelItem(2));
    QCOMPARE(Shown(dialog), third.m_pages.at(0).data());
    tree->setCurrentItem(tree->topLevelItem(1));
    QCOMPARE(Shown(dialog), second.m_pages.at(0).data());
    tree->setCurrentItem(tree->topLevelItem(0)); // its page is gone
    QCOMPARE(Shown(dialog), second.m_pages.at(0).data());
}

void tst_Options::cancelDropsInput_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("the button") << 0;
    QTest::newRow("Escape") << 1;
    QTest::newRow("closing the window") << 2;
}

void tst_Options::cancelDropsInput()
{
    QFETCH(int, way);
    Provider provider(QStringLiteral("P"));
    Bundle bundle("b", QStringLiteral("B"), nullptr);
    bundle.add({}, provider);
    SpeedSettings settings("speed");
    OptionsDialog dialog;
    dialog.add(bundle);
    dialog.add(settings);
    dialog.show();
    dialog.findChild<QSpinBox *>(QStringLiteral("speed"))->setValue(60);
    if (way == 0)
        Click(dialog, QDialogButtonBox::Cancel);
    else if (way == 1)
        QTest::keyClick(&dialog, Qt::Key_Escape);
    else
        dialog.close();
    QVERIFY(!dialog.isVisible());
    QCOMPARE(settings.m_applied, 0);
    QCOMPARE(provider.m_told, QStringList{ "cancel" });
}

void tst_Options::defaults()
{
    SpeedSettings settings("speed");
    OptionsDialog dialog;
    dialog.add(settings);
    dialog.show();
    Click(dialog, QDialogButtonBox::RestoreDefaults);
    QCOMPARE(dialog.findChild<QSpinBox *>(QStringLiteral("speed"))->value(), 50);
    QCOMPARE(settings.m_inForce, 25);
    Click(dialog, QDialogButtonBox::Apply);
    QCOMPARE(settings.m_inForce, 50);
}

void tst_Options::defaultsOfProviders()
{
    Provider provider(QStringLiteral("P"));
    Bundle bundle("b", QStringLiteral("B"), nullptr);
    bundle.add({}, provider);
    OptionsDialog dialog;
    dialog.add(bundle);
    Click(dialog, QDialogButtonBox::RestoreDefaults);
    QCOMPARE(provider.m_told, QStringList{ "default" });
}

void tst_Options::deadConfigurable()
{
    auto settings = std::make_unique<SpeedSettings>("speed");
    OptionsDialog dialog;
    dialog.add(*settings);
    settings.reset();
    Click(dialog, QDialogButtonBox::RestoreDefaults);
    QVERIFY(dialog.slotApply());
    dialog.reject();
}

void tst_Options::pageWithoutPath()
{
    Provider provider(QString{});
    Bundle bundle("b", QStringLiteral("Name of the bundle"), nullptr);
    bundle.add({}, provider);
    OptionsDialog dialog;
    dialog.add(bundle);
    QCOMPARE(Tree(dialog), QStringList{ "Name of the bundle" });
}

void tst_Options::colorsEndToEnd()
{
    Bundle bundle("DefaultColors", QStringLiteral("Colors"), nullptr);
    bundle.add({ QStringLiteral("Display") }, ColorSet::Instance(), {}, true);
    OptionsDialog dialog;
    dialog.add(bundle);
    dialog.show();
    QCOMPARE(Tree(dialog), (QStringList{ "Display", "  Colors" }));
    auto * const editor = qobject_cast<ColorSetCtrl *>(Shown(dialog));
    QVERIFY(editor);
    editor->findChild<QComboBox *>(QStringLiteral("ColorSetCombo"))->setCurrentIndex(1);
    Click(dialog, QDialogButtonBox::Apply);
    QCOMPARE(ColorSet::Instance().GetCurrentSet(), 1);
    editor->findChild<QComboBox *>(QStringLiteral("ColorSetCombo"))->setCurrentIndex(2);
    Click(dialog, QDialogButtonBox::Cancel);
    QCOMPARE(ColorSet::Instance().GetCurrentSet(), 1);
    QCOMPARE(editor->GetShownSet(), 1);
}

ORIM_TEST_MAIN(tst_Options)
#include "tst_options.moc"
