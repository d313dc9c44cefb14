// SPDX-License-Identifier: MIT
// The settings page of an axis, and the dialog that shows it.
#include "axisprobe.h"

#include "tabdialog.h"
#include "testmain.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTimer>
#include <QTranslator>

#include <array>
#include <functional>
#include <utility>

namespace {

using Number = ValueNumeric<double>;

//! An axis that notes the ranges that it is to show.
class PageAxis : public AxisProbe
{
public:
    using AxisProbe::AxisProbe;

    std::vector<std::array<double, 2>> m_zooms;
    bool m_recorded = false;
    std::function<void()> m_then;

    bool SetZoomedRange(double start, double stop, bool record) override
    {
        m_zooms.push_back({ start, stop });
        m_recorded = m_recorded || record;
        std::function<void()> const then = m_then; // the axis may end as it tells of the range
        bool const done = AxisProbe::SetZoomedRange(start, stop, record);
        if (then)
            then();
        return done;
    }
};

void Type(QLineEdit * edit, char const * text)
{
    edit->setText(QString());
    QTest::keyClicks(edit, QLatin1String(text));
    QTest::keyClick(edit, Qt::Key_Return);
}

QPushButton * Button(TabDialog const & dialog, QDialogButtonBox::StandardButton which)
{
    return dialog.findChild<QDialogButtonBox *>()->button(which);
}

//! Runs a step inside the dialog that is about to open; closes the dialog when it still stands.
void Inside(AxisBase & axis, std::function<void(TabDialog & dialog)> const & step)
{
    QPointer<AxisBase> const owner(&axis);
    QTimer::singleShot(0, qApp, [owner, step] {
        QPointer<TabDialog> const dialog(owner ? owner->findChild<TabDialog *>() : nullptr);
        if (!dialog)
            return;
        step(*dialog);
        if (dialog)
            dialog->reject();
    });
}

class German : public QTranslator
{
public:
    bool isEmpty() const override { return false; }

    QString translate(char const * context, char const * source, char const * /*comment*/, int /*n*/) const override
    {
        return qstrcmp(context, "AxisBase") == 0 ? QStringLiteral("de:") + QLatin1String(source) : QString();
    }
};

} // namespace

class tst_axisbase_dialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    // the page
    void noPage_data();
    void noPage();
    void pageShowsTheRange();
    void pageHasTheLimits();
    void pageHasNoLimits();
    void displayFactorOnThePage();
    void unitOnThePage();
    void enabledByZoom();
    void path();
    void lastPageIsTheOne();
    void endsBeforeItsPage();
    void pageIsAskedAsItEnds();

    // taking over
    void nothingWithoutAPage();
    void nothingUnlessModified();
    void takesTheRange();
    void takesItInAnyOrder();
    void takesWhatIsBeingTyped();
    void equalEndsStop();
    void limitsWinAndShow();
    void refusedRangeIsShownAgain();
    void dividesByTheFactor();
    void factorZeroIsRefused();
    void autoScale_data();
    void autoScale();
    void hearersEnd_data();
    void hearersEnd();
    void writingEnds_data();
    void writingEnds();

    // the dialog
    void dialog();
    void emptyDialog();
    void applyWrites();
    void okWritesAndCloses();
    void cancelWritesNothing();
    void dialogsGo();
    void pageGoesWithTheDialog();
    void axisEndsInside_data();
    void axisEndsInside();
    void dialogEndsInside();
    void secondDialog();
    void translated();
};

// The page

void tst_axisbase_dialog::noPage_data()
{
    QTest::addColumn<bool>("enabled");
    QTest::addColumn<bool>("noPage");
    QTest::addColumn<bool>("has");
    QTest::newRow("as at the start") << true << false << true;
    QTest::newRow("pages are disabled") << false << false << false;
    QTest::newRow("a type without a page") << true << true << false;
    QTest::newRow("both") << false << true << false;
}

