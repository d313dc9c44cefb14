// SPDX-License-Identifier: MIT
#include "valueagedimage.h"

#include "scene.h"
#include "testmain.h"
#include "value.h"

class IAgedImage
{};

class tst_valueagedimage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void image_data();

    void image() { PlayScene(); }
};

void tst_valueagedimage::image_data()
{
    SceneColumns();
    SceneRow(
        "there is no image at first", [] { return YesNo(ValueAgedImage().GetApplyAgedImage()); }, "no");
    SceneRow(
        "an image is kept, and notified once",
        [] {
            Log log;
            IAgedImage image;
            ValueAgedImage value(QStringLiteral("image"));
            Listener a("a", log);
            value.AddObserver(&a);
            value.SetApplyAgedImage(&image);
            value.SetApplyAgedImage(&image);
            return log.Text() + YesNo(value.GetApplyAgedImage() == &image) + value.GetName();
        },
        "a3yesimage");
    SceneRow(
        "an image is taken back",
        [] {
            IAgedImage image;
            ValueAgedImage value;
            value.SetApplyAgedImage(&image);
            value.SetApplyAgedImage(nullptr);
            return YesNo(value.GetApplyAgedImage());
        },
        "no");
    SceneRow(
        "an image has no text",
        [] {
            ValueAgedImage value;
            return YesNo(value.SetStringValue(QStringLiteral("x"), nullptr)) +
                   YesNo(value.FromStoredText(QString(), nullptr)) + value.GetStringValue() + value.ToStoredText();
        },
        "nono");
    SceneRow(
        "assign takes no image over, compare sees it",
        [] {
            IAgedImage image;
            ValueAgedImage one;
            ValueAgedImage two;
            one.SetApplyAgedImage(&image);
            bool const taken = two.Assign(one);
            bool const other = two.Assign(Value<int>());
            QString const seen =
                YesNo(taken) + YesNo(other) + YesNo(two.GetApplyAgedImage()) + YesNo(two.Compare(&one));
            two.SetApplyAgedImage(&image);
            return seen + YesNo(two.Compare(&one)) + YesNo(two.Compare(nullptr));
        },
        "yesnononoyesno");
}

ORIM_CORE_TEST_MAIN(tst_valueagedimage)
#include "tst_valueagedimage.moc"
