// SPDX-License-Identifier: MIT
#include "statusline.h"

#include <QHBoxLayout>
#include <QLabel>

StatusLine::StatusLine(QWidget * parent)
    : QWidget(parent)
    , m_pSource(new QLabel(this))
    , m_pFrequency(new QLabel(this))
    , m_pFigures(new QLabel(this))
{
    setObjectName(QStringLiteral("statusLine"));
    m_pSource->setObjectName(QStringLiteral("source"));
    m_pFrequency->setObjectName(QStringLiteral("frequency"));
    m_pFigures->setObjectName(QStringLiteral("figures"));
    m_pSource->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_pSource->setTextFormat(Qt::PlainText);
    auto * const layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 1, 6, 3);
    layout->setSpacing(16);
    layout->addWidget(m_pSource, 1);
    layout->addWidget(m_pFrequency);
    layout->addWidget(m_pFigures);
    SetFigures(0.0, 0, 0.0);
}

StatusLine::~StatusLine() = default;

void StatusLine::SetSource(QString const & name)
{
    m_name = name;
    m_pSource->setToolTip(name);
    ShowSource();
}

void StatusLine::SetFrequency(QString const & text)
{
    if (text != m_pFrequency->text())
        m_pFrequency->setText(text);
}

void StatusLine::SetFigures(double lineRate, quint64 drops, double frameTime)
{
    m_pFigures->setText(tr("%1 lines/s   %2 drops   %3 ms/frame")
                            .arg(QString::number(lineRate, 'f', 1))
                            .arg(drops)
                            .arg(QString::number(frameTime, 'f', 2)));
    ShowSource();
}

void StatusLine::resizeEvent(QResizeEvent * event)
{
    QWidget::resizeEvent(event);
    ShowSource();
}

void StatusLine::ShowSource()
{
    m_pSource->setText(fontMetrics().elidedText(m_name, Qt::ElideMiddle, m_pSource->width()));
}