void tst_axisbase_dialog::noPage()
{
    QFETCH(bool, enabled);
    QFETCH(bool, noPage);
    QFETCH(bool, has);
    unsigned int const type = noPage ? AxisBase::AxisHorizontal | AxisBase::AxisNoPropertyPage
                                     : static_cast<unsigned int>(AxisBase::AxisHorizontal);
    AxisProbe axis(type);
    axis.EnablePropertyPage(enabled);
    QWidget parent;
    axis.m_pPropertyPage = new AxisPropertyPage(&parent, nullptr, nullptr, false);
    QPointer<AxisPropertyPage> const earlier(axis.m_pPropertyPage);
    QWidget * const page = axis.GetPropertyPage(&parent, "page");
    QCOMPARE(page != nullptr, has);
    QVERIFY(axis.m_pPropertyPage == page); // null, too
    QVERIFY(earlier);                      // whoever has it keeps it
    if (!page)
        return;
    QVERIFY(page->parentWidget() == &parent);
    QCOMPARE(page->objectName(), QStringLiteral("page"));
    QVERIFY(qobject_cast<AxisPropertyPage *>(page));
    IHasPropertyPage & provider = axis;
    std::unique_ptr<QWidget> const alone(provider.GetPropertyPage(nullptr, nullptr));
    QVERIFY(alone && !alone->parentWidget());
}

void tst_axisbase_dialog::pageShowsTheRange()
{
    AxisProbe axis;
    axis.m_rightDigits = 2;
    axis.SetFixedRange(1.25, 7.5, 2, 3, 2, 0.0, 1.0);
    QWidget parent;
    axis.GetPropertyPage(&parent, nullptr);
    QCOMPARE(axis.m_pPropertyPage->GetStart(), 1.25);
    QCOMPARE(axis.m_pPropertyPage->GetStop(), 7.5);
    QCOMPARE(axis.m_pPropertyPage->GetStartEdit()->text(), axis.double2String(1.25, nullptr));
    QCOMPARE(axis.m_pPropertyPage->GetStopEdit()->text(), axis.double2String(7.5, nullptr));
    QVERIFY(!axis.m_pPropertyPage->GetDirty());
}

void tst_axisbase_dialog::pageHasTheLimits()
{
    Planted<Number> start("start");
    Planted<Number> stop("stop");
    start->SetMinMax(1.0, 30.0, 0.0, nullptr);
    stop->SetMinMax(40.0, 70.0, 0.0, nullptr);
    AxisProbe axis;
    QVERIFY(axis.SetStart_ValuePath(start.Path()) && axis.SetStop_ValuePath(stop.Path()));
    axis.SetDisplayFactor(2.0);
    axis.SetAxisZoomEnable(true, false);
    QWidget parent;
    axis.GetPropertyPage(&parent, nullptr);
    AxisPropertyPage & page = *axis.m_pPropertyPage;
    Type(page.GetStartEdit(), "-5");
    QCOMPARE(page.GetStart(), 2.0);
    Type(page.GetStartEdit(), "500");
    QCOMPARE(page.GetStart(), 60.0);
    Type(page.GetStopEdit(), "-5");
    QCOMPARE(page.GetStop(), 80.0);
    Type(page.GetStopEdit(), "500");
    QCOMPARE(page.GetStop(), 140.0);
}

void tst_axisbase_dialog::pageHasNoLimits()
{
    AxisProbe axis;
    axis.SetAxisZoomEnable(true, false);
    QWidget parent;
    axis.GetPropertyPage(&parent, nullptr);
    Type(axis.m_pPropertyPage->GetStartEdit(), "-1e9");
    Type(axis.m_pPropertyPage->GetStopEdit(), "1e9");
    QCOMPARE(axis.m_pPropertyPage->GetStart(), -1e9);
    QCOMPARE(axis.m_pPropertyPage->GetStop(), 1e9);
}

void tst_axisbase_dialog::displayFactorOnThePage()
{
    AxisProbe axis;
    axis.SetRange(2.0, 8.0);
    axis.SetDisplayFactor(10.0);
    QWidget parent;
    axis.GetPropertyPage(&parent, nullptr);
    QCOMPARE(axis.m_pPropertyPage->GetStart(), 20.0);
    QCOMPARE(axis.m_pPropertyPage->GetStop(), 80.0);
}

