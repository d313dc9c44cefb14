// SPDX-License-Identifier: MIT
#include "agedimage.h"

#include "agedpalette.h"
#include "axisbase.h"
#include "colorset.h"
#include "guibase.h"
#include "guicentral.h"
#include "indexsweep.h"
#include "krexception.h"
#include "replayonbinding.h"
#include "toint.h"
#include "tree.h"
#include "valueagedimage.h"
#include "valueselection.h"
#include "vc.h"
#include "vectorstate.h"

#include <QPoint>
#include <QTimerEvent>

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace {

constexpr int NoTimer = -1;
constexpr int UpdatePeriod = 200; // ms
constexpr unsigned char Background = AgedPalette::BackgroundEntry;
constexpr char BackgroundByte = static_cast<char>(Background);
constexpr unsigned int NoFitCode = 0xffffffffU; // -1

QRgb MarkerColor() { return ColorSet::Instance()[IColorBase::eColorAgedMarker].rgb(); }

AgedPalette::ColorOfValue ShadingColor(VC::EShadingColor id)
{
    return [id](double value, double max) { return GuiCentral::Instance().GetShadingRGB(value, id, 0.0, max, true); };
}

} // namespace

AgedImage::AgedImage(IAgedImageUpdate * update) : AgedImage(update, false) {}

AgedImage::AgedImage(IAgedImageUpdate * update, bool transparentBackground)
    : m_TransparentBackground(transparentBackground)
    , m_pUpdate(update)
{
    if (m_pUpdate)
        m_updateLife = LifeWatch(m_pUpdate->GetUpdateLifetime());
    int const ticCount = UpdateAxis();
    SetHoldTime(m_Steps, m_ColorsPerSection, ticCount - 1);
    connect(&GuiBase::Instance(), SIGNAL(signalColorsChanged()), this, SLOT(slotSetColorGradingPen()));
}

AgedImage::~AgedImage()
{
    LetGoOfDriver();
    LetGo(m_pAgeingActive);
    LetGo(m_pAgeingSteps);
}

// The picture

void AgedImage::DropImage()
{
    m_pImage.reset();
    m_Dirty = true;
}

//! \return false, and the picture stays, when there is no room for it.
bool AgedImage::MakeImage(int width, int height)
{
    auto image = std::make_unique<QImage>(width, height, QImage::Format_Indexed8);
    if (image->isNull())
        return false;
    image->fill(Background);
    m_pImage = std::move(image);
    ApplyColors2Image();
    return true;
}

void AgedImage::resize(int width, int height)
{
    if (width < 1 || height < 1 || static_cast<long long>(width) * height > m_sMostPixels)
        return;
    if (m_pImage && m_pImage->size() != QSize(width, height))
        DropImage();
    if (!m_pImage && !MakeImage(width, height))
        return;
    if (BuildPalette())
        Wipe(Background);
}

void AgedImage::ensureSize(int width, int height)
{
    if (!m_pImage || m_pImage->size() != QSize(width, height))
        resize(width, height);
}

void AgedImage::Initialize(int width, int height, int holdTime, int colorsPerSection, int sections, int qualitySteps)
{
    LifeWatch const life(GetObserverLifetime());
    resize(width, height);
    if (!life.IsOver())
        SetHoldTime(holdTime, colorsPerSection, sections);
    if (life.IsOver())
        return;
    m_QualitySteps = qualitySteps;
    if (Wipe(Background) && BuildPalette())
        Wipe(Background);
}

void AgedImage::ClearAll()
{
    if (!m_pImage)
        return;
    QSize const size = m_pImage->size();
    DropImage();
    resize(size.width(), size.height());
}

void AgedImage::reset() { ClearAll(); }

int AgedImage::width() const { return m_pImage ? m_pImage->width() : -1; }

int AgedImage::height() const { return m_pImage ? m_pImage->height() : -1; }

QImage * AgedImage::GetImage() { return m_pImage.get(); }

void AgedImage::SetBackgroundColorObject(IColorServer * background)
{
    m_pBackground = background;
    m_backgroundLife = background ? LifeWatch(background->GetServerLifetime()) : LifeWatch();
}

// Pixels

void AgedImage::SetPixel(int x, int y, int quality)
{
    if (!m_Ageing || !m_pImage || !m_pImage->rect().contains(x, y))
        return;
    int const index = AgedPalette::PixelIndex(m_CurrentColor, m_ColorsPerQualityStep, m_QualitySteps, quality);
    if (index < 0)
        return;
    m_pImage->scanLine(y)[x] = static_cast<unsigned char>(index);
    m_Dirty = true;
}

