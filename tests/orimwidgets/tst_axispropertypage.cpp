// SPDX-License-Identifier: MIT
#include "axispropertypage.h"

#include "axispropertypageprobe.h"
#include "azimuthaccess.h"
#include "guibase.h"
#include "testmain.h"
#include "unitprovider.h"
#include "vccomboboxclassic.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QCheckBox>
#include <QCommonStyle>
#include <QHelpEvent>
#include <QStyleOptionComboBox>
#include <QTranslator>
#include <QUndoStack>
#include <QVBoxLayout>

#include <memory>
#include <type_traits>

namespace {

static_assert(std::is_base_of_v<QWidget, AxisPropertyPage>);
static_assert(std::is_constructible_v<AxisPropertyPage, QWidget *, char const *, IUnitTextProvider *, bool>);
static_assert(std::is_constructible_v<AxisPropertyPage, QWidget *, char const *, QString const &, bool>);
static_assert(AxisPropertyPage::NoLimit == -9999.765);

QString const Folder = QStringLiteral("/GuiCentral/unique/selection");

//! Makes every text of the pages half as long again, as another language may.
class LongTexts : public QTranslator
{
public:
    LongTexts() { QCoreApplication::installTranslator(this); }

    QString translate(char const * context, char const * text, char const * /*comment*/, int /*count*/) const override
    {
        if (qstrcmp(context, "AxisPropertyPage") != 0 && qstrcmp(context, "AzimuthDisplaySelect") != 0)
            return {};
        return QString::fromUtf8(text) + QString(static_cast<int>(qstrlen(text)) / 2, QLatin1Char('x'));
    }

    bool isEmpty() const override { return false; }
};

//! Draws texts without a role, and no frames.
class PlainStyle : public QCommonStyle
{
public:
    void drawComplexControl(ComplexControl /*control*/, QStyleOptionComplex const * /*option*/, QPainter * /*painter*/,
                            QWidget const * /*widget*/) const override
    {}
};

} // namespace

class tst_AxisPropertyPage : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init() { AzimuthMode(5); }

    void names();
    void slotsByName();
    void unitText_data();
    void unitText();
    void stateAtTheStart_data();
    void stateAtTheStart();
    void layouts();
    void rows_data();
    void rows();
    void stretches_data();
    void stretches();
    void autoScaleBox();
    void azimuthSelector();
    void selectorGoesWithThePage();
    void hiddenAtTheStart();
    void azimuthModeShows();
    void tabOrder();
    void textOfAValue_data();
    void textOfAValue();
    void textByTheProvider();
    void setters_data();
    void setters();
    void showWritesOnlyTheEdit();
    void autoScale_data();
    void autoScale();
    void clickOnTheBoxModifiesNothing();
    void azimuthKey();
    void azimuthKeyWithoutSelection();
    void dirtyByTheSelector();
    void accessibleNames_data();
    void accessibleNames();
    void selectorShowsWhatIsTooWide();
    void shortensTheSelectedText_data();
    void shortensTheSelectedText();
    void textWithoutABlankIsElided();
    void textIsDrawnAsText();
    void nothingIsCut_data();
    void nothingIsCut();
    void textsAreTranslated();
};

void tst_AxisPropertyPage::names()
{
    QWidget parent;
    UnitProvider provider;
    AxisPropertyPage const page(&parent, "range", &provider, false);
    QCOMPARE(page.objectName(), QStringLiteral("range"));
    QCOMPARE(page.parentWidget(), &parent);
    AxisPropertyPage const nameless(nullptr, nullptr, QString(), false);
    QCOMPARE(nameless.objectName(), QString());
    QVERIFY(!nameless.parentWidget());
}

void tst_AxisPropertyPage::slotsByName()
{
    for (char const * const slot : { "SlotEnableAutoScale()", "SlotStartEditFinished()", "SlotStopEditFinished()" })
        QVERIFY2(AxisPropertyPage::staticMetaObject.indexOfSlot(slot) >= 0, slot);
}

void tst_AxisPropertyPage::unitText_data()
{
    QTest::addColumn<QString>("unit");
    QTest::newRow("of the provider, for a page") << QStringLiteral("[page unit]");
    QTest::newRow("the argument") << QStringLiteral("[MHz]");
    QTest::newRow("markup is a text") << QStringLiteral("<b>x</b>");
}