void tst_axisbase_dialog::unitOnThePage()
{
    AxisProbe axis;
    axis.SetUnitText(QStringLiteral("kHz"));
    QWidget parent;
    axis.GetPropertyPage(&parent, nullptr);
    int units = 0;
    for (QLabel const * const label : axis.m_pPropertyPage->findChildren<QLabel *>())
        units += label->text() == QStringLiteral("[kHz]") ? 1 : 0;
    QCOMPARE(units, 2);
}

void tst_axisbase_dialog::enabledByZoom()
{
    AxisProbe axis;
    QWidget parent;
    QVERIFY(!axis.GetPropertyPage(&parent, nullptr)->isEnabled());
    axis.SetAxisZoomEnable(true, false);
    QVERIFY(axis.GetPropertyPage(&parent, nullptr)->isEnabled());
}

void tst_axisbase_dialog::path()
{
    AxisProbe axis;
    IHasPropertyPage & provider = axis;
    QCOMPARE(provider.GetPropertyPagePath(), QString());
    axis.SetPropertyPagePath(QStringLiteral("Spectrum/Axis"));
    QCOMPARE(provider.GetPropertyPagePath(), QStringLiteral("Spectrum/Axis"));
    provider.slotCancelPropertyChanges();
    provider.slotDefaultPropertyChanges();
    QCOMPARE(axis.m_repairs, 0);
}

void tst_axisbase_dialog::lastPageIsTheOne()
{
    PageAxis axis;
    axis.SetAxisZoomEnable(true, false);
    QWidget parent;
    axis.GetPropertyPage(&parent, nullptr);
    QPointer<AxisPropertyPage> const first(axis.m_pPropertyPage);
    axis.GetPropertyPage(&parent, nullptr);
    Type(first->GetStartEdit(), "5");
    axis.slotAcceptPropertyChanges();
    QVERIFY(axis.m_zooms.empty());
    delete axis.m_pPropertyPage.data();
    axis.slotAcceptPropertyChanges();
    QVERIFY(axis.m_zooms.empty());
}

void tst_axisbase_dialog::endsBeforeItsPage()
{
    QWidget parent;
    auto axis = std::make_unique<AxisProbe>();
    axis->SetAxisZoomEnable(true, false);
    QPointer<AxisPropertyPage> const page(qobject_cast<AxisPropertyPage *>(axis->GetPropertyPage(&parent, nullptr)));
    axis.reset();
    QVERIFY(page);
    Type(page->GetStartEdit(), "5");
    QCOMPARE(page->GetStart(), 5.0);
}

void tst_axisbase_dialog::pageIsAskedAsItEnds()
{
    QWidget parent;
    auto axis = std::make_unique<AxisProbe>();
    axis->SetAxisZoomEnable(true, false);
    auto * const page = qobject_cast<AxisPropertyPage *>(axis->GetPropertyPage(&parent, nullptr));
    connect(axis.get(), &QObject::destroyed, page, [page] {
        page->SetStart(2.5, AxisPropertyPage::NoLimit, AxisPropertyPage::NoLimit, 0.0);
        Type(page->GetStopEdit(), "7.5");
    });
    axis.reset();
    QCOMPARE(page->GetStartEdit()->text(), QStringLiteral("2.5"));
    QCOMPARE(page->GetStop(), 7.5);
}

// Taking over

void tst_axisbase_dialog::nothingWithoutAPage()
{
    PageAxis axis;
    axis.SetMustRecalcRulers(false);
    axis.slotAcceptPropertyChanges();
    QVERIFY(!axis.GetMustRecalcRulers());
    QVERIFY(axis.m_zooms.empty());
}

void tst_axisbase_dialog::nothingUnlessModified()
{
    Planted<Value<bool>> automatic("automatic");
    PageAxis axis;
    QVERIFY(axis.SetAutoScale_ValuePath(automatic.Path()));
    axis.SetAxisZoomEnable(true, false);
    axis.SetRange(0.0, 10.0);
    QWidget parent;
    axis.GetPropertyPage(&parent, nullptr);
    axis.m_pPropertyPage->SetStart(3.0, AxisPropertyPage::NoLimit, AxisPropertyPage::NoLimit, 0.0);
    axis.SetMustRecalcRulers(false);
    axis.slotAcceptPropertyChanges();
    QVERIFY(!axis.GetMustRecalcRulers());
    QVERIFY(axis.m_zooms.empty());
    QVERIFY(!automatic->GetValue());
}

