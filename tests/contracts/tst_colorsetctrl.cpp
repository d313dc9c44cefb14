// SPDX-License-Identifier: MIT
#include "colorsetctrl.h"

#include "colorset.h"
#include "guibase.h"

#include "testmain.h"

#include <QColorDialog>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>

namespace {

QColor & At(int number) { return ColorSet::Instance()[static_cast<IColorBase::ECOLOR>(number)]; }

//! The editor on the screen, with its parts at hand.
struct Stage
{
    Stage()
    {
        editor.resize(760, 460);
        editor.show();
        combo = editor.findChild<QComboBox *>(QStringLiteral("ColorSetCombo"));
        list = editor.findChild<QListWidget *>(QStringLiteral("ColorList"));
        preview = editor.findChild<QWidget *>(QStringLiteral("ColorPreview"));
        contrast = editor.findChild<QLabel *>(QStringLiteral("ColorContrast"));
        change = editor.findChild<QPushButton *>(QStringLiteral("ColorChange"));
        factory = editor.findChild<QPushButton *>(QStringLiteral("ColorFactory"));
    }

    QColorDialog * Dialog() const { return editor.findChild<QColorDialog *>(QStringLiteral("ColorDialog")); }

    void Choose(int number) const
    {
        for (int row = 0; row < list->count(); ++row)
            if (list->item(row)->data(Qt::UserRole).toInt() == number) {
                list->scrollToItem(list->item(row));
                QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                                  list->visualItemRect(list->item(row)).center());
            }
    }

    void Pick(int number, QColor const & color) const
    {
        Choose(number);
        QTest::mouseClick(change, Qt::LeftButton);
        Dialog()->setCurrentColor(color);
    }

    QColor Swatch(int row) const { return list->item(row)->icon().pixmap(list->iconSize()).toImage().pixelColor(4, 4); }

    ColorSetCtrl editor;
    QComboBox * combo;
    QListWidget * list;
    QWidget * preview;
    QLabel * contrast;
    QPushButton * change;
    QPushButton * factory;
};

} // namespace

class tst_ColorSetCtrl : public QObject
{
    Q_OBJECT
private Q_SLOTS:

    void initTestCase() { TestStage::HushPopups(); }

    void init();
    void start();
    void objectName_data();
    void objectName();
    void listShowsNamesAndSwatches();
    void dialogIsNotModal();
    void dialogIsOneOnly();
    void doubleClickOpensTheDialog();
    void changeShowsAtOnce();
    void screensChangeOnAccept();
    void acceptWithoutInput();
    void rejectedDialog();
    void acceptedDialog();
    void dialogFollowsTheList();
    void dialogFollowsTheSet();
    void editorEndsBeforeItsDialog();
    void choosingASet();
    void editsInSeveralSets();
    void factoryColor();
    void cancel();
    void factoryColorsOfAll();
    void cleanEditorRereads();
    void inputOutlivesAChangeElsewhere();
    void contrastText_data();
    void contrastText();
    void noColorChosen();
    void previewShowsTheColors_data();
    void previewShowsTheColors();
    void previewOfAnySize_data();
    void previewOfAnySize();
};

void tst_ColorSetCtrl::init()
{
    ColorSet::Instance().slotRestoreFactoryColors();
    ColorSet::Instance().Load(0);
}

void tst_ColorSetCtrl::start()
{
    ColorSet::Instance().Load(1);
    Stage const stage;
    QVERIFY(!stage.editor.GetDirty());
    QCOMPARE(stage.editor.GetShownSet(), 1);
    QCOMPARE(stage.list->currentRow(), 0);
    QCOMPARE(stage.combo->currentText(), QStringLiteral("Night"));
    QCOMPARE(stage.editor.GetColor(1), At(1));
    QVERIFY(!stage.editor.GetColor(0).isValid());
    QVERIFY(!stage.Dialog());
}

void tst_ColorSetCtrl::objectName_data()
{
    QTest::addColumn<QByteArray>("given");
    QTest::addColumn<QString>("name");
    QTest::newRow("null") << QByteArray() << QStringLiteral("ColorSetCtrl");
    QTest::newRow("given") << QByteArray("Colors") << QStringLiteral("Colors");
}

void tst_ColorSetCtrl::objectName()
{
    QFETCH(QByteArray, given);
    QFETCH(QString, name);
    ColorSetCtrl const editor(nullptr, given.isNull() ? nullptr : given.constData());
    QCOMPARE(editor.objectName(), name);
}