void tst_AxisPropertyPage::unitText()
{
    QFETCH(QString, unit);
    UnitProvider provider;
    std::unique_ptr<AxisPropertyPage> const page =
        unit == QLatin1String("[page unit]") ? std::make_unique<AxisPropertyPage>(nullptr, "page", &provider, false)
                                             : std::make_unique<AxisPropertyPage>(nullptr, "page", unit, false);
    for (int const row : { 2, 3 }) {
        QCOMPARE(TextAt(*page, row, 2), unit);
        QCOMPARE(qobject_cast<QLabel *>(Cell(*page, row, 2))->textFormat(), Qt::PlainText);
    }
    IUnitTextProvider * const nobody = nullptr;
    AxisPropertyPage const without(nullptr, "page", nobody, false);
    QCOMPARE(TextAt(without, 2, 2), QString());
}

void tst_AxisPropertyPage::stateAtTheStart_data()
{
    QTest::addColumn<bool>("box");
    QTest::newRow("without a box") << false;
    QTest::newRow("with a box") << true;
}

void tst_AxisPropertyPage::stateAtTheStart()
{
    QFETCH(bool, box);
    AxisPropertyPage const page(nullptr, "page", QString(), box);
    QVERIFY(!page.GetDirty());
    QCOMPARE(page.GetAutoScale(), !box);
    QCOMPARE(page.findChild<QCheckBox *>() != nullptr, box);
    long key = 0;
    QVERIFY(!page.GetAzimuthMode(key));
    QCOMPARE(key, 5L);
    QVERIFY(EditOf(page, eStart)->isEnabled());
    QVERIFY(EditOf(page, eStop)->isEnabled());
    QCOMPARE(page.GetStartEdit(), EditOf(page, eStart));
    QCOMPARE(page.GetStopEdit(), EditOf(page, eStop));
}

void tst_AxisPropertyPage::layouts()
{
    AxisPropertyPage const page(nullptr, "page", QString(), false);
    auto const * const outer = qobject_cast<QVBoxLayout *>(page.layout());
    QVERIFY(outer);
    QCOMPARE(outer->objectName(), QStringLiteral("mainLayout"));
    QCOMPARE(outer->count(), 1);
    QCOMPARE(outer->itemAt(0)->layout(), static_cast<QLayout const *>(Grid(page)));
}

void tst_AxisPropertyPage::rows_data()
{
    QTest::addColumn<bool>("box");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("unit");
    for (bool const box : { false, true }) {
        int const r = box ? 1 : 0;
        char const * const with = box ? "with a box" : "without a box";
        QTest::addRow("%s: azimuth", with) << box << r << "Azimuth Display Range:"
                                           << "AzimuthMode" << QString();
        QTest::addRow("%s: hint", with) << box << r + 1 << "Enter Absolute Values here:" << QString() << QString();
        QTest::addRow("%s: start", with) << box << r + 2 << "Display values from (min)"
                                         << "start"
                                         << "[u]";
        QTest::addRow("%s: stop", with) << box << r + 3 << "to (max)"
                                        << "stop"
                                        << "[u]";
    }
}

void tst_AxisPropertyPage::rows()
{
    QFETCH(bool, box);
    QFETCH(int, row);
    QFETCH(QString, label);
    QFETCH(QString, control);
    QFETCH(QString, unit);
    AxisPropertyPage const page(nullptr, "page", QStringLiteral("[u]"), box);
    QCOMPARE(TextAt(page, row, 0), label);
    QWidget const * const widget = Cell(page, row, 1);
    QCOMPARE(widget ? widget->objectName() : QString(), control);
    QCOMPARE(TextAt(page, row, 2), unit);
    QVERIFY(!Cell(page, row, 3));
    QVERIFY(!Cell(page, row, 4));
    if (!widget)
        return;
    QCOMPARE(widget->minimumWidth(), 180);
    QCOMPARE(widget->maximumWidth(), 180);
    QCOMPARE(qobject_cast<QLabel *>(Cell(page, row, 0))->buddy(), widget);
}

void tst_AxisPropertyPage::stretches_data() { stateAtTheStart_data(); }

void tst_AxisPropertyPage::stretches()
{
    QFETCH(bool, box);
    AxisPropertyPage const page(nullptr, "page", QString(), box);
    for (int column = 0; column < 4; ++column)
        QCOMPARE(Grid(page)->columnStretch(column), 0);
    QCOMPARE(Grid(page)->columnStretch(4), 2);
    int const last = box ? 5 : 4;
    for (int row = 0; row < last; ++row)
        QCOMPARE(Grid(page)->rowStretch(row), 0);
    QCOMPARE(Grid(page)->rowStretch(last), 1);
}

