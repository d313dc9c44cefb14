// SPDX-License-Identifier: MIT
// Special doubles, two at a time, as every number that a marker and its list take: no undefined conversion, no long
// call, no long text, and answers that follow from the doubles themselves.

#include "guibase.h"
#include "samevalue.h"
#include "specialdoubles.h"
#include "testmain.h"
#include "testmarkerlist.h"
#include "toint.h"

#include <QUndoStack>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <limits>

namespace {

constexpr int Index = 3;

//! The wrap rule, once more.
double Wrapped(double value, double offset, int period, int start, int stop)
{
    if (period == -1 || start >= stop)
        return value;
    double wrapped = value;
    if (wrapped + offset < start)
        wrapped += period;
    if (wrapped + offset > stop)
        wrapped -= period;
    return wrapped;
}

} // namespace

class tst_markertorture : public QObject
{
    Q_OBJECT

private Q_SLOTS:

    void initTestCase() { m_specials = SpecialDoubles(); }

    void pairs_data();
    void pairs();
    void cleanupTestCase();

private:
    using Operation = void (tst_markertorture::*)(double a, double b);

    void FactorUnbound(double value, double factor);
    void FactorBound(double value, double factor);
    void Wrap(double value, double offset);
    void WrapRange(double start, double stop);
    void Text(double value, double wrapValue);
    void Format(double width, double precision);
    void Step(double start, double stop);
    void StepFromPixel(double value, double pixel);
    void Limits(double min, double max);

    std::vector<double> m_specials;
    long long m_calls = 0;
    std::clock_t m_longest = 0;
};

void tst_markertorture::FactorUnbound(double value, double factor)
{
    TestMarkerList list;
    Marker & marker = *list.AddMarker(Index);
    marker.SetFactor(factor);
    QVERIFY(sameValue(marker.SetValue(value), value * factor));
    QVERIFY(list.SetMarkerValue(Index, value));
    QVERIFY(list.SetMarkerMovingValue(Index, value));
    QVERIFY(sameValue(list.GetMarkerValue(Index), value * factor));
    marker.SetLastDrawnValue(value * factor);
    QVERIFY(!marker.Moved());
}

void tst_markertorture::FactorBound(double value, double factor)
{
    TreeNumber const number("number", 50.0);
    TestMarkerList list;
    list.show();
    Marker & marker = *list.AddMarker(Index);
    marker.SetFactor(factor);
    marker.Set_ValuePath(number.Path());
    marker.SetValue(value);
    QVERIFY(std::isfinite(number->GetValue()));
    marker.SetMovingValue(value);
    QVERIFY(std::isfinite(number->GetInterimValue()));
    QVERIFY(sameValue(marker.GetDrawValue(), number->GetInterimValue() * factor));
    marker.Update();
    marker.EndMoving();
    QVERIFY(!marker.Changing());
    marker.Move2NextPixel(true);
    marker.UseMovingValue(false);
    marker.SetMovingValue(value);
    QVERIFY(std::isfinite(number->GetValue()));
}

void tst_markertorture::Wrap(double value, double offset)
{
    for (int const period : { 360, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min() }) {
        TestMarkerList list;
        Marker & marker = *list.AddMarker(Index);
        marker.SetValue(value);
        QVERIFY(list.SetMarkerOffset(Index, offset));
        list.SetMarkerWrapIntoRange(0, 360);
        list.SetMarkerWrapAround(period);
        QVERIFY(sameValue(marker.GetValue(), Wrapped(value, offset, period, 0, 360)));
    }
}

void tst_markertorture::WrapRange(double start, double stop)
{
    Marker marker;
    marker.SetValue(start);
    marker.SetWrapAround(toInt(stop));
    marker.SetWrapIntoRange(toInt(start), toInt(stop));
    QVERIFY(sameValue(marker.GetValue(), Wrapped(start, 0.0, toInt(stop), toInt(start), toInt(stop))));
}

void tst_markertorture::Text(double value, double wrapValue)
{
    TestMarkerList list;
    list.SetWrapValue(wrapValue);
    Marker & marker = *list.AddMarker(Index);
    marker.SetValue(value);
    double const shown = wrapValue != -1.0 && value < 0.0 ? value + wrapValue : value;
    QVERIFY(sameValue(marker.GetUnWrappedValue(), shown));
    QVERIFY(marker.GetStringValue(nullptr).size() <= 320);
    for (int const precision : { -1, 0, 3 }) {
        marker.SetFormat(4, precision);
        QVERIFY(marker.GetStringValue(nullptr).size() <= 320);
        QVERIFY(marker.GetStringValue(wrapValue, nullptr).size() <= 320);
    }
}