void tst_axisbase_dialog::takesTheRange()
{
    PageAxis axis;
    axis.SetAxisZoomEnable(true, false);
    axis.SetRange(0.0, 10.0);
    QWidget parent;
    axis.GetPropertyPage(&parent, nullptr);
    Type(axis.m_pPropertyPage->GetStartEdit(), "20");
    Type(axis.m_pPropertyPage->GetStopEdit(), "30");
    axis.SetMustRecalcRulers(false);
    QSignalSpy const zoomed(&axis, &AxisBase::Zoomed);
    axis.slotAcceptPropertyChanges();
    QVERIFY(axis.GetMustRecalcRulers());
    QCOMPARE(axis.m_start, 20.0);
    QCOMPARE(axis.m_stop, 30.0);
    QCOMPARE(axis.m_zooms.size(), std::size_t(1));
    QVERIFY(!axis.m_recorded);
    QVERIFY(axis.m_unZoom.empty());
    QCOMPARE(zoomed.count(), 1);
    QVERIFY(axis.m_pPropertyPage->GetDirty()); // for good: the next Apply writes again
    axis.slotAcceptPropertyChanges();
    QCOMPARE(axis.m_zooms.size(), std::size_t(2));
}

void tst_axisbase_dialog::takesItInAnyOrder()
{
    PageAxis axis;
    axis.SetAxisZoomEnable(true, false);
    axis.SetRange(0.0, 10.0);
    QWidget parent;
    axis.GetPropertyPage(&parent, nullptr);
    Type(axis.m_pPropertyPage->GetStartEdit(), "30");
    Type(axis.m_pPropertyPage->GetStopEdit(), "20");
    axis.slotAcceptPropertyChanges();
    QVERIFY((axis.m_zooms.back() == std::array<double, 2>{ 20.0, 30.0 }));
    QCOMPARE(axis.m_pPropertyPage->GetStart(), 20.0); // and the page shows it sorted
    QCOMPARE(axis.m_pPropertyPage->GetStop(), 30.0);
    QCOMPARE(axis.m_pPropertyPage->GetStopEdit()->text(), axis.double2String(30.0, nullptr));
}

void tst_axisbase_dialog::takesWhatIsBeingTyped()
{
    PageAxis axis;
    axis.SetAxisZoomEnable(true, false);
    axis.SetRange(0.0, 10.0);
    QWidget parent;
    axis.GetPropertyPage(&parent, nullptr);
    Type(axis.m_pPropertyPage->GetStopEdit(), "30");
    axis.m_pPropertyPage->GetStartEdit()->setText(QStringLiteral("15"));
    axis.slotAcceptPropertyChanges();
    QCOMPARE(axis.m_start, 15.0);
    QCOMPARE(axis.m_stop, 30.0);
}

void tst_axisbase_dialog::equalEndsStop()
{
    Planted<Value<bool>> automatic("automatic");
    PageAxis axis;
    QVERIFY(axis.SetAutoScale_ValuePath(automatic.Path()));
    axis.SetAxisZoomEnable(true, false);
    axis.SetRange(0.0, 10.0);
    QWidget parent;
    axis.GetPropertyPage(&parent, nullptr);
    Type(axis.m_pPropertyPage->GetStartEdit(), "5");
    Type(axis.m_pPropertyPage->GetStopEdit(), "5");
    axis.slotAcceptPropertyChanges();
    QVERIFY(axis.m_zooms.empty());
    QCOMPARE(axis.m_stop, 10.0);
    QCOMPARE(axis.m_pPropertyPage->GetStop(), 5.0); // nothing is written back
    QVERIFY(automatic->GetValue());                 // that came first
}