void tst_ColorSetCtrl::listShowsNamesAndSwatches()
{
    Stage const stage;
    std::vector<int> const numbers = ColorSet::GetNumbers();
    QCOMPARE(stage.list->count(), static_cast<int>(numbers.size()));
    for (int row = 0; row < stage.list->count(); ++row) {
        int const number = numbers.at(static_cast<std::size_t>(row));
        QCOMPARE(stage.list->item(row)->text(), ColorSet::GetColorName(number));
        QCOMPARE(stage.list->item(row)->toolTip(), At(number).name());
        QCOMPARE(stage.Swatch(row), At(number));
    }
}

void tst_ColorSetCtrl::dialogIsNotModal()
{
    Stage const stage;
    QTest::mouseClick(stage.change, Qt::LeftButton);
    QVERIFY(stage.Dialog());
    QVERIFY(stage.Dialog()->isVisible());
    QVERIFY(!stage.Dialog()->isModal());
    QCOMPARE(stage.Dialog()->windowModality(), Qt::NonModal);
    QCOMPARE(stage.Dialog()->windowTitle(), ColorSet::GetColorName(1));
    QCOMPARE(stage.Dialog()->currentColor(), At(1));
    QVERIFY(!stage.editor.GetDirty());
}

void tst_ColorSetCtrl::dialogIsOneOnly()
{
    Stage const stage;
    QTest::mouseClick(stage.change, Qt::LeftButton);
    QPointer<QColorDialog> const first(stage.Dialog());
    QTest::mouseClick(stage.change, Qt::LeftButton);
    QCOMPARE(stage.editor.findChildren<QColorDialog *>().size(), 1);
    first->close();
    QTRY_VERIFY(!first);
    QTest::mouseClick(stage.change, Qt::LeftButton);
    QVERIFY(stage.Dialog());
}

void tst_ColorSetCtrl::doubleClickOpensTheDialog()
{
    Stage const stage;
    stage.Choose(2);
    QTest::mouseDClick(stage.list->viewport(), Qt::LeftButton, Qt::NoModifier,
                       stage.list->visualItemRect(stage.list->currentItem()).center());
    QVERIFY(stage.Dialog());
    QCOMPARE(stage.Dialog()->currentColor(), At(2));
}

void tst_ColorSetCtrl::changeShowsAtOnce()
{
    Stage const stage;
    QImage const before = stage.preview->grab().toImage();
    stage.Pick(2, QColor(200, 255, 200));
    QVERIFY(stage.editor.GetDirty());
    QCOMPARE(stage.editor.GetColor(2), QColor(200, 255, 200));
    QCOMPARE(stage.Swatch(1), QColor(200, 255, 200));
    QCOMPARE(stage.list->item(1)->toolTip(), QStringLiteral("#c8ffc8"));
    QVERIFY(stage.preview->grab().toImage() != before);
    QCOMPARE(At(2), ColorSet::GetFactoryColors(0).value(2)); // not yet on the screens
}

void tst_ColorSetCtrl::screensChangeOnAccept()
{
    Stage stage;
    stage.Pick(2, Qt::yellow);
    QSignalSpy const changed(&GuiBase::Instance(), &GuiBase::signalColorsChanged);
    stage.editor.slotAccept();
    QCOMPARE(changed.count(), 1);
    QCOMPARE(At(2), QColor(Qt::yellow));
    QVERIFY(!stage.editor.GetDirty());
    QCOMPARE(stage.editor.GetColor(2), QColor(Qt::yellow));
}

void tst_ColorSetCtrl::acceptWithoutInput()
{
    Stage stage;
    QSignalSpy const changed(&GuiBase::Instance(), &GuiBase::signalColorsChanged);
    stage.editor.slotAccept();
    stage.Pick(2, At(2)); // the colour it has
    stage.editor.slotAccept();
    QCOMPARE(changed.count(), 0);
}

void tst_ColorSetCtrl::rejectedDialog()
{
    Stage const stage;
    stage.Pick(31, Qt::yellow);
    stage.Dialog()->setCurrentColor(Qt::red);
    QCOMPARE(stage.editor.GetColor(31), QColor(Qt::red));
    QTest::keyClick(stage.Dialog(), Qt::Key_Escape);
    QCOMPARE(stage.editor.GetColor(31), At(31));
}

