// SPDX-License-Identifier: MIT
#include "persistencepane.h"

#include "agedpalette.h"
#include "ageingcolors.h"
#include "agescale.h"
#include "azimuthview.h"
#include "directionfinder.h"
#include "framestats.h"
#include "frequencyaxis.h"
#include "guibase.h"
#include "guicentral.h"
#include "levelaxis.h"
#include "numbertexts.h"
#include "pixelstretch.h"
#include "resultmarker.h"
#include "signalquality.h"
#include "traceraster.h"
#include "vc.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int TopGap = 4;                // px, so that the topmost label of the levels is not cut
constexpr double GridPart = 0.6;         // of the grid colour in the ground
constexpr double BlackGridPart = 0.25;   // the same where the ground is black for the colours by quality
constexpr char BackgroundIndex = '\xff'; // in a line of the background, as the next
constexpr char MarkerIndex = '\xfe';
constexpr unsigned char Everything = 255; // to be cleared
constexpr qint64 MillisecondsASecond = 1000;

} // namespace

PersistencePane::PersistencePane(QWidget * parent)
    : RangePane(parent)
    , m_pLevelAxis(new LevelAxis(this))
    , m_pAgeScale(new AgeScale(this))
    , m_hold([this] { MakeImage(); })
    , m_quality([this] { TakeQuality(); })
    , m_ageing([this] { ApplyAgeing(); })
{
    SetLevelScale(m_pLevelAxis);
    setObjectName(QStringLiteral("persistencePane"));
    setAccessibleName(tr("Persistence"));
    m_hidden.start();
    AgeingColors::Fit(m_qualitySteps > 1);
    MakeImage();
    connect(&GuiBase::Instance(), &GuiBase::signalColorsChanged, this, &PersistencePane::slotColorsChanged);
}

PersistencePane::~PersistencePane() = default;

bool PersistencePane::SetHold_ValuePath(QString const & path)
{
    m_holdPath = path;
    return m_hold.Bind(path);
}

bool PersistencePane::SetQuality_ValuePath(QString const & path) { return m_quality.Bind(path); }

bool PersistencePane::SetAgeing_ValuePath(QString const & path)
{
    m_ageingPath = path;
    return BindAgeing();
}

//! This hears of the flag after the picture.
bool PersistencePane::BindAgeing()
{
    m_pImage->SetAgeingActive_ValuePath(m_ageingPath);
    bool const isBound = m_ageing.Bind(m_ageingPath);
    ApplyAgeing();
    return isBound;
}

//! An ageing image keeps a timer of every hold time that it was given: a new one has those that it needs.
void PersistencePane::MakeImage()
{
    m_pImage = std::make_unique<AgedImage>(this, true); // the grid shows through
    m_pImage->SetBackgroundColorObject(this);
    m_pImage->SetQualitySteps(m_qualitySteps);
    m_pImage->SetAgeingAxis(m_pAgeScale);
    m_pImage->SetAgeingSteps_ValuePath(m_holdPath);
    m_pImage->SetSteps(m_pImage->GetSteps()); // the colours a section are counted by the sections of the time before
    BindAgeing();
    LayImage();
    ShowAges();
    update();
}

//! What is set before the first step of a palette would go with it. Pixels that never fade have one index each: they
//! are laid over the new size.
void PersistencePane::LayImage()
{
    QSize const size = GetPictureRect().size();
    bool const isNothing = size.isEmpty() || size == QSize(m_pImage->width(), m_pImage->height());
    if (isNothing)
        return;
    QImage const before = IsEndless() && m_pImage->GetImage() ? m_pImage->GetImage()->copy() : QImage();
    m_pImage->resize(size.width(), size.height());
    m_pImage->SwitchColors();
    if (m_pImage->GetImage())
        PixelStretch::Lay(before, QRectF(QPointF(0.0, 0.0), size), AgedPalette::MarkerEntry, *m_pImage->GetImage());
}

//! Lays what is held over the present ranges and size.
void PersistencePane::LayHeld()
{
    QSize const size = GetPictureRect().size();
    m_heldView = QImage();
    if (m_kept.picture.isNull() || size.isEmpty())
        return;
    m_heldView = QImage(size, QImage::Format_Indexed8);
    if (m_heldView.isNull())
        return;
    m_heldView.setColorTable(m_kept.picture.colorTable());
    std::string const ground = GetBackgroundLine(size.width());
    for (int y = 0; y < size.height(); ++y)
        std::copy(ground.begin(), ground.end(), m_heldView.scanLine(y));
    FrequencyRange const view = GetFrequencyRange();
    double const columns = size.width() / view.span;                     // a hertz
    double const rows = size.height() / (GetLevelMax() - GetLevelMin()); // a decibel
    QRectF const place((m_kept.frequencies.start - view.start) * columns, (GetLevelMax() - m_kept.max) * rows,
                       m_kept.frequencies.span * columns, (m_kept.max - m_kept.min) * rows);
    PixelStretch::Lay(m_kept.picture, place, AgedPalette::MarkerEntry, m_heldView);
}

