// SPDX-License-Identifier: MIT
#ifndef ORIM_TEST_AXISPROPERTYPAGEPROBE_H
#define ORIM_TEST_AXISPROPERTYPAGEPROBE_H

#include "axispropertypage.h"

#include <QFocusEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QtTest>

inline constexpr double NoLimit = -9999.765;

//! Opens what is protected.
class Page : public AxisPropertyPage
{
public:
    using AxisPropertyPage::AxisPropertyPage;
    using AxisPropertyPage::eventFilter;
    using AxisPropertyPage::UpdateAfterEditFinished;
};

enum End
{
    eStart,
    eStop
};

inline QLineEdit * EditOf(AxisPropertyPage const & page, int end)
{
    return page.findChild<QLineEdit *>(end == eStart ? QStringLiteral("start") : QStringLiteral("stop"));
}

inline void Set(AxisPropertyPage & page, int end, double value, double minimum = NoLimit, double maximum = NoLimit)
{
    if (end == eStart)
        page.SetStart(value, minimum, maximum, NoLimit);
    else
        page.SetStop(value, minimum, maximum, NoLimit);
}

inline double Get(AxisPropertyPage const & page, int end) { return end == eStart ? page.GetStart() : page.GetStop(); }

inline QGridLayout const * Grid(AxisPropertyPage const & page)
{
    return page.findChild<QGridLayout *>(QStringLiteral("grid"));
}

inline QWidget * Cell(AxisPropertyPage const & page, int row, int column)
{
    QLayoutItem * const item = Grid(page)->itemAtPosition(row, column);
    return item ? item->widget() : nullptr;
}

inline QString TextAt(AxisPropertyPage const & page, int row, int column)
{
    auto const * const label = qobject_cast<QLabel *>(Cell(page, row, column));
    return label ? label->text() : QString();
}

inline void FocusOut(QObject * object)
{
    QFocusEvent event(QEvent::FocusOut, Qt::OtherFocusReason);
    QCoreApplication::sendEvent(object, &event);
}

//! What the operator does: puts a text in place of the old one and leaves the edit by Return.
inline void Type(QLineEdit * edit, QString const & text)
{
    edit->selectAll();
    QTest::keyClicks(edit, text);
    QTest::keyClick(edit, Qt::Key_Return);
}

//! A row for each end.
inline void TwoEnds()
{
    QTest::addColumn<int>("end");
    QTest::newRow("start") << static_cast<int>(eStart);
    QTest::newRow("stop") << static_cast<int>(eStop);
}

#endif