void tst_markertorture::Format(double width, double precision)
{
    Marker marker;
    marker.SetValue(width);
    marker.SetFormat(toInt(width), toInt(precision));
    QVERIFY(marker.GetStringValue(nullptr).size() <= 1500);
    QVERIFY(marker.GetStringValue(precision, nullptr).size() <= 1500);
    marker.SetShowOffset(true, toInt(width));
    marker.SetGapId(toInt(precision));
    int pixels = 0;
    QVERIFY(marker.GetShowOffset(pixels));
    QCOMPARE(pixels, toInt(width));
}

void tst_markertorture::Step(double start, double stop)
{
    TreeNumber const number("number", 50.0);
    TestMarkerList list;
    list.m_start = start;
    list.m_stop = stop;
    Marker & marker = *list.AddMarker(Index);
    marker.Set_ValuePath(number.Path());
    for (double const value : { 50.0, start, stop }) {
        marker.SetValue(value);
        marker.Move2NextPixel(true);
        marker.SetPixel(50);
        marker.Move2NextPixel(false);
        QVERIFY(std::isfinite(number->GetInterimValue()));
    }
    QVERIFY(list.m_asked.size() < 10000);
}

void tst_markertorture::StepFromPixel(double value, double pixel)
{
    TreeNumber const number("number", 50.0);
    TestMarkerList list;
    Marker & marker = *list.AddMarker(Index);
    marker.Set_ValuePath(number.Path());
    for (unsigned int const special : { unsigned(eSpecialX), unsigned(eSpecialY) }) {
        marker.SetSpecial(special);
        marker.SetValue(value);
        marker.SetPixel(toInt(pixel));
        marker.Move2NextPixel(true);
        marker.SetPixel(toInt(pixel));
        marker.Move2NextPixel(false);
        QVERIFY(std::isfinite(number->GetInterimValue()));
    }
}

void tst_markertorture::Limits(double min, double max)
{
    TreeNumber const number("number", 50.0);
    number->SetMinMax(min, max, std::fabs(min), nullptr);
    TestMarkerList list;
    list.show();
    Marker & marker = *list.AddMarker(Index);
    marker.Set_ValuePath(number.Path());
    for (double const value : { min, max, 50.0 }) {
        marker.SetValue(value);
        marker.SetMovingValue(value);
        marker.Move2NextPixel(true);
        QVERIFY(number->GetValue() >= number->GetMin() && number->GetValue() <= number->GetMax());
        QVERIFY(number->GetInterimValue() >= number->GetMin() && number->GetInterimValue() <= number->GetMax());
    }
}

void tst_markertorture::pairs_data()
{
    QTest::addColumn<int>("which");
    char const * const names[] = { "value and factor, unbound", "value and factor, bound",
                                   "value and offset, wrapped", "wrap range",
                                   "value and wrap value",      "width and decimals",
                                   "ends of the axis",          "value and pixel",
                                   "limits of the value" };
    for (int i = 0; i < 9; ++i)
        QTest::newRow(names[i]) << i;
}

void tst_markertorture::pairs()
{
    QFETCH(int, which);
    Operation const operations[] = { &tst_markertorture::FactorUnbound, &tst_markertorture::FactorBound,
                                     &tst_markertorture::Wrap,          &tst_markertorture::WrapRange,
                                     &tst_markertorture::Text,          &tst_markertorture::Format,
                                     &tst_markertorture::Step,          &tst_markertorture::StepFromPixel,
                                     &tst_markertorture::Limits };
    for (double const a : m_specials) {
        GuiBase::Instance().UndoStack()->clear();
        for (double const b : m_specials) {
            std::clock_t const begin = std::clock(); // of this process: others may hold the processor
            (this->*operations[which])(a, b);
            m_longest = std::max(m_longest, std::clock() - begin);
            ++m_calls;
            if (QTest::currentTestFailed())
                QFAIL(qPrintable(QStringLiteral("%1 and %2").arg(a, 0, 'g', 17).arg(b, 0, 'g', 17)));
        }
    }
}

void tst_markertorture::cleanupTestCase()
{
    auto const longest = static_cast<long long>(m_longest) * 1'000'000LL / CLOCKS_PER_SEC;
    std::printf("figures: markers: %d special doubles, %lld pairs, longest %lld us\n",
                static_cast<int>(m_specials.size()), m_calls, longest);
    QVERIFY(longest <= 100'000); // some ten calls of at most 10 ms each
}

ORIM_TEST_MAIN(tst_markertorture)
#include "tst_markertorture.moc"