void AgedImage::SetPixel(QPoint const & point, int quality) { SetPixel(point.x(), point.y(), quality); }

void AgedImage::SetPixel(unsigned char * data, unsigned int /*unused*/)
{
    if (!m_Ageing || !m_pImage || !data)
        return;
    constexpr int Leave = -1;
    std::array<int, 256> indices{};
    indices[0] = Leave;
    for (int byte = 1; byte < 256; ++byte)
        indices[static_cast<std::size_t>(byte)] =
            m_QualitySteps > 1 && byte > m_QualitySteps
                ? Leave
                : AgedPalette::PixelIndex(m_CurrentColor, m_ColorsPerQualityStep, m_QualitySteps, byte - 1);
    CleanVectorState();
    bool isWritten = false;
    unsigned char const * source = data;
    for (int y = 0; y < m_pImage->height(); ++y) {
        unsigned char * const row = m_pImage->scanLine(y);
        for (int x = 0; x < m_pImage->width(); ++x, ++source) {
            int const index = indices[*source];
            if (index == Leave)
                continue;
            row[x] = static_cast<unsigned char>(index);
            isWritten = true;
        }
    }
    m_Dirty = m_Dirty || isWritten;
}

void AgedImage::SetPixel(unsigned char * bits, int bytesPerLine, int size, int quality)
{
    if (!m_Ageing || !m_pImage || !bits)
        return;
    int const columns = m_pImage->width();
    int const rows = m_pImage->height();
    if (8LL * bytesPerLine < columns || size != static_cast<long long>(rows) * bytesPerLine)
        return;
    for (int y = 0; y < rows; ++y) {
        unsigned char const * const line = bits + static_cast<std::ptrdiff_t>(y) * bytesPerLine;
        for (int x = 0; x < columns; ++x)
            if ((line[x / 8] >> (x % 8) & 1) != 0)
                SetPixel(x, y, quality);
    }
}

// Ageing

void AgedImage::SwitchColors()
{
    if (m_ColorsPerQualityStep < 1)
        return;
    m_ColorPosition = AgedPalette::PositionAfter(m_ColorPosition, m_ColorsPerQualityStep);
    m_CurrentColor = AgedPalette::CurrentColor(m_ColorPosition, m_ColorsPerQualityStep);
    ApplyColors2Image();
    Wipe(static_cast<unsigned char>(m_CurrentColor));
}

void AgedImage::SetCurrentTime(unsigned long long time)
{
    StopSwitchTimer();
    unsigned long long const now = time / 1000;
    unsigned long long const last = m_LastTime;
    if (last == 0 || now < last) {
        m_LastTime = now;
        if (now < last)
            Wipe(Background);
        return;
    }
    if (m_SwitchTime < 1)
        return;
    unsigned long long const steps = (now - last) / static_cast<unsigned long long>(m_SwitchTime);
    if (steps < 1)
        return;
    m_LastTime = now;
    m_Dirty = true;
    LifeWatch const life(GetObserverLifetime());
    for (int i = AgedPalette::EqualSteps(steps, m_ColorsPerQualityStep); i > 0 && !life.IsOver(); --i)
        SwitchColors();
}

void AgedImage::SetAgeing(bool on)
{
    m_Ageing = on;
    m_Dirty = true;
}

void AgedImage::SetSteps(int steps)
{
    if (!Wipe(Background))
        return;
    m_Steps = steps;
    int const ticCount = UpdateAxis();
    if (steps < 1)
        SetHoldTime(0, 1, 1);
    else
        SetHoldTime(steps, m_ColorsPerSection, ticCount - 1);
}

void AgedImage::SetQualitySteps(int steps)
{
    m_QualitySteps = steps;
    if (Wipe(Background))
        BuildPalette();
}

void AgedImage::SetHoldTime(int seconds, int colorsPerSection, int sections)
{
    if (!Wipe(Background))
        return;
    m_Sections = sections;
    m_ColorsPerSection = colorsPerSection;
    m_SwitchTime = AgedPalette::SwitchTime(seconds, colorsPerSection, sections);
    StopSwitchTimer();
    if (m_SwitchTime > 0)
        m_SwitchTimerId = startTimer(m_SwitchTime);
    m_UpdateTimerId = startTimer(UpdatePeriod); // the one before runs on, unheard
    BuildPalette();
}

void AgedImage::StopSwitchTimer()
{
    if (m_SwitchTimerId > 0) // 0 is a timer that could not be started
        killTimer(m_SwitchTimerId);
    m_SwitchTimerId = NoTimer;
}

