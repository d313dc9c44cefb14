// SPDX-License-Identifier: MIT
// The pictures on the buttons of a caption.

#include "captionpictures.h"
#include "shownicon.h"

#include "colorset.h"
#include "testmain.h"

#include <QFile>

#include <cmath>

namespace {

//! Relative luminance, 0 to 1.
double Luminance(QColor const & color)
{
    auto const linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double Contrast(QColor const & a, QColor const & b)
{
    double const first = Luminance(a) + 0.05;
    double const second = Luminance(b) + 0.05;
    return first > second ? first / second : second / first;
}

} // namespace

class tst_captionpictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void resources();
    void pictures();
    void crisp_data();
    void crisp();
    void standOut();
};

void tst_captionpictures::resources()
{
    for (char const * const name : { ":/GUIControl/Pause.png", ":/Caption/On", ":/Caption/Off" }) {
        QString const file = QLatin1String(name);
        QVERIFY2(QFile::exists(file), name);
        QImage const image(file);
        QVERIFY2(!image.isNull() && image.hasAlphaChannel(), name);
        QCOMPARE(image.size(), QSize(24, 24));
    }
    QCOMPARE(QImage(QStringLiteral(":/GUIControl/Pause@2x.png")).size(), QSize(48, 48));
    QCOMPARE(QImage(QStringLiteral(":/Caption/On@2x")).size(), QSize(48, 48));
    QCOMPARE(QImage(QStringLiteral(":/Caption/Off@2x")).size(), QSize(48, 48));
}

void tst_captionpictures::pictures()
{
    QVector<QImage> all;
    for (int i = CaptionPictures::eStop; i <= CaptionPictures::eFull; ++i) {
        auto const picture = static_cast<CaptionPictures::EPicture>(i);
        all << CaptionPictures::Paint(picture, 16);
        QCOMPARE(all.last().size(), QSize(16, 16));
        QCOMPARE(CaptionPictures::Paint(picture, 0).size(), QSize(1, 1));
        QCOMPARE(CaptionPictures::Paint(picture, 100000).size(), QSize(1024, 1024));
        QIcon const icon = CaptionPictures::Icon(picture, 16);
        for (int const extent : { 16, 32, 48 })
            QCOMPARE(Shown(icon, extent).size(), QSize(extent, extent));
    }
    for (int i = 0; i < all.size(); ++i)
        for (int j = 0; j < i; ++j)
            QVERIFY(all[i] != all[j]);
}

void tst_captionpictures::crisp_data()
{
    QTest::addColumn<QIcon>("icon");
    QTest::newRow("stop") << CaptionPictures::Icon(CaptionPictures::eStop, 24);
    QTest::newRow("full") << CaptionPictures::Icon(CaptionPictures::eFull, 24);
    QTest::newRow("pause") << CaptionPictures::PauseIcon();
}

void tst_captionpictures::crisp()
{
    QFETCH(QIcon, icon);
    for (int const extent : { 8, 16, 24 }) {
        QImage const image = Shown(icon, extent);
        QCOMPARE(image.size(), QSize(extent, extent));
        int ink = 0;
        for (int y = 0; y < extent; ++y)
            for (int x = 0; x < extent; ++x) {
                int const alpha = qAlpha(image.pixel(x, y));
                QVERIFY2(alpha == 0 || alpha == 255, QByteArray::number(extent).constData());
                ink += alpha / 255;
            }
        QVERIFY(ink > extent * extent / 8);
    }
}

void tst_captionpictures::standOut()
{
    QVector<QIcon> icons{ CaptionPictures::PauseIcon(), QIcon(QStringLiteral(":/Caption/On")),
                          QIcon(QStringLiteral(":/Caption/Off")) };
    for (int i = CaptionPictures::eStop; i <= CaptionPictures::eFull; ++i)
        icons << CaptionPictures::Icon(static_cast<CaptionPictures::EPicture>(i), 24);
    for (int set = 0; set < ColorSet::GetSetCount(); ++set) {
        QColor const ground = ColorSet::GetFactoryColors(set).value(IColorBase::eColorButton);
        for (QIcon const & icon : icons) {
            QImage const image = Shown(icon, 24);
            int ink = 0;
            for (int y = 0; y < 24; ++y)
                for (int x = 0; x < 24; ++x) {
                    QColor const color = QColor::fromRgba(image.pixel(x, y));
                    if (color.alpha() != 255)
                        continue;
                    ++ink;
                    QVERIFY2(Contrast(color, ground) >= 3.0, qPrintable(color.name()));
                }
            QVERIFY(ink > 60);
        }
    }
}

ORIM_TEST_MAIN(tst_captionpictures)
#include "tst_captionpictures.moc"