void tst_AxisPropertyPage::autoScaleBox()
{
    AxisPropertyPage const page(nullptr, "page", QString(), true);
    auto const * const box = qobject_cast<QCheckBox *>(Cell(page, 0, 0));
    QVERIFY(box);
    QCOMPARE(box->objectName(), QStringLiteral("autoScale"));
    QCOMPARE(box->text(), QStringLiteral("Automatic Scaling"));
    QVERIFY(!box->isChecked());
    QVERIFY(!box->isHidden());
}

void tst_AxisPropertyPage::azimuthSelector()
{
    AzimuthMode(9);
    AxisPropertyPage const page(nullptr, "page", QString(), false);
    auto const * const selector = qobject_cast<VCComboBoxClassic *>(Cell(page, 0, 1));
    QVERIFY(selector);
    ValueSelection const * const selection = selector->GetValueSelection();
    QVERIFY(selection);
    QVERIFY(selection->GetPathName().startsWith(Folder));
    QCOMPARE(selection->GetCurrentKey(), 9L);
    QCOMPARE(selector->count(), 4);
    QCOMPARE(selector->itemText(3), QString::fromLatin1("Relative to Vehicle Axis -180\xB0..180\xB0"));
}

void tst_AxisPropertyPage::selectorGoesWithThePage()
{
    QStringList const before = Tree::Instance()->GetPaths(Folder);
    for (int i = 0; i < 3; ++i) {
        AxisPropertyPage const page(nullptr, "page", QString(), true);
        QCOMPARE(Tree::Instance()->GetPaths(Folder).size(), before.size() + 1);
    }
    QCOMPARE(Tree::Instance()->GetPaths(Folder), before);
}

void tst_AxisPropertyPage::hiddenAtTheStart()
{
    AxisPropertyPage page(nullptr, "page", QString(), true);
    page.show();
    for (auto const & [row, column] : { std::pair{ 1, 0 }, { 1, 1 }, { 2, 0 } })
        QVERIFY(!Cell(page, row, column)->isVisible());
    for (auto const & [row, column] : { std::pair{ 0, 0 }, { 3, 0 }, { 3, 1 }, { 3, 2 }, { 4, 0 }, { 4, 1 }, { 4, 2 } })
        QVERIFY(Cell(page, row, column)->isVisible());
}

void tst_AxisPropertyPage::azimuthModeShows()
{
    AxisPropertyPage page(nullptr, "page", QString(), false);
    page.show();
    for (bool const on : { true, false, true }) {
        page.SetAzimuthMode(on);
        long key = 0;
        QCOMPARE(page.GetAzimuthMode(key), on);
        for (auto const & [row, column] : { std::pair{ 0, 0 }, { 0, 1 }, { 1, 0 } })
            QCOMPARE(Cell(page, row, column)->isVisible(), on);
        QVERIFY(Cell(page, 2, 1)->isVisible());
    }
    QVERIFY(!page.GetDirty());
}

void tst_AxisPropertyPage::tabOrder()
{
    AxisPropertyPage page(nullptr, "page", QString(), true);
    QStringList order;
    for (QWidget const * widget = page.nextInFocusChain(); widget != &page; widget = widget->nextInFocusChain())
        if (widget->focusPolicy() != Qt::NoFocus && !widget->objectName().isEmpty() && widget->parentWidget() == &page)
            order.append(widget->objectName());
    QCOMPARE(order, (QStringList{ "autoScale", "AzimuthMode", "start", "stop" }));
}

void tst_AxisPropertyPage::textOfAValue_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("whole") << 7.0 << "7";
    QTest::newRow("fraction") << -0.25 << "-0.25";
    QTest::newRow("six digits") << 123456789.0 << "1.23457e+08";
    QTest::newRow("small") << 1e-7 << "1e-07";
    QTest::newRow("zero") << 0.0 << "0";
}

void tst_AxisPropertyPage::textOfAValue()
{
    QFETCH(double, value);
    QFETCH(QString, text);
    AxisPropertyPage page(nullptr, "page", QString(), false);
    for (int const end : { eStart, eStop }) {
        Set(page, end, value);
        QCOMPARE(EditOf(page, end)->text(), text);
        QCOMPARE(Get(page, end), value);
        QLineEdit edit;
        page.Show(value, &edit);
        QCOMPARE(edit.text(), text);
    }
}