void tst_ColorSetCtrl::acceptedDialog()
{
    Stage const stage;
    stage.Pick(31, Qt::yellow);
    stage.Dialog()->accept();
    QCOMPARE(stage.editor.GetColor(31), QColor(Qt::yellow));
    QTRY_VERIFY(!stage.Dialog());
}

void tst_ColorSetCtrl::dialogFollowsTheList()
{
    Stage const stage;
    stage.Pick(1, Qt::yellow);
    stage.Choose(66);
    QCOMPARE(stage.Dialog()->currentColor(), At(66));
    QCOMPARE(stage.Dialog()->windowTitle(), ColorSet::GetColorName(66));
    QCOMPARE(stage.editor.GetColor(66), At(66));
    stage.Dialog()->setCurrentColor(Qt::gray);
    QCOMPARE(stage.editor.GetColor(66), QColor(Qt::gray));
    QTest::keyClick(stage.Dialog(), Qt::Key_Escape);
    QCOMPARE(stage.editor.GetColor(66), At(66));
    QCOMPARE(stage.editor.GetColor(1), QColor(Qt::yellow)); // left behind before the dialog was dropped
}

void tst_ColorSetCtrl::dialogFollowsTheSet()
{
    Stage const stage;
    stage.Choose(1);
    QTest::mouseClick(stage.change, Qt::LeftButton);
    stage.combo->setCurrentIndex(1);
    QCOMPARE(stage.Dialog()->currentColor(), ColorSet::GetFactoryColors(1).value(1));
    QTest::keyClick(stage.Dialog(), Qt::Key_Escape);
    QCOMPARE(stage.editor.GetColor(1), ColorSet::GetFactoryColors(1).value(1));
}

void tst_ColorSetCtrl::editorEndsBeforeItsDialog()
{
    QPointer<QColorDialog> dialog;
    {
        Stage const stage;
        stage.Pick(1, Qt::red);
        dialog = stage.Dialog();
    }
    QVERIFY(!dialog);
    QCOMPARE(At(1), ColorSet::GetFactoryColors(0).value(1));
}

void tst_ColorSetCtrl::choosingASet()
{
    Stage stage;
    QTest::keyClick(stage.combo, Qt::Key_Down);
    QCOMPARE(stage.editor.GetShownSet(), 1);
    QVERIFY(stage.editor.GetDirty());
    QCOMPARE(stage.editor.GetColor(1), ColorSet::GetFactoryColors(1).value(1));
    QCOMPARE(stage.Swatch(0), ColorSet::GetFactoryColors(1).value(1));
    QCOMPARE(ColorSet::Instance().GetCurrentSet(), 0);
    stage.editor.slotAccept();
    QCOMPARE(ColorSet::Instance().GetCurrentSet(), 1);
}

void tst_ColorSetCtrl::editsInSeveralSets()
{
    Stage stage;
    stage.Pick(150, Qt::red);
    stage.combo->setCurrentIndex(2);
    stage.Pick(150, Qt::green);
    stage.combo->setCurrentIndex(0);
    QCOMPARE(stage.editor.GetColor(150), QColor(Qt::red));
    stage.editor.slotAccept();
    QCOMPARE(At(150), QColor(Qt::red));
    ColorSet::Instance().Load(2);
    QCOMPARE(At(150), QColor(Qt::green));
}

void tst_ColorSetCtrl::factoryColor()
{
    At(61) = Qt::red;
    At(62) = Qt::green;
    Stage const stage;
    stage.Choose(61);
    QTest::mouseClick(stage.factory, Qt::LeftButton);
    QCOMPARE(stage.editor.GetColor(61), ColorSet::GetFactoryColors(0).value(61));
    QCOMPARE(stage.editor.GetColor(62), QColor(Qt::green));
    QVERIFY(stage.editor.GetDirty());
}

void tst_ColorSetCtrl::cancel()
{
    Stage stage;
    stage.Pick(1, Qt::red);
    stage.combo->setCurrentIndex(2);
    stage.editor.slotCancel();
    QVERIFY(!stage.editor.GetDirty());
    QCOMPARE(stage.editor.GetShownSet(), 0);
    QCOMPARE(stage.editor.GetColor(1), At(1));
    QCOMPARE(stage.Swatch(0), At(1));
}