void tst_axisbase_dialog::limitsWinAndShow()
{
    Planted<Number> stop("stop");
    stop->SetMinMax(0.0, 100.0, 0.0, nullptr);
    PageAxis axis;
    QVERIFY(axis.SetStop_ValuePath(stop.Path()));
    axis.SetAxisZoomEnable(true, false);
    axis.SetRange(0.0, 10.0);
    QWidget parent;
    axis.GetPropertyPage(&parent, nullptr);
    Type(axis.m_pPropertyPage->GetStopEdit(), "90");
    stop->SetMinMax(0.0, 80.0, 0.0, nullptr); // narrower than the page knows
    axis.slotAcceptPropertyChanges();
    QCOMPARE(axis.m_stop, 80.0);
    QCOMPARE(axis.m_pPropertyPage->GetStop(), 80.0);
    QCOMPARE(axis.m_pPropertyPage->GetStopEdit()->text(), axis.double2String(80.0, nullptr));
    Type(axis.m_pPropertyPage->GetStopEdit(), "95");
    QCOMPARE(axis.m_pPropertyPage->GetStop(), 80.0); // and now it knows
}

void tst_axisbase_dialog::refusedRangeIsShownAgain()
{
    PageAxis axis;
    axis.SetRange(0.0, 10.0);
    QWidget parent;
    axis.GetPropertyPage(&parent, nullptr);
    Type(axis.m_pPropertyPage->GetStartEdit(), "5");
    axis.m_pPropertyPage->setEnabled(true);
    Type(axis.m_pPropertyPage->GetStartEdit(), "5");
    axis.slotAcceptPropertyChanges(); // zooming is disabled
    QCOMPARE(axis.m_zooms.size(), std::size_t(1));
    QCOMPARE(axis.m_start, 0.0);
    QCOMPARE(axis.m_pPropertyPage->GetStart(), 0.0);
}

void tst_axisbase_dialog::dividesByTheFactor()
{
    PageAxis axis;
    axis.SetAxisZoomEnable(true, false);
    axis.SetRange(0.0, 10.0);
    axis.SetDisplayFactor(4.0);
    QWidget parent;
    axis.GetPropertyPage(&parent, nullptr);
    Type(axis.m_pPropertyPage->GetStartEdit(), "20");
    Type(axis.m_pPropertyPage->GetStopEdit(), "32");
    axis.slotAcceptPropertyChanges();
    QCOMPARE(axis.m_start, 5.0);
    QCOMPARE(axis.m_stop, 8.0);
    QCOMPARE(axis.m_pPropertyPage->GetStart(), 20.0);
    axis.SetDisplayFactor(-4.0);
    axis.slotAcceptPropertyChanges(); // turned round by the sign
    QCOMPARE(axis.m_start, -8.0);
    QCOMPARE(axis.m_stop, -5.0);
    QCOMPARE(axis.m_pPropertyPage->GetStart(), 32.0);
}

void tst_axisbase_dialog::factorZeroIsRefused()
{
    PageAxis axis;
    axis.SetAxisZoomEnable(true, false);
    axis.SetRange(1.0, 10.0);
    axis.SetDisplayFactor(0.0);
    QWidget parent;
    axis.GetPropertyPage(&parent, nullptr);
    Type(axis.m_pPropertyPage->GetStopEdit(), "0"); // nothing by nothing
    axis.slotAcceptPropertyChanges();
    QCOMPARE(axis.m_start, 1.0);
    QCOMPARE(axis.m_stop, 10.0);
}

void tst_axisbase_dialog::autoScale_data()
{
    QTest::addColumn<bool>("box");
    QTest::addColumn<bool>("checked");
    QTest::addColumn<bool>("told");
    QTest::newRow("without a box it is on") << false << false << true;
    QTest::newRow("checked") << true << true << true;
    QTest::newRow("not checked") << true << false << false;
}

void tst_axisbase_dialog::autoScale()
{
    QFETCH(bool, box);
    QFETCH(bool, checked);
    Planted<Value<bool>> automatic("automatic");
    automatic->SetValue(!checked && box, nullptr);
    PageAxis axis;
    QVERIFY(axis.SetAutoScale_ValuePath(automatic.Path()));
    axis.SetAutoScaleCheckOnProperty(box);
    axis.SetAxisZoomEnable(true, false);
    axis.SetRange(0.0, 10.0);
    QWidget parent;
    axis.GetPropertyPage(&parent, nullptr);
    QCOMPARE(axis.m_pPropertyPage->findChild<QCheckBox *>() != nullptr, box);
    if (box)
        axis.m_pPropertyPage->SetAutoScale(checked);
    axis.m_pPropertyPage->SlotStopEditFinished();
    axis.m_repairs = 0;
    axis.slotAcceptPropertyChanges();
    QTEST(automatic->GetValue(), "told");
    QCOMPARE(axis.m_repairs, 0); // it does not hear of its own write
}

