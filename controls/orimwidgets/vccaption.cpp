// SPDX-License-Identifier: MIT
#include "vccaption.h"

#include "captionlayout.h"
#include "colorset.h"
#include "datetime.h"
#include "guibase.h"
#include "toint.h"
#include "tree.h"
#include "valueselection.h"
#include "vcselectionpopup.h"

#include <QFontMetrics>
#include <QFrame>
#include <QHBoxLayout>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double LargestPicture = 16e6;         // px, of a screen 8000 wide and a bar 2000 high
constexpr int HighestBar = QWIDGETSIZE_MAX - 1; // px; QWIDGETSIZE_MAX stands for no limit

QString SizingText() { return QStringLiteral("9999-99-99 99:99:99.999.999  ... 99:99.999.999 [99:99.999.999]"); }

//! \return null for a picture without an area, and for one that is too large.
std::unique_ptr<QPixmap> MakePicture(QSize const & size, double ratio)
{
    QSize const pixels(toInt(std::ceil(size.width() * ratio)), toInt(std::ceil(size.height() * ratio)));
    if (pixels.isEmpty() || static_cast<double>(pixels.width()) * pixels.height() > LargestPicture)
        return nullptr;
    auto picture = std::make_unique<QPixmap>(pixels);
    if (picture->isNull())
        return nullptr;
    picture->setDevicePixelRatio(ratio);
    return picture;
}

} // namespace

VCCaption::VCCaption(QWidget * parent, char const * name, unsigned int flags, int height, int fontSize)
    : QWidget(parent)
    , Control(this, name)
    , m_Flags(flags)
    , m_Height(height)
    , m_pSpace(new QFrame(this))
    , m_TimeFormat1(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"))
    , m_TimeFormat2(QStringLiteral("... mm:ss.zzz"))
    , m_TimeFormat3(QStringLiteral("[mm:ss.zzz"))
    , m_FontSize(fontSize)
    , m_pLayout(new QHBoxLayout(this))
{
    setObjectName(QString::fromLatin1(name));
    VCCaption::slotColorsChanged();
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFixedHeight(std::clamp(height, 0, HighestBar));
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent); // the picture covers the bar

    m_pSpace->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_pLayout->setContentsMargins(0, 0, 0, 0);
    m_pLayout->setSpacing(1);
    m_pLayout->addWidget(m_pSpace, 1);
    MakeButtons();
    connect(&GuiBase::Instance(), &GuiBase::signalColorsChanged, this, &VCCaption::slotColorsChanged);
    if ((m_Flags & StyleTimeZonePopup) != 0)
        MakePopup();
}

VCCaption::~VCCaption()
{
    for (Watched<Text> * const text : { &m_pLeftValue, &m_pRightValue, &m_pCenterValue })
        Release(*text);
    Release(m_pTimeZone);
    LeaveToggledButton();
}

void VCCaption::MakePopup()
{
    auto * const popup = new VCSelectionPopup(this, "Time Zone");
    popup->SetFirstSelection(GuiBase::Instance().GetTimeZone());
    connect(popup, &QMenu::aboutToShow, this, [this, popup] {
        m_MoveState = 0;                 // the release goes to the menu
        if (!popup->GetFirstSelection()) // it went away
            popup->SetFirstSelection(GuiBase::Instance().GetTimeZone());
    });
    SetContextMenu(popup, true);
    EnableContextMenu(true);
}

// Binding

bool VCCaption::Observes(Observable const * subject) const
{
    auto const isIt = [subject](auto const & watched) { return watched.Get() && subject == watched.Get(); };
    return isIt(m_pLeftValue) || isIt(m_pRightValue) || isIt(m_pCenterValue) || isIt(m_pTimeZone);
}

template <class T>
void VCCaption::Release(Watched<T> & watched)
{
    T * const value = watched.Get();
    watched.value = nullptr;
    if (value && !Observes(value)) // two texts may have one value
        value->DeleteObserver(this);
}

template <class T>
bool VCCaption::Watch(Watched<T> & watched, T * value)
{
    Release(watched);
    if (!value || !(value->AddObserver(this) || value->HasObserver(this)))
        return false;
    watched.value = value;
    watched.life = LifeWatch(value->GetLifetime());
    return true;
}

bool VCCaption::Bind(Watched<Text> & text, QString const & path)
{
    Tree const * const tree = Tree::Instance();
    return Watch(text, tree ? tree->FindAs<Text>(path) : nullptr);
}

bool VCCaption::SetCaptionLeft_ValuePath(QString const & path)
{
    if (!Bind(m_pLeftValue, path))
        return false;
    SetCaptionLeft(m_pLeftValue.value->GetValue());
    return true;
}

bool VCCaption::SetCaptionRight_ValuePath(QString const & path)
{
    if (!Bind(m_pRightValue, path))
        return false;
    SetCaptionRight(m_pRightValue.value->GetValue());
    return true;
}

bool VCCaption::SetCaptionCenter_ValuePath(QString const & path)
{
    if (!Bind(m_pCenterValue, path))
        return false;
    SetCaptionCenter(m_pCenterValue.value->GetValue());
    return true;
}

template <class T>
bool VCCaption::Hears(Watched<T> & watched, Observable const * subject, TChangeCode code)
{
    T const * const value = watched.Get();
    if (!value || subject != value)
        return false;
    if (code == eStateChanged && value->GetState() == eStateGoingAway)
        Release(watched);
    return code == eValueChanged;
}

void VCCaption::Update(Observable * subject, TChangeCode code)
{
    if (Hears(m_pLeftValue, subject, code))
        SetCaptionLeft(m_pLeftValue.value->GetValue());
    if (Hears(m_pRightValue, subject, code))
        SetCaptionRight(m_pRightValue.value->GetValue());
    if (Hears(m_pCenterValue, subject, code))
        SetCaptionCenter(m_pCenterValue.value->GetValue());
    if (Hears(m_pTimeZone, subject, code))
        TakeTimeZone();
}