void AgedImage::timerEvent(QTimerEvent * event)
{
    if (!m_Ageing)
        return;
    if (event->timerId() == m_SwitchTimerId) {
        m_Dirty = true; // this may end in either call
        SwitchColors();
    } else if (event->timerId() == m_UpdateTimerId && !m_updateLife.IsOver()) {
        m_pUpdate->ImageUpdated(this);
    }
}

void AgedImage::SetAgeingAxis(AxisBase * axis)
{
    m_pAgeingAxis = axis;
    UpdateAxis();
}

//! \return the number of tics.
int AgedImage::UpdateAxis()
{
    AgedPalette::Scale const scale = AgedPalette::ScaleOf(m_Steps, m_Sections, m_QualitySteps);
    m_ColorsPerSection = scale.colorsPerSection;
    if (m_pAgeingAxis) {
        m_pAgeingAxis->SetDefaultRange(0.0, scale.seconds);
        m_pAgeingAxis->SetDeviceRange(0.0, 0.0);
        m_pAgeingAxis->SetMustRecalcRulers(true);
        m_pAgeingAxis->SetFixedRange(0.0, scale.seconds, scale.ticCount, 0, 0, 0.0, scale.ticDistance);
    }
    return scale.ticCount;
}

// Clearing

void AgedImage::Clear(unsigned char index) { Wipe(index); }

bool AgedImage::Wipe(unsigned char index)
{
    if (!m_pImage)
        return true;
    if (!FetchBackgroundLine())
        return false;
    if (!m_pImage) // the source of the line could do anything
        return true;
    m_Dirty = true;
    if (index == Background && m_backgroundLife.IsOver())
        m_pImage->fill(Background);
    else if (index == Background)
        IndexSweep::CopyLine(m_pImage->bits(), m_pImage->bytesPerLine(), m_pImage->size(), BackgroundLine());
    else
        IndexSweep::Replace(m_pImage->bits(), m_pImage->bytesPerLine(), m_pImage->size(),
                            m_QualitySteps > 1 ? IndexSweep::HitEvery(index, m_ColorsPerQualityStep)
                                               : IndexSweep::HitOne(index),
                            BackgroundLine());
    return true;
}

//! The line is as long as the picture is wide.
bool AgedImage::FetchBackgroundLine()
{
    if (m_backgroundLife.IsOver()) {
        m_BackgroundLine.assign(static_cast<std::size_t>(width()), BackgroundByte);
        return true;
    }
    LifeWatch const life(GetObserverLifetime());
    std::string line = m_pBackground->GetBackgroundLine(width());
    if (life.IsOver())
        return false;
    line.resize(m_pImage ? static_cast<std::size_t>(width()) : 0, BackgroundByte);
    m_BackgroundLine = std::move(line);
    return true;
}

unsigned char const * AgedImage::BackgroundLine() const
{
    return reinterpret_cast<unsigned char const *>(m_BackgroundLine.data());
}

void AgedImage::ResetBackground()
{
    if (!m_pImage || m_backgroundLife.IsOver() || !FetchBackgroundLine() || !m_pImage)
        return;
    IndexSweep::Replace(m_pImage->bits(), m_pImage->bytesPerLine(), m_pImage->size(),
                        IndexSweep::HitFrom(AgedPalette::MarkerEntry), BackgroundLine());
    m_Dirty = true;
}

// Colours

void AgedImage::slotSetColorGradingPen()
{
    AgedPalette::Grading grading{ m_Sections, m_ColorsPerSection, m_QualitySteps, m_SwitchTime };
    if (!sender() || AgedPalette::Fit(grading)) // nobody could catch what goes through a signal
        BuildPalette();
}