void tst_axisbase_dialog::hearersEnd_data()
{
    QTest::addColumn<bool>("page");
    QTest::addColumn<bool>("byFlag");
    for (bool const page : { true, false })
        for (bool const byFlag : { true, false })
            QTest::addRow("the %s ends in the %s", page ? "page" : "axis", byFlag ? "automatic scaling" : "new range")
                << page << byFlag;
}

void tst_axisbase_dialog::hearersEnd()
{
    class Hearer : public IObserver
    {
    public:
        std::function<void()> m_then;

        void Update(Observable * /*subject*/, TChangeCode /*code*/) override { m_then(); }
    };

    QFETCH(bool, page);
    QFETCH(bool, byFlag);
    Planted<Value<bool>> automatic("automatic");
    QWidget parent;
    QPointer<PageAxis> const axis(new PageAxis);
    QVERIFY(axis->SetAutoScale_ValuePath(automatic.Path()));
    axis->SetAxisZoomEnable(true, false);
    axis->SetRange(0.0, 10.0);
    QPointer<AxisPropertyPage> const shown(qobject_cast<AxisPropertyPage *>(axis->GetPropertyPage(&parent, nullptr)));
    Type(shown->GetStopEdit(), "30");
    auto const end = [&] { delete (page ? static_cast<QWidget *>(shown) : axis); };
    Hearer hearer;
    hearer.m_then = end;
    if (byFlag)
        automatic->AddObserver(&hearer);
    else
        connect(axis, &AxisBase::Zoomed, &parent, end);
    axis->slotAcceptPropertyChanges();
    QCOMPARE(bool(axis), page);
    QCOMPARE(bool(shown), !page);
    if (page)
        QCOMPARE(axis->m_stop, byFlag ? 10.0 : 30.0);
    delete axis;
}

void tst_axisbase_dialog::writingEnds_data()
{
    QTest::addColumn<bool>("page");
    QTest::addColumn<bool>("back");
    for (bool const page : { true, false })
        for (bool const back : { true, false })
            QTest::addRow("the %s ends as %s", page ? "page" : "axis", back ? "the range is shown" : "the typing ends")
                << page << back;
}

//! An axis that writes numbers as text may end itself or the page.
void tst_axisbase_dialog::writingEnds()
{
    class Ends : public PageAxis
    {
    public:
        std::function<void()> m_end;

        QString double2String(double value, char const * format) override
        {
            auto const end = std::exchange(m_end, nullptr);
            if (!end)
                return PageAxis::double2String(value, format);
            end(); // may end this
            return {};
        }
    };

    QFETCH(bool, page);
    QFETCH(bool, back);
    Planted<Value<bool>> automatic("automatic");
    QWidget parent;
    QPointer<Ends> const axis(new Ends);
    QVERIFY(axis->SetAutoScale_ValuePath(automatic.Path()));
    axis->SetAxisZoomEnable(true, false);
    axis->SetRange(0.0, 10.0);
    QPointer<AxisPropertyPage> const shown(qobject_cast<AxisPropertyPage *>(axis->GetPropertyPage(&parent, nullptr)));
    Type(shown->GetStopEdit(), "30");
    std::function<void()> const end = [=] { delete (page ? static_cast<QWidget *>(shown) : axis); };
    if (back)
        axis->m_then = [=] { axis->m_end = end; };
    else
        axis->m_end = end;
    axis->slotAcceptPropertyChanges();
    QCOMPARE(bool(axis), page);
    QCOMPARE(bool(shown), !page);
    QCOMPARE(automatic->GetValue(), back); // nothing goes on
    delete axis;
}

// The dialog