bool VCCaption::WatchTimeZone() { return Watch(m_pTimeZone, GuiBase::Instance().GetTimeZone()); }

// Texts

void VCCaption::SetCaptionLeft(QString text)
{
    m_Left = std::move(text);
    ShowChange();
}

void VCCaption::SetCaptionRight(QString text)
{
    m_Right = std::move(text);
    ShowChange();
}

void VCCaption::SetCaptionCenter(QString text)
{
    m_TimeStart = -1.0;
    m_TimeStop = -1.0;
    m_Center = std::move(text);
    ShowChange();
}

void VCCaption::SetRightOffsetWidth(int width) { m_RightOffsetWidth = width; }

// The picture

void VCCaption::slotColorsChanged()
{
    QFont const font(GuiBase::Instance().GetFontFamily(), m_FontSize);
    if (m_Font != font || m_TimeWidth == 0) { // nothing is measured yet
        m_Font = font;
        MeasureFont();
    }
    ColorSet & colors = ColorSet::Instance();
    QColor const focus = colors[IColorBase::eColorCaptionFocus];
    QColor const noFocus = colors[IColorBase::eColorCaption];
    m_FocusBrush = focus;
    m_NoFocusBrush = noFocus;
    m_FocusTextPen = colors[IColorBase::eColorCaptionFocusText];
    m_NoFocusTextPen = colors[IColorBase::eColorCaptionText];
    m_FocusFramePen = focus;
    m_NoFocusFramePen = noFocus;
    m_FocusCenterPen = colors[IColorBase::eColorCaptionFocusCenter];
    m_pPixmap.reset();
    update();
}

void VCCaption::MeasureFont()
{
    QRect const box = QFontMetrics(m_Font).boundingRect(SizingText());
    m_TimeWidth = box.width();
    m_BaseLine = CaptionLayout::BaseLine(m_Height, box.top(), box.bottom());
    for (int * const width : { &m_LeftWidth, &m_RightWidth, &m_CenterWidth })
        *width = -1;
}

int VCCaption::MeasureText(QString const & text) const { return QFontMetrics(m_Font).boundingRect(text).width(); }

int VCCaption::CheckWidthOnSimilarString(QString & text, QString & old, int width, int /*unused*/)
{
    return CaptionLayout::WidthOnSimilarString(text, { old, width }, this->width(), isVisible(),
                                               [this](QString const & measured) { return MeasureText(measured); });
}

bool VCCaption::IsPictureCurrent() const
{
    return m_pPixmap && m_PaintedSize == size() && m_PaintedSpace == SpaceWidth() &&
           m_pPixmap->devicePixelRatio() == devicePixelRatioF();
}

int VCCaption::SpaceWidth() const { return m_pSpace ? m_pSpace->width() : 0; }

bool VCCaption::PreparePicture()
{
    if (!rect().isValid())
        return false;
    if (!isVisible()) {
        m_pPixmap.reset();
        return false;
    }
    if (!m_pPixmap || m_PaintedSize != size() || m_pPixmap->devicePixelRatio() != devicePixelRatioF())
        m_pPixmap = MakePicture(size(), devicePixelRatioF());
    return m_pPixmap != nullptr;
}

void VCCaption::BuildPixmap()
{
    if (!PreparePicture())
        return;
    m_LeftWidth = CheckWidthOnSimilarString(m_Left, m_LeftOld, m_LeftWidth, 0);
    m_RightWidth = CheckWidthOnSimilarString(m_Right, m_RightOld, m_RightWidth, 0);
    if (!m_IsCenterReserved)
        m_CenterWidth = CheckWidthOnSimilarString(m_Center, m_CenterOld, m_CenterWidth, 0);
    PaintPicture();
    m_PaintedSize = size();
    m_PaintedSpace = SpaceWidth();
}

void VCCaption::ShowChange()
{
    if (window()->isMinimized())
        m_pPixmap.reset(); // whoever looks at it nevertheless has it painted
    else
        BuildPixmap();
    update();
}

void VCCaption::PaintPicture()
{
    CaptionLayout::Places const places =
        CaptionLayout::PlaceTexts({ m_LeftWidth, m_CenterWidth, m_RightWidth }, width(), SpaceWidth());
    QColor const frame = m_HasFocus ? m_FocusFramePen.color() : m_NoFocusFramePen.color();
    QBrush const & ground = m_HasFocus ? m_FocusBrush : m_NoFocusBrush;
    // also what a screen of odd density shows only in part; opaque, as it covers what was there before
    m_pPixmap->fill(QColor(frame.red(), frame.green(), frame.blue()));
    QPainter painter(m_pPixmap.get());
    if (ground != QBrush(frame))
        painter.fillRect(rect().adjusted(1, 1, -1, -1), ground);
    painter.setFont(m_Font);
    painter.setPen(m_HasFocus ? m_FocusTextPen : m_NoFocusTextPen);
    if (places.left)
        painter.drawText(*places.left, m_BaseLine, m_Left);
    if (places.right)
        painter.drawText(*places.right, m_BaseLine, m_Right);
    if (m_HasFocus)
        painter.setPen(m_FocusCenterPen);
    if (places.center)
        painter.drawText(*places.center, m_BaseLine, m_Center);
}

void VCCaption::paintEvent(QPaintEvent * /*event*/)
{
    if (!IsPictureCurrent())
        BuildPixmap();
    QPainter painter(this);
    if (m_pPixmap)
        painter.drawPixmap(0, 0, *m_pPixmap);
    else
        painter.fillRect(rect(), Qt::gray);
}