void PersistencePane::ApplyAgeing() { m_pImage->SetAgeing(m_ageing.Flag(true) && !m_held && !m_hidden.isValid()); }

void PersistencePane::TakeQuality()
{
    long const steps = m_quality.Key(1);
    bool const isKnown = steps == 2 || steps == 4 || steps == 8;
    m_qualitySteps = isKnown ? static_cast<int>(steps) : 1;
    AgeingColors::Fit(m_qualitySteps > 1);
    MakeImage();
}

//! What does not fade has one colour.
void PersistencePane::ShowAges()
{
    int const sections = m_pImage->GetSteps() < 1 ? 1 : AgedPalette::ScaleOf(m_pImage->GetSteps(), 1, 1).ticCount - 1;
    m_pAgeScale->SetAges(AgeingColors::Ages(sections, m_qualitySteps));
}

bool PersistencePane::IsOff() const { return m_pImage->GetSteps() == 0; }

bool PersistencePane::IsEndless() const { return m_pImage->GetSteps() < 0; }

void PersistencePane::SetSource(double duration)
{
    m_isLive = !(duration > 0.0);
    m_stream.Start(duration);
    MakeImage();
}

void PersistencePane::Clear()
{
    m_pImage->Clear(Everything);
    m_kept = Kept();
    LayHeld();
    update(LogicalPicture());
}

void PersistencePane::SetHeld(bool held)
{
    if (held == m_held)
        return;
    m_held = held;
    m_skip = true;
    m_kept = Kept();
    if (held && m_pImage->GetImage())
        m_kept = { m_pImage->GetImage()->copy(), m_imageFrequencies, m_imageMin, m_imageMax };
    LayHeld();
    ApplyAgeing();
    update(LogicalPicture());
}

void PersistencePane::AppendLines(std::vector<std::shared_ptr<SpectrumLine const>> const & lines)
{
    if (m_hidden.isValid())
        return;
    Refresh();
    if (GetPictureRect().isEmpty())
        return;
    for (auto const & line : lines) {
        if (!line)
            continue;
        if (m_skip || !m_pImage->GetAgeing())
            m_stream.Skip(line->seconds);
        m_skip = false;
        if (m_pImage->GetAgeing())
            DrawLine(*line);
    }
    if (IsOff())
        update(LogicalPicture()); // at once: the picture asks five times a second
}

void PersistencePane::DrawLine(SpectrumLine const & line)
{
    if (!m_isLive)
        m_pImage->SetCurrentTime(m_stream.Advance(line.seconds));
    if (IsOff())
        m_pImage->SwitchColors(); // a single colour: the step ends every pixel
    MarkCentre(line.centre);
    ++m_linesDrawn;
    m_map.Lay({ line.centre - line.span / 2.0, line.span }, line.levels.size(), GetFrequencyRange(), m_pImage->width());
    m_columns.resize(static_cast<std::size_t>(m_map.Columns()));
    m_map.Reduce(line.levels.data(), m_columns.data());
    double const noise = m_qualitySteps > 1 ? SignalQuality::NoiseLevel(line.levels) : 0.0;
    TraceRaster::LevelScale const scale{ GetLevelMin(), GetLevelMax(), m_pImage->height() };
    for (int x = 0; x < m_map.Columns(); ++x) {
        double const level = m_columns[static_cast<std::size_t>(x)];
        bool const isShown = level >= scale.bottom && level <= scale.top; // not for NaN
        if (isShown)
            m_pImage->SetPixel(x, TraceRaster::RowOf(scale, level),
                               SignalQuality::QualityOf(level, noise, m_qualitySteps));
    }
}

void PersistencePane::MarkCentre(double frequency)
{
    m_centre = frequency;
    int const column = ColumnOf(frequency);
    int const inPicture = column < 0 ? -1 : column - GetPictureRect().left();
    if (inPicture == m_centreColumn)
        return;
    m_centreColumn = inPicture;
    m_pImage->ResetBackground();
}

std::string PersistencePane::GetBackgroundLine(int width)
{
    std::string line(static_cast<std::size_t>(std::max(0, width)), BackgroundIndex);
    if (m_centreColumn >= 0 && m_centreColumn < width)
        line[static_cast<std::size_t>(m_centreColumn)] = MarkerIndex;
    return line;
}

void PersistencePane::ImageUpdated(AgedImage * image)
{
    bool const isOurs = image == m_pImage.get();
    if (isOurs && image->GetDirty() && isVisible())
        update(LogicalPicture());
}

PaneMargins PersistencePane::Margins() const
{
    return { LabelMargin(), fontMetrics().height() + TopGap, SideMargin(), FrequencyMargin() };
}

void PersistencePane::PlaceLevelScale(QRect const & picture)
{
    m_pLevelAxis->setGeometry(0, 0, picture.left(), picture.bottom() + 1);
    m_pLevelAxis->SetPictureSpan(picture.top(), picture.height());
    m_pAgeScale->setGeometry(picture.right() + 1, 0, width() - picture.right() - 1, picture.bottom() + 1);
    m_pAgeScale->SetPictureSpan(picture.top(), picture.height());
}