void tst_axisbase_dialog::dialog()
{
    AxisProbe axis;
    axis.SetAxisZoomEnable(true, false);
    int seen = 0;
    Inside(axis, [&](TabDialog & dialog) {
        ++seen;
        QVERIFY(dialog.isVisible() && dialog.isModal());
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Spectrum Properties"));
        QCOMPARE(int(dialog.windowFlags() & ~Qt::WindowType_Mask) & 0x3000, 0x3000);
        auto const * const tabs = dialog.findChild<QTabWidget *>();
        QCOMPARE(tabs->count(), 1);
        QCOMPARE(tabs->tabText(0), QStringLiteral("&Axis Range"));
        QVERIFY(tabs->widget(0) == axis.m_pPropertyPage);
        QVERIFY(Button(dialog, QDialogButtonBox::Apply));
        QVERIFY(QApplication::activeModalWidget() == &dialog);
    });
    axis.slotShowProperties();
    QCOMPARE(seen, 1);
}

void tst_axisbase_dialog::emptyDialog()
{
    for (bool const type : { true, false }) {
        AxisProbe axis(type ? AxisBase::AxisHorizontal | AxisBase::AxisNoPropertyPage
                            : static_cast<unsigned int>(AxisBase::AxisHorizontal));
        axis.EnablePropertyPage(type);
        int seen = 0;
        Inside(axis, [&](TabDialog & dialog) {
            ++seen;
            QVERIFY(dialog.isVisible());
            QCOMPARE(dialog.findChild<QTabWidget *>()->count(), 0);
            Button(dialog, QDialogButtonBox::Apply)->click(); // harmless
        });
        axis.slotShowProperties();
        QCOMPARE(seen, 1);
        QVERIFY(!axis.m_pPropertyPage);
    }
}

void tst_axisbase_dialog::applyWrites()
{
    AxisProbe axis;
    axis.SetAxisZoomEnable(true, false);
    axis.SetRange(0.0, 10.0);
    bool stood = false;
    Inside(axis, [&](TabDialog & dialog) {
        Type(axis.m_pPropertyPage->GetStopEdit(), "40"); // Return presses the default button as well
        Type(axis.m_pPropertyPage->GetStartEdit(), "20");
        Button(dialog, QDialogButtonBox::Apply)->click();
        QCOMPARE(axis.m_start, 20.0);
        QCOMPARE(axis.m_stop, 40.0);
        stood = dialog.findChild<QTabWidget *>() && axis.m_pPropertyPage;
    });
    axis.slotShowProperties();
    QVERIFY(stood);
    QCOMPARE(axis.m_start, 20.0);
}

void tst_axisbase_dialog::okWritesAndCloses()
{
    AxisProbe axis;
    axis.SetAxisZoomEnable(true, false);
    axis.SetRange(0.0, 10.0);
    Inside(axis, [&](TabDialog & dialog) {
        axis.m_pPropertyPage->GetStartEdit()->setText(QStringLiteral("4"));
        axis.m_pPropertyPage->SlotStartEditFinished();
        Button(dialog, QDialogButtonBox::Ok)->click();
        QCOMPARE(axis.m_start, 4.0);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
    });
    axis.slotShowProperties();
    QCOMPARE(axis.m_start, 4.0);
}

void tst_axisbase_dialog::cancelWritesNothing()
{
    AxisProbe axis;
    axis.SetAxisZoomEnable(true, false);
    axis.SetRange(0.0, 10.0);
    Inside(axis, [&](TabDialog & dialog) {
        axis.m_pPropertyPage->GetStartEdit()->setText(QStringLiteral("4"));
        axis.m_pPropertyPage->SlotStartEditFinished();
        Button(dialog, QDialogButtonBox::Cancel)->click();
    });
    axis.slotShowProperties();
    QCOMPARE(axis.m_start, 0.0);
}

void tst_axisbase_dialog::dialogsGo()
{
    AxisProbe axis;
    auto const before = axis.findChildren<QWidget *>().size();
    for (int turn = 0; turn < 5; ++turn) {
        Inside(axis, [](TabDialog & dialog) { dialog.close(); });
        axis.slotShowProperties();
        QCOMPARE(axis.findChildren<QWidget *>().size(), before);
    }
}