bool AgedImage::BuildPalette()
{
    AgedPalette::Grading grading{ m_Sections, m_ColorsPerSection, m_QualitySteps, m_SwitchTime };
    if (!AgedPalette::Fit(grading))
        throw KRException(std::string("AgedImage: m_QualitySteps * m_ColorsPerQualityStep > 254!"), "AgedImage",
                          "controls/orimwidgets/agedimage", "slotSetColorGradingPen", __LINE__, NoFitCode);
    LifeWatch const life(GetObserverLifetime());
    std::vector<unsigned int> colors(m_Colors);
    colors.resize(AgedPalette::Size);
    AgedPalette::Paint(grading, ShadingColor(VC::eShadingAgeing), ShadingColor(VC::eShadingQuality), colors);
    colors[AgedPalette::BackgroundEntry] = m_TransparentBackground
                                               ? QColor(0, 0, 0, 0).rgba()
                                               : GuiCentral::Instance().GetBackgroundRGB(VC::eShadingAgeing);
    colors[AgedPalette::MarkerEntry] = MarkerColor();
    if (life.IsOver()) // an empty colour set has the colours restored, and everybody told
        return false;
    m_Colors = std::move(colors);
    m_ColorsPerSection = grading.colorsPerSection;
    m_ColorsPerQualityStep = grading.colorsPerQualityStep;
    m_SwitchTime = grading.switchTime;
    m_ColorPosition = 0;
    m_CurrentColor = 0;
    ApplyColors2Image();
    return true;
}

void AgedImage::ApplyColors2Image()
{
    m_Dirty = true;
    if (!m_pImage)
        return;
    m_pImage->setColorCount(AgedPalette::Size);
    int const length = m_ColorsPerQualityStep;
    int const blocks = length > 0 ? std::clamp(m_QualitySteps, 1, AgedPalette::MarkerEntry / length) : 0;
    for (int first = 0; first < blocks * length; first += length)
        for (int age = 0; age < length; ++age) {
            int const entry = first + age;
            m_pImage->setColor(first + AgedPalette::IndexOfAge(age, m_ColorPosition, length),
                               m_Colors[static_cast<std::size_t>(entry)]);
        }
    m_Colors[AgedPalette::MarkerEntry] = MarkerColor();
    m_pImage->setColor(AgedPalette::MarkerEntry, m_Colors[AgedPalette::MarkerEntry]);
    m_pImage->setColor(AgedPalette::BackgroundEntry, m_Colors[AgedPalette::BackgroundEntry]);
}

// Values of the tree

template <class T>
bool AgedImage::Attach(T *& field, QString const & path)
{
    Tree const * const tree = Tree::Instance();
    T * const value = tree ? tree->FindAs<T>(path) : nullptr;
    if (!value || !value->AddObserver(this))
        return false;
    field = value;
    return true;
}

template <class T>
bool AgedImage::Bind(T *& field, QString const & path)
{
    LetGo(field);
    if (!Attach(field, path))
        return false;
    LifeWatch const life(GetObserverLifetime());
    ReplayOnBinding(field, this);
    return !life.IsOver() && field;
}

template <class T>
void AgedImage::LetGo(T *& field)
{
    if (field)
        field->DeleteObserver(this);
    field = nullptr;
}

//! The value is told last: whoever hears of it may delete this.
void AgedImage::LetGoOfDriver()
{
    ValueAgedImage * const value = m_pValue;
    LetGo(m_pValue);
    if (value && value->GetApplyAgedImage() == this)
        value->SetApplyAgedImage(nullptr);
}

void AgedImage::LetGoOf(Observable * subject)
{
    if (subject == m_pAgeingActive && m_pAgeingActive->GetState() == eStateGoingAway)
        LetGo(m_pAgeingActive);
    else if (subject == m_pAgeingSteps && m_pAgeingSteps->GetState() == eStateGoingAway)
        LetGo(m_pAgeingSteps);
    else if (subject == m_pValue && m_pValue->GetState() == eStateGoingAway)
        LetGoOfDriver();
}

bool AgedImage::SetAgeingActive_ValuePath(QString const & path) { return Bind(m_pAgeingActive, path); }

bool AgedImage::SetAgeingSteps_ValuePath(QString const & path) { return Bind(m_pAgeingSteps, path); }

bool AgedImage::Set_ValuePath(QString const & path)
{
    LifeWatch const life(GetObserverLifetime());
    LetGoOfDriver();
    if (life.IsOver() || !Attach(m_pValue, path))
        return false;
    m_pValue->SetApplyAgedImage(this);
    if (life.IsOver() || !m_pValue || !Wipe(Background) || !m_pValue)
        return false;
    StopSwitchTimer();
    m_Dirty = true;
    ReplayOnBinding(m_pValue, this);
    return !life.IsOver() && m_pValue;
}

void AgedImage::Update(Observable * subject, TChangeCode code)
{
    if (!subject)
        return;
    if (code == eStateChanged)
        LetGoOf(subject);
    else if (code == eValueChanged && subject == m_pAgeingActive)
        SetAgeing(m_pAgeingActive->GetValue());
    else if (code == eValueChanged && subject == m_pAgeingSteps)
        SetSteps(toInt(m_pAgeingSteps->GetCurrentValue()));
}
