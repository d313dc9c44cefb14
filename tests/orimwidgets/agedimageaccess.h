// SPDX-License-Identifier: MIT
#ifndef ORIM_AGEDIMAGEACCESS_H
#define ORIM_AGEDIMAGEACCESS_H

#include "agedimage.h"
#include "tree.h"

#include <QCoreApplication>
#include <QTimerEvent>
#include <QVector>

#include <functional>

//! An ageing picture that shows its state to a test.
class AgedImageAccess : public AgedImage
{
public:
    explicit AgedImageAccess(IAgedImageUpdate * update = nullptr, bool transparent = false)
        : AgedImage(update, transparent)
    {}

    AgedImageAccess(int width, int height, int qualitySteps = 1) : AgedImage(nullptr)
    {
        resize(width, height);
        if (qualitySteps != 1)
            SetQualitySteps(qualitySteps);
        ClearDirty();
    }

    int Position() const { return m_ColorPosition; }

    int Current() const { return m_CurrentColor; }

    int Count() const { return m_ColorsPerQualityStep; }

    int Sections() const { return m_Sections; }

    int ColorsPerSection() const { return m_ColorsPerSection; }

    int SwitchTimer() const { return m_SwitchTimerId; }

    int UpdateTimer() const { return m_UpdateTimerId; }

    unsigned long long LastTime() const { return m_LastTime; }

    std::vector<unsigned int> const & Colors() const { return m_Colors; }

    std::string const & Line() const { return m_BackgroundLine; }

    bool IsBound() const { return m_pAgeingActive || m_pAgeingSteps || m_pValue; }

    int At(int x, int y) const { return m_pImage->pixelIndex(x, y); }

    //! Palette entry of an index.
    QRgb Entry(int index) const { return m_pImage->color(index); }

    //! Pixels that are not background.
    int SetPixels() const
    {
        int count = 0;
        for (int y = 0; y < m_pImage->height(); ++y)
            for (int x = 0; x < m_pImage->width(); ++x)
                count += At(x, y) != 255 ? 1 : 0;
        return count;
    }

    //! The event of a timer.
    void Tick(int id)
    {
        QTimerEvent event(id);
        QCoreApplication::sendEvent(this, &event);
    }

    void SwitchColors() override
    {
        ++m_switches;
        AgedImage::SwitchColors();
    }

    int m_switches = 0;
};

using Indices = QVector<int>;

inline Indices RowOf(AgedImageAccess const & image, int y)
{
    Indices row;
    for (int x = 0; x < image.width(); ++x)
        row << image.At(x, y);
    return row;
}

//! Steps until the palette has turned by some.
inline void Turn(AgedImageAccess & image, int steps)
{
    for (int i = 0; i < steps; ++i)
        image.SwitchColors();
}

//! Counts how often it is asked to show a picture.
class CountingClient : public IAgedImageUpdate
{
public:
    void ImageUpdated(AgedImage * image) override
    {
        ++m_asked;
        m_pLast = image;
        if (m_then)
            m_then();
    }

    int m_asked = 0;
    AgedImage * m_pLast = nullptr;
    std::function<void()> m_then;
};

//! Gives the line that it is told.
class LineServer : public IColorServer
{
public:
    explicit LineServer(std::string const & line = std::string()) : m_line(line) {}

    std::string GetBackgroundLine(int width) override
    {
        ++m_asked;
        m_width = width;
        std::string line = m_line; // this may end below
        if (m_then)
            m_then();
        return line;
    }

    std::string m_line;
    int m_asked = 0;
    int m_width = 0;
    std::function<void()> m_then;
};

//! A value of the tree below "/aged", for the length of a test.
template <class T>
T * PlantAged(char const * name)
{
    auto * const value = new T(QLatin1String(name));
    Tree::Instance()->Insert(QStringLiteral("/aged"), value);
    return value;
}

inline QString AgedPath(char const * name) { return QStringLiteral("/aged/") + QLatin1String(name); }

#endif