void tst_axisbase_dialog::pageGoesWithTheDialog()
{
    PageAxis axis;
    axis.SetAxisZoomEnable(true, false);
    Inside(axis, [&](TabDialog & /*dialog*/) {
        QVERIFY(axis.m_pPropertyPage);
        Type(axis.m_pPropertyPage->GetStartEdit(), "4");
    });
    axis.slotShowProperties();
    QVERIFY(!axis.m_pPropertyPage);
    axis.m_zooms.clear();
    axis.slotAcceptPropertyChanges();
    QVERIFY(axis.m_zooms.empty());
}

void tst_axisbase_dialog::axisEndsInside_data()
{
    QTest::addColumn<int>("how");
    QTest::newRow("deleted") << 0;
    QTest::newRow("with its parent") << 1;
    QTest::newRow("as Apply takes the range over") << 2;
    QTest::newRow("as OK takes the range over") << 3;
    QTest::newRow("as the dialog closes") << 4;
}

void tst_axisbase_dialog::axisEndsInside()
{
    QFETCH(int, how);
    QPointer<QWidget> const parent(new QWidget);
    QPointer<AxisProbe> const axis(new AxisProbe(parent, "axis"));
    axis->SetAxisZoomEnable(true, false);
    axis->SetRange(0.0, 10.0);
    QPointer<TabDialog> seen;
    Inside(*axis, [&](TabDialog & dialog) {
        seen = &dialog;
        auto const end = [axis] { delete axis.data(); };
        if (how == 0)
            delete axis.data();
        if (how == 1)
            delete parent.data();
        if (how == 2 || how == 3) {
            connect(axis, &AxisBase::Zoomed, qApp, end);
            axis->m_pPropertyPage->GetStartEdit()->setText(QStringLiteral("4"));
            axis->m_pPropertyPage->SlotStartEditFinished();
            Button(dialog, how == 2 ? QDialogButtonBox::Apply : QDialogButtonBox::Ok)->click();
        }
        if (how == 4) {
            connect(&dialog, &QDialog::finished, qApp, end);
            dialog.reject();
        }
    });
    axis->slotShowProperties();
    QVERIFY(!axis);
    QVERIFY(!seen);
    QCOMPARE(!parent, how == 1);
    QVERIFY(!QApplication::activeModalWidget());
    delete parent.data();
}

void tst_axisbase_dialog::dialogEndsInside()
{
    AxisProbe axis;
    bool ended = false;
    Inside(axis, [&](TabDialog & dialog) {
        delete &dialog;
        ended = true;
    });
    axis.slotShowProperties();
    QVERIFY(ended);
    QVERIFY(!axis.m_pPropertyPage);
}

//! The page of the second dialog is the one that counts, until it goes.
void tst_axisbase_dialog::secondDialog()
{
    AxisProbe axis;
    axis.SetAxisZoomEnable(true, false);
    axis.SetRange(0.0, 10.0);
    int depth = 0;
    Inside(axis, [&](TabDialog & first) {
        Type(axis.m_pPropertyPage->GetStopEdit(), "50");
        QTimer::singleShot(0, &axis, [&] {
            ++depth;
            auto const dialogs = axis.findChildren<TabDialog *>();
            QCOMPARE(static_cast<int>(dialogs.size()), 2);
            dialogs.last()->reject();
        });
        axis.slotShowProperties();
        QVERIFY(!axis.m_pPropertyPage);
        Button(first, QDialogButtonBox::Apply)->click();
        QCOMPARE(depth, 1);
    });
    axis.slotShowProperties();
    QCOMPARE(depth, 1);
}

void tst_axisbase_dialog::translated()
{
    German german;
    QCoreApplication::installTranslator(&german);
    AxisProbe axis;
    Inside(axis, [](TabDialog & dialog) {
        QCOMPARE(dialog.windowTitle(), QStringLiteral("de:Spectrum Properties"));
        QCOMPARE(dialog.findChild<QTabWidget *>()->tabText(0), QStringLiteral("de:&Axis Range"));
    });
    axis.slotShowProperties();
    QCoreApplication::removeTranslator(&german);
}

ORIM_TEST_MAIN(tst_axisbase_dialog)
#include "tst_axisbase_dialog.moc"