int PersistencePane::RowOf(double level) const { return m_rowMap.ToPixel(level); }

double PersistencePane::LevelAt(double row) const
{
    QRect const picture = GetPictureRect();
    double const part = (row - picture.top()) / std::max(1, picture.height());
    return MarkerHand::ButNoValue(GetLevelMax() - (GetLevelMax() - GetLevelMin()) * part);
}

//! The age scale stands where flags of level markers would: they have none.
QStringList PersistencePane::FlagTexts(int index) const
{
    Marker const * const marker = GetMarker(index);
    if ((marker->GetSpecial() & eSpecialY) != 0)
        return {};
    return { marker->GetMarkerName() + QLatin1Char(' ') +
             NumberTexts::FrequencyWithUnit(GetMarkerValue(index), HertzAPixel()) };
}

//! Flags would hide signals: only the selected result has one.
QStringList PersistencePane::ResultTexts(ResultMarker const & marker, bool selected) const
{
    return selected ? QStringList{ AzimuthView::Current().Text(marker.GetValue(DirectionFinder::eBearing), 1) }
                    : QStringList();
}

void PersistencePane::Rebuild()
{
    QRect const picture = GetPictureRect();
    PixelMap::Layout layout;
    layout.start = GetLevelMin();
    layout.stop = GetLevelMax();
    layout.direction = PixelMap::eVertical;
    layout.first = picture.top();
    layout.last = picture.bottom();
    m_rowMap = PixelMap(layout);
    bool const isSameSize = picture.size() == QSize(m_pImage->width(), m_pImage->height());
    bool const isSame = m_imageFrequencies == GetFrequencyRange() && m_imageMin == GetLevelMin() &&
                        m_imageMax == GetLevelMax() && (isSameSize || IsEndless());
    m_imageFrequencies = GetFrequencyRange();
    m_imageMin = GetLevelMin();
    m_imageMax = GetLevelMax();
    LayImage();
    MarkCentre(m_centre);
    if (!isSame)
        m_pImage->Clear(Everything);
    LayHeld();
    update();
}

//! The turn of the colours begins anew with other colours: pixels would show ages that are not theirs.
void PersistencePane::slotColorsChanged()
{
    if (AgeingColors::Fit(m_qualitySteps > 1))
        return; // this has been called again
    if (m_pImage->GetSteps() > 0)
        MakeImage();
    ShowAges();
    AskForRebuild();
}

//! What it held is as old as if it had been shown.
void PersistencePane::showEvent(QShowEvent * event)
{
    RangePane::showEvent(event);
    if (!m_hidden.isValid())
        return;
    qint64 const passed = m_hidden.elapsed();
    m_hidden.invalidate();
    ApplyAgeing();
    Age(passed);
}

void PersistencePane::hideEvent(QHideEvent * event)
{
    RangePane::hideEvent(event);
    m_hidden.start();
    ApplyAgeing();
}

//! The picture of a recording ages with its next line.
void PersistencePane::Age(qint64 milliseconds)
{
    int const stepTime = m_pImage->GetSwitchTime();
    if (!m_isLive || stepTime < 1 || !m_pImage->GetAgeing())
        return;
    if (milliseconds >= m_pImage->GetSteps() * MillisecondsASecond)
        m_pImage->Clear(Everything);
    else
        for (qint64 step = milliseconds / stepTime; step > 0; --step)
            m_pImage->SwitchColors();
}

//! The grid continues the tics of the scales. \param painter  its unit is the device pixel.
void PersistencePane::PaintGround(QPainter & painter)
{
    QRect const picture = GetPictureRect();
    painter.fillRect(QRect(QPoint(0, 0), DeviceSize()), GetColors().frame);
    QColor const ground(GuiCentral::Instance().GetBackgroundRGB(VC::eShadingAgeing));
    QColor const grid = PaneLayout::Mix(ground, GetColors().grid, m_qualitySteps > 1 ? BlackGridPart : GridPart);
    painter.fillRect(picture, ground);
    painter.setClipRect(picture);
    for (int const y : m_pLevelAxis->GetGridPixels())
        painter.fillRect(picture.left(), picture.top() + y, picture.width(), m_pLevelAxis->GetTicWidth(), grid);
    for (int const x : GetFrequencyAxis().GetGridPixels())
        painter.fillRect(picture.left() + x, picture.top(), GetFrequencyAxis().GetTicWidth(), picture.height(), grid);
}

void PersistencePane::paintEvent(QPaintEvent * event)
{
    Q_UNUSED(event)
    QElapsedTimer clock;
    clock.start();
    Refresh();
    QPainter painter(this);
    painter.save();
    painter.scale(1.0 / GetRatio(), 1.0 / GetRatio());
    PaintGround(painter);
    QImage const * const picture = m_heldView.isNull() ? m_pImage->GetImage() : &m_heldView;
    if (picture)
        m_expansion.Paint(painter, GetPictureRect().topLeft(), *picture);
    painter.restore();
    m_pImage->ClearDirty();
    PaintOver(painter);
    painter.end();
    if (Stats())
        Stats()->AddWork(clock.nsecsElapsed());
}