void tst_AxisPropertyPage::textByTheProvider()
{
    UnitProvider provider;
    AxisPropertyPage page(nullptr, "page", &provider, false);
    for (int const end : { eStart, eStop }) {
        Set(page, end, 7.5);
        QCOMPARE(EditOf(page, end)->text(), QStringLiteral("<7.5>"));
    }
    QLineEdit edit;
    page.Show(3.0, &edit);
    QCOMPARE(edit.text(), QStringLiteral("<3>"));
    QVERIFY(!provider.m_hadFormat);
}

void tst_AxisPropertyPage::setters_data() { TwoEnds(); }

void tst_AxisPropertyPage::setters()
{
    QFETCH(int, end);
    AxisPropertyPage page(nullptr, "page", QString(), false);
    Set(page, 1 - end, 1.0);
    Set(page, end, 500.0, 10.0, 20.0); // the limits do not touch what is set
    QCOMPARE(Get(page, end), 500.0);
    QCOMPARE(EditOf(page, end)->text(), QStringLiteral("500"));
    QCOMPARE(Get(page, 1 - end), 1.0);
    QVERIFY(!page.GetDirty());
    Set(page, end, 6.0); // the limits have gone
    Type(EditOf(page, end), QStringLiteral("700"));
    QCOMPARE(Get(page, end), 700.0);
    QVERIFY(page.GetDirty());
    Set(page, end, 6.0);
    QVERIFY(page.GetDirty());
}

void tst_AxisPropertyPage::showWritesOnlyTheEdit()
{
    AxisPropertyPage page(nullptr, "page", QString(), false);
    page.SetStart(1.0, NoLimit, NoLimit, NoLimit);
    page.Show(9.0, EditOf(page, eStart));
    QCOMPARE(EditOf(page, eStart)->text(), QStringLiteral("9"));
    QCOMPARE(page.GetStart(), 1.0);
    page.Show(9.0, nullptr);
    QVERIFY(!page.GetDirty());
}

void tst_AxisPropertyPage::autoScale_data() { stateAtTheStart_data(); }

void tst_AxisPropertyPage::autoScale()
{
    QFETCH(bool, box);
    AxisPropertyPage page(nullptr, "page", QString(), box);
    for (bool const on : { true, false, true }) {
        page.SetAutoScale(on);
        QCOMPARE(page.GetAutoScale(), !box || on);
        QCOMPARE(EditOf(page, eStart)->isEnabled(), !box || !on);
        QCOMPARE(EditOf(page, eStop)->isEnabled(), !box || !on);
        QCOMPARE(page.GetDirty(), box);
    }
    page.SlotEnableAutoScale();
    QCOMPARE(EditOf(page, eStart)->isEnabled(), !box);
}

void tst_AxisPropertyPage::clickOnTheBoxModifiesNothing()
{
    AxisPropertyPage page(nullptr, "page", QString(), true);
    auto * const box = page.findChild<QCheckBox *>(QStringLiteral("autoScale"));
    box->click();
    QVERIFY(page.GetAutoScale());
    QVERIFY(!EditOf(page, eStart)->isEnabled());
    QVERIFY(!EditOf(page, eStop)->isEnabled());
    box->click();
    QVERIFY(!page.GetAutoScale());
    QVERIFY(EditOf(page, eStart)->isEnabled());
    QVERIFY(EditOf(page, eStop)->isEnabled());
    box->setChecked(true); // by no click
    QVERIFY(EditOf(page, eStart)->isEnabled());
    page.SlotEnableAutoScale();
    QVERIFY(!EditOf(page, eStart)->isEnabled());
    QVERIFY(!EditOf(page, eStop)->isEnabled());
    QVERIFY(!page.GetDirty());
}

void tst_AxisPropertyPage::azimuthKey()
{
    AxisPropertyPage page(nullptr, "page", QString(), false);
    auto const * const selector = page.findChild<VCComboBoxClassic *>(QStringLiteral("AzimuthMode"));
    for (long const key : { 9L, 6L, 10L, 5L }) {
        selector->GetValueSelection()->Select(key, nullptr);
        for (bool const on : { false, true }) {
            page.SetAzimuthMode(on);
            long answer = -1;
            QCOMPARE(page.GetAzimuthMode(answer), on);
            QCOMPARE(answer, key);
        }
    }
    QCOMPARE(AzimuthDisplaySelect::Instance().GetCurrentSelected(), 5L);
}