void tst_ColorSetCtrl::factoryColorsOfAll()
{
    At(1) = Qt::red;
    ColorSet::Instance().Load(1);
    At(2) = Qt::red;
    Stage stage;
    QCOMPARE(stage.editor.GetColor(2), QColor(Qt::red));
    stage.editor.slotDefault();
    QVERIFY(stage.editor.GetDirty());
    QCOMPARE(stage.editor.GetColor(2), ColorSet::GetFactoryColors(1).value(2));
    QCOMPARE(At(2), QColor(Qt::red));
    stage.editor.slotAccept();
    QCOMPARE(At(2), ColorSet::GetFactoryColors(1).value(2));
    ColorSet::Instance().Load(0);
    QCOMPARE(At(1), ColorSet::GetFactoryColors(0).value(1));
}

void tst_ColorSetCtrl::cleanEditorRereads()
{
    Stage const stage;
    At(1) = Qt::red;
    ColorSet::Instance().Load(2);
    QCOMPARE(stage.editor.GetShownSet(), 2);
    QCOMPARE(stage.Swatch(0), QColor(Qt::white));
    QVERIFY(!stage.editor.GetDirty());
}

void tst_ColorSetCtrl::inputOutlivesAChangeElsewhere()
{
    Stage const stage;
    stage.Pick(1, Qt::red);
    ColorSet::Instance().Load(2);
    QCOMPARE(stage.editor.GetShownSet(), 0);
    QCOMPARE(stage.editor.GetColor(1), QColor(Qt::red));
    QVERIFY(stage.editor.GetDirty());
}

void tst_ColorSetCtrl::contrastText_data()
{
    QTest::addColumn<int>("number");
    QTest::addColumn<QColor>("color");
    QTest::addColumn<QString>("text");
    QTest::newRow("reads well") << 62 << QColor(Qt::white)
                                << QStringLiteral("Contrast 8.3 : 1 on \"Caption in focus\"");
    QTest::newRow("text that does not") << 62 << QColor(0x1f, 0x4e, 0x8c)
                                        << QStringLiteral("Contrast 1.0 : 1 on \"Caption in focus\", less than the "
                                                          "4.5 : 1 that reads well");
    QTest::newRow("a line that does not") << 151 << QColor(Qt::yellow)
                                          << QStringLiteral("Contrast 1.1 : 1 on \"Axis background\", less than the "
                                                            "3.0 : 1 that reads well");
    QTest::newRow("a ground has none") << 61 << QColor(Qt::red) << QString();
}

void tst_ColorSetCtrl::contrastText()
{
    QFETCH(int, number);
    QFETCH(QColor, color);
    QFETCH(QString, text);
    Stage const stage;
    stage.Pick(number, color);
    QCOMPARE(stage.contrast->text(), text);
}

void tst_ColorSetCtrl::noColorChosen()
{
    Stage const stage;
    stage.list->setCurrentRow(-1);
    QVERIFY(!stage.change->isEnabled());
    QVERIFY(!stage.factory->isEnabled());
    QCOMPARE(stage.contrast->text(), QString());
    stage.list->setCurrentRow(3);
    QVERIFY(stage.change->isEnabled());
}

void tst_ColorSetCtrl::previewShowsTheColors_data()
{
    QTest::addColumn<int>("number");
    for (int const number : { 1, 2, 4, 30, 31, 34, 36, 37, 61, 62, 63, 64, 65, 66, 85, 87, 88, 89, 150, 151, 152, 153 })
        QTest::newRow(ColorSet::GetColorName(number).toLatin1()) << number;
}

void tst_ColorSetCtrl::previewShowsTheColors()
{
    QFETCH(int, number);
    Stage const stage;
    QImage const before = stage.preview->grab().toImage();
    stage.Pick(number, QColor(0xab, 0xcd, 0x01));
    QVERIFY(stage.preview->grab().toImage() != before);
}

void tst_ColorSetCtrl::previewOfAnySize_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("nothing") << QSize(0, 0);
    QTest::newRow("a pixel") << QSize(1, 1);
    QTest::newRow("lower than its bars") << QSize(200, 30);
    QTest::newRow("wide") << QSize(3000, 100);
}

void tst_ColorSetCtrl::previewOfAnySize()
{
    QFETCH(QSize, size);
    Stage const stage;
    stage.preview->setMinimumSize(0, 0);
    stage.preview->resize(size);
    QImage image(QSize(10, 10).expandedTo(size), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    stage.preview->render(&image);
    QCOMPARE(image.pixelColor(0, 0).alpha(), size.isEmpty() ? 0 : 255);
}

ORIM_TEST_MAIN(tst_ColorSetCtrl)
#include "tst_colorsetctrl.moc"
