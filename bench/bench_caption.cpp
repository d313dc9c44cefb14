// SPDX-License-Identifier: MIT

// A caption bar of 1920 px whose digits change: setter and paint of the widget into a picture, for each change. The
// centre text alone is new each time; left and right text stay. "drawtext" is a widget that fills its ground and draws
// the same three texts at places it knows, "qlabel" three labels in a row. In the topic TimeSpan the text is made of
// two time stamps by all.
// Ours may not measure a text while digits change: the program ends otherwise.

#include "datetime.h"
#include "vccaption.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

constexpr int Width = 1920;
constexpr int Height = 18;
constexpr int FontSize = 9;
constexpr int Steps = 64;
constexpr unsigned long long Start = 1790000000000000; // us since 1970
constexpr unsigned long long Period = 20000;           // us, between two changes
constexpr unsigned long long Span = 12345678;          // us

QString LeftText() { return QStringLiteral("98.500000 MHz"); }

QString RightText() { return QStringLiteral("RUNNING"); }

QString SpanText(unsigned long long start)
{
    return Orim::DateTime(start).toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz")) +
           Orim::DateTime(start + Span).toString(QStringLiteral("... mm:ss.zzz")) +
           Orim::DateTime(Span).toString(QStringLiteral("[mm:ss.zzz"));
}

std::vector<QString> Texts()
{
    std::vector<QString> texts;
    for (unsigned long long i = 0; i < Steps; ++i)
        texts.push_back(SpanText(Start + i * Period));
    return texts;
}

class CountingCaption : public VCCaption
{
public:
    CountingCaption() : VCCaption(nullptr, nullptr, 0, Height, FontSize)
    {
        SetCaptionLeft(LeftText());
        SetCaptionRight(RightText());
    }

    QFont TextFont() const { return m_Font; }

    int m_measured = 0;

protected:
    int MeasureText(QString const & text) const override
    {
        ++const_cast<CountingCaption *>(this)->m_measured;
        return VCCaption::MeasureText(text);
    }
};

//! The same texts at places that were measured once.
class DrawnTexts : public QWidget
{
public:
    DrawnTexts()
    {
        setFont(CountingCaption().TextFont());
        QFontMetrics const metrics(font());
        m_rightX = Width - metrics.horizontalAdvance(RightText());
        m_centerX = (Width - metrics.horizontalAdvance(SpanText(Start))) / 2;
        m_baseLine = metrics.ascent();
    }

    void SetText(QString const & text)
    {
        m_text = text;
        update();
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::darkGray);
        painter.fillRect(rect().adjusted(1, 1, -1, -1), Qt::darkBlue);
        painter.setPen(Qt::white);
        painter.drawText(2, m_baseLine, m_left);
        painter.drawText(m_rightX, m_baseLine, m_right);
        painter.drawText(m_centerX, m_baseLine, m_text);
    }

private:
    QString m_left = LeftText();
    QString m_right = RightText();
    QString m_text;
    int m_rightX = 0;
    int m_centerX = 0;
    int m_baseLine = 0;
};

//! A bar of labels.
class Labels : public QWidget
{
public:
    Labels() : m_pText(new QLabel(this))
    {
        setFont(CountingCaption().TextFont());
        auto * const row = new QHBoxLayout(this);
        row->setContentsMargins(0, 0, 0, 0);
        row->addWidget(new QLabel(LeftText(), this));
        row->addWidget(m_pText, 1);
        row->addWidget(new QLabel(RightText(), this));
        m_pText->setAlignment(Qt::AlignCenter);
        for (QLabel * const label : findChildren<QLabel *>())
            label->setAutoFillBackground(true);
    }

    void SetText(QString const & text) { m_pText->setText(text); }

private:
    QLabel * m_pText;
};

void Show(QWidget & widget)
{
    widget.setFixedSize(Width, Height);
    widget.show(); // a bar that is hidden has no picture
    QCoreApplication::sendPostedEvents();
}

void EndIf(bool isWrong, char const * what)
{
    if (!isWrong)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

//! \param change  shows step i.
template <class Change>
void Run(benchmark::State & state, QWidget & widget, Change const & change)
{
    QImage screen(Width, Height, QImage::Format_RGB32);
    auto const show = [&](unsigned int i) {
        change(i);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        widget.render(&screen, QPoint(), QRegion(), QWidget::DrawChildren);
    };
    Show(widget);
    show(1);
    QImage const before = screen.copy();
    show(0);
    EndIf(screen == before, "the text is not shown");
    unsigned int i = 0;
    for (auto _ : state) {
        i = i + 1 < Steps ? i + 1 : 0;
        show(i);
        benchmark::ClobberMemory();
    }
}

template <class Change>
void RunOurs(benchmark::State & state, Change const & change)
{
    CountingCaption caption;
    Show(caption);
    change(caption, 0);
    int const measured = caption.m_measured;
    Run(state, caption, [&](unsigned int i) { change(caption, i); });
    EndIf(caption.m_measured != measured, "a text that differs in digits alone was measured");
}

void Caption_ours(benchmark::State & state)
{
    std::vector<QString> const texts = Texts();
    RunOurs(state, [&](VCCaption & caption, unsigned int i) { caption.SetCaptionCenter(texts[i]); });
}

template <class Bar>
void Caption_peer(benchmark::State & state)
{
    std::vector<QString> const texts = Texts();
    Bar bar;
    Run(state, bar, [&](unsigned int i) { bar.SetText(texts[i]); });
}

void TimeSpan_ours(benchmark::State & state)
{
    RunOurs(state, [](VCCaption & caption, unsigned int i) {
        unsigned long long const start = Start + i * Period;
        caption.SetTimeCaption(static_cast<double>(start), static_cast<double>(start + Span));
    });
}

template <class Bar>
void TimeSpan_peer(benchmark::State & state)
{
    Bar bar;
    Run(state, bar, [&](unsigned int i) { bar.SetText(SpanText(Start + i * Period)); });
}

BENCHMARK(Caption_ours)->Name("Caption/ours");
BENCHMARK_TEMPLATE(Caption_peer, DrawnTexts)->Name("Caption/drawtext");
BENCHMARK_TEMPLATE(Caption_peer, Labels)->Name("Caption/qlabel");
BENCHMARK(TimeSpan_ours)->Name("TimeSpan/ours");
BENCHMARK_TEMPLATE(TimeSpan_peer, DrawnTexts)->Name("TimeSpan/drawtext");
BENCHMARK_TEMPLATE(TimeSpan_peer, Labels)->Name("TimeSpan/qlabel");

} // namespace