void tst_AxisPropertyPage::azimuthKeyWithoutSelection()
{
    AxisPropertyPage page(nullptr, "page", QString(), false);
    page.SetAzimuthMode(true);
    auto const * const selector = page.findChild<VCComboBoxClassic *>(QStringLiteral("AzimuthMode"));
    Tree::Instance()->Remove(selector->GetValueSelection()->GetPathName());
    long key = -1;
    QVERIFY(page.GetAzimuthMode(key));
    QCOMPARE(key, 0L);
    QVERIFY(!page.GetDirty());
}

void tst_AxisPropertyPage::dirtyByTheSelector()
{
    AxisPropertyPage page(nullptr, "page", QString(), false);
    page.SetAzimuthMode(true);
    int const undoSteps = GuiBase::Instance().UndoStack()->count();
    page.show();
    QTest::keyClick(page.findChild<VCComboBoxClassic *>(QStringLiteral("AzimuthMode")), Qt::Key_Down);
    QVERIFY(page.GetDirty());
    long key = 0;
    page.GetAzimuthMode(key);
    QCOMPARE(key, 9L);
    QCOMPARE(GuiBase::Instance().UndoStack()->count(), undoSteps); // nothing that could be undone
}

void tst_AxisPropertyPage::accessibleNames_data()
{
    QTest::addColumn<QString>("object");
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("value");
    QTest::newRow("box") << "autoScale" << static_cast<int>(QAccessible::CheckBox) << "Automatic Scaling" << QString();
    QTest::newRow("selector") << "AzimuthMode" << static_cast<int>(QAccessible::ComboBox) << "Azimuth Display Range:"
                              << QString::fromLatin1("Relative to Vehicle Axis -180\xB0..180\xB0");
    QTest::newRow("start") << "start" << static_cast<int>(QAccessible::EditableText) << "Display values from (min)"
                           << "12.5";
    QTest::newRow("stop") << "stop" << static_cast<int>(QAccessible::EditableText) << "to (max)"
                          << "80";
}

void tst_AxisPropertyPage::accessibleNames()
{
    QFETCH(QString, object);
    QFETCH(int, role);
    QFETCH(QString, name);
    QFETCH(QString, value);
    AzimuthMode(10);
    AxisPropertyPage page(nullptr, "page", QStringLiteral("[u]"), true);
    page.SetAzimuthMode(true);
    page.SetStart(12.5, NoLimit, NoLimit, NoLimit);
    page.SetStop(80.0, NoLimit, NoLimit, NoLimit);
    auto * const widget = page.findChild<QWidget *>(object);
    QAccessibleInterface * const answer = QAccessible::queryAccessibleInterface(widget);
    QVERIFY(answer);
    QCOMPARE(static_cast<int>(answer->role()), role);
    if (role != QAccessible::ComboBox) // some platforms have Qt name it by its choice
        QCOMPARE(answer->text(QAccessible::Name), name);
    auto const labels = answer->relations(QAccessible::Label);
    QCOMPARE(static_cast<int>(labels.size()), role == QAccessible::CheckBox ? 0 : 1);
    if (!labels.isEmpty())
        QCOMPARE(labels.first().first->text(QAccessible::Name), name);
    QCOMPARE(answer->text(QAccessible::Value), value);
    if (role == QAccessible::EditableText)
        QCOMPARE(answer->text(QAccessible::Description), QStringLiteral("[u]"));
}

void tst_AxisPropertyPage::selectorShowsWhatIsTooWide()
{
    AzimuthMode(10);
    AxisPropertyPage page(nullptr, "page", QString(), false);
    page.SetAzimuthMode(true);
    page.show();
    auto * const selector = page.findChild<VCComboBoxClassic *>();
    QHelpEvent event(QEvent::ToolTip, QPoint(5, 5), QPoint(5, 5));
    QCoreApplication::sendEvent(selector, &event);
    QCOMPARE(selector->toolTip(), selector->currentText());
    selector->showPopup();
    QAbstractItemView const * const view = selector->view();
    QVERIFY(view->viewport()->width() >= view->sizeHintForColumn(0));
    selector->hidePopup();
}

void tst_AxisPropertyPage::shortensTheSelectedText_data()
{
    QTest::addColumn<QString>("one");
    QTest::addColumn<QString>("other");
    QTest::addColumn<bool>("same");
    QString const head(80, QLatin1Char('m'));
    QTest::newRow("what is left out does not show") << head + " x" << head + "mmm x" << true;
    QTest::newRow("the last word shows") << head + " 1" << head + " 8" << false;
    QTest::newRow("a short text shows whole") << QStringLiteral("i 1") << QStringLiteral("l 1") << false;
}

