// SPDX-License-Identifier: MIT
#include "flowlayout.h"

#include "testmain.h"

#include <QWidget>

#include <memory>

//! Three boxes of 50 x 20, 60 x 30 and 40 x 10 px with 5 px between them, within margins of 1, 2, 3 and 4 px.
class tst_FlowLayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rows_data();
    void rows();
    void keepsToItsPlace();
    void leastSize();
    void neverStretches();
    void takeAt();
    void emptyLayout();
};

namespace {

class Box : public QWidget
{
public:
    Box(QSize size, QWidget * parent) : QWidget(parent), m_size(size) {}

    QSize sizeHint() const override { return m_size; }

    QSize minimumSizeHint() const override { return m_size / 2; }

private:
    QSize m_size;
};

class Stage
{
public:
    Stage() : layout(new FlowLayout(&window))
    {
        layout->setContentsMargins(1, 2, 3, 4);
        layout->setSpacing(5);
        for (QSize const size : { QSize(50, 20), QSize(60, 30), QSize(40, 10) }) {
            boxes.append(new Box(size, &window));
            layout->addWidget(boxes.last());
        }
    }

    QList<QPoint> Places() const
    {
        QList<QPoint> places;
        for (QWidget const * const box : boxes)
            places.append(box->pos());
        return places;
    }

    QWidget window;
    FlowLayout * layout; // the window owns it
    QList<QWidget *> boxes;
};

using Points = QList<QPoint>;

} // namespace

void tst_FlowLayout::rows_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<Points>("places");
    QTest::addColumn<int>("height");
    Points const oneRow{ { 1, 2 }, { 56, 2 }, { 121, 2 } };
    Points const twoRows{ { 1, 2 }, { 56, 2 }, { 1, 37 } };
    QTest::newRow("wide") << 1000 << oneRow << 36;
    QTest::newRow("just one row") << 164 << oneRow << 36;
    QTest::newRow("a pixel less") << 163 << twoRows << 51;
    QTest::newRow("just two in a row") << 119 << twoRows << 51;
    QTest::newRow("one in a row, then two") << 118 << Points{ { 1, 2 }, { 1, 27 }, { 66, 27 } } << 61;
    QTest::newRow("one in each row") << 90 << Points{ { 1, 2 }, { 1, 27 }, { 1, 62 } } << 76;
    QTest::newRow("narrower than a box") << 10 << Points{ { 1, 2 }, { 1, 27 }, { 1, 62 } } << 76;
}

void tst_FlowLayout::rows()
{
    QFETCH(int, width);
    QFETCH(Points, places);
    QFETCH(int, height);
    Stage stage;
    QVERIFY(stage.layout->hasHeightForWidth());
    QCOMPARE(stage.layout->heightForWidth(width), height);
    stage.layout->setGeometry(QRect(0, 0, width, height));
    QCOMPARE(stage.Places(), places);
    QCOMPARE(stage.boxes[1]->size(), QSize(60, 30));
}

void tst_FlowLayout::keepsToItsPlace()
{
    Stage stage;
    stage.layout->setGeometry(QRect(100, 200, 163, 51));
    QCOMPARE(stage.Places(), (Points{ { 101, 202 }, { 156, 202 }, { 101, 237 } }));
    QCOMPARE(stage.layout->heightForWidth(163), 51);
}

void tst_FlowLayout::leastSize()
{
    Stage const stage;
    QCOMPARE(stage.layout->minimumSize(), QSize(34, 21)); // half a box, and the margins
    QCOMPARE(stage.layout->sizeHint(), stage.layout->minimumSize());
}

void tst_FlowLayout::neverStretches() { QVERIFY(!Stage().layout->expandingDirections()); }

void tst_FlowLayout::takeAt()
{
    Stage stage;
    QCOMPARE(stage.layout->count(), 3);
    QVERIFY(!stage.layout->takeAt(-1));
    QVERIFY(!stage.layout->takeAt(3));
    QVERIFY(!stage.layout->itemAt(-1));
    QVERIFY(!stage.layout->itemAt(3));
    std::unique_ptr<QLayoutItem> const taken(stage.layout->takeAt(0));
    QCOMPARE(taken->widget(), stage.boxes[0]);
    QCOMPARE(stage.layout->count(), 2);
    QCOMPARE(stage.layout->itemAt(0)->widget(), stage.boxes[1]);
    QCOMPARE(stage.layout->heightForWidth(1000), 36);
}

void tst_FlowLayout::emptyLayout()
{
    FlowLayout layout;
    layout.setContentsMargins(1, 2, 3, 4);
    QCOMPARE(layout.count(), 0);
    QCOMPARE(layout.minimumSize(), QSize(4, 6));
    QCOMPARE(layout.heightForWidth(100), 6);
}

ORIM_TEST_MAIN(tst_FlowLayout)
#include "tst_flowlayout.moc"