void tst_AxisPropertyPage::shortensTheSelectedText()
{
    QFETCH(QString, one);
    QFETCH(QString, other);
    QFETCH(bool, same);
    AxisPropertyPage page(nullptr, "page", QString(), false);
    page.SetAzimuthMode(true);
    auto * const selector = page.findChild<VCComboBoxClassic *>();
    selector->resize(180, 26);
    selector->setItemText(0, one);
    QImage const first = selector->grab().toImage();
    selector->setItemText(0, other);
    QCOMPARE(selector->grab().toImage() == first, same);
}

void tst_AxisPropertyPage::textWithoutABlankIsElided()
{
    AxisPropertyPage page(nullptr, "page", QString(), false);
    page.SetAzimuthMode(true);
    auto * const selector = page.findChild<VCComboBoxClassic *>();
    selector->resize(180, 26);
    QStyleOptionComboBox option;
    option.initFrom(selector);
    QRect const field =
        selector->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, selector);
    QString const text(80, QLatin1Char('m'));
    selector->setItemText(0, text);
    QImage const whole = selector->grab().toImage();
    selector->setItemText(0, selector->fontMetrics().elidedText(text, Qt::ElideRight, field.width() - 2));
    QVERIFY(selector->grab().toImage() == whole);
}

void tst_AxisPropertyPage::textIsDrawnAsText()
{
    PlainStyle style;
    AxisPropertyPage page(nullptr, "page", QString(), false);
    page.SetAzimuthMode(true);
    auto * const selector = page.findChild<VCComboBoxClassic *>();
    selector->setStyle(&style);
    QPalette colors = selector->palette();
    colors.setColor(QPalette::Text, Qt::red);
    QImage images[2];
    for (int const turn : { 0, 1 }) {
        colors.setColor(QPalette::WindowText, turn == 0 ? Qt::green : Qt::blue);
        selector->setPalette(colors);
        images[turn] = selector->grab().toImage();
    }
    QVERIFY(images[0] == images[1]);
}

void tst_AxisPropertyPage::nothingIsCut_data()
{
    QTest::addColumn<bool>("longTexts");
    QTest::newRow("English") << false;
    QTest::newRow("long texts") << true;
}

void tst_AxisPropertyPage::nothingIsCut()
{
    QFETCH(bool, longTexts);
    std::unique_ptr<LongTexts> const texts = longTexts ? std::make_unique<LongTexts>() : nullptr;
    AxisPropertyPage page(nullptr, "page", QStringLiteral("[Timestamp in UTC]"), true);
    page.SetAzimuthMode(true);
    page.resize(page.sizeHint());
    page.show();
    QList<QWidget *> const widgets = page.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    QCOMPARE(static_cast<int>(widgets.size()), 10);
    for (QWidget const * const widget : widgets) {
        QVERIFY2(page.rect().contains(widget->geometry()), qPrintable(widget->objectName()));
        if (widget->maximumWidth() > 180)
            QVERIFY(widget->width() >= widget->sizeHint().width());
        QVERIFY(widget->height() >= widget->sizeHint().height());
        for (QWidget const * const other : widgets)
            QVERIFY(other == widget || !other->geometry().intersects(widget->geometry()));
    }
    int const left = Cell(page, 3, 1)->x(); // the fields stand below each other
    QCOMPARE(Cell(page, 1, 1)->x(), left);
    QCOMPARE(Cell(page, 4, 1)->x(), left);
    for (int const row : { 0, 1, 2, 3, 4 })
        QCOMPARE(Cell(page, row, 0)->x(), Cell(page, 0, 0)->x());
}

void tst_AxisPropertyPage::textsAreTranslated()
{
    LongTexts const texts;
    AxisPropertyPage const page(nullptr, "page", QString(), true);
    for (QLabel const * const label : page.findChildren<QLabel *>())
        QCOMPARE(label->text().endsWith(QLatin1Char('x')), !label->text().isEmpty());
    QVERIFY(page.findChild<QCheckBox *>()->text().endsWith(QLatin1Char('x')));
    QVERIFY(page.findChild<VCComboBoxClassic *>()->itemText(0).endsWith(QLatin1Char('x')));
}

ORIM_TEST_MAIN(tst_AxisPropertyPage)
#include "tst_axispropertypage.moc"
