// SPDX-License-Identifier: MIT
#ifndef ORIM_IAGEDIMAGE_H
#define ORIM_IAGEDIMAGE_H

#include "lifetime.h"
#include "orimwidgets_export.h"

#include <string>

class AgedImage;
class QPoint;

//! A picture whose pixels age, for those who feed it without knowing its class. What the operations do stands at
//! AgedImage.
class ORIMWIDGETS_EXPORT IAgedImage
{
public:
    virtual void ensureSize(int width, int height) = 0;
    virtual void Initialize(int width, int height, int holdTime, int colorsPerSection, int sections,
                            int qualitySteps) = 0;
    virtual int width() const = 0;
    virtual int height() const = 0;
    virtual void SetPixel(unsigned char * bits, int bytesPerLine, int size, int quality) = 0;
    virtual void SetPixel(QPoint const & point, int quality) = 0;
    virtual void SetPixel(int x, int y, int quality) = 0;
    virtual void SwitchColors() = 0;
    virtual void SetCurrentTime(unsigned long long time) = 0;
    virtual void ClearAll() = 0;

protected:
    ~IAgedImage() = default; // nobody owns a picture by this
};

//! Who is asked, five times a second, whether it shows a picture anew. It may end before the picture.
class ORIMWIDGETS_EXPORT IAgedImageUpdate
{
public:
    IAgedImageUpdate() = default;
    IAgedImageUpdate(IAgedImageUpdate const & other) = default;
    IAgedImageUpdate & operator=(IAgedImageUpdate const & other) = default;
    virtual ~IAgedImageUpdate();

    //! AgedImage::GetDirty() tells whether the picture has changed. \param image  may be deleted in here.
    virtual void ImageUpdated(AgedImage * image) = 0;

    //! For a LifeWatch on this client.
    Lifetime const & GetUpdateLifetime() const { return m_lifetime; }

private:
    Lifetime m_lifetime;
};

//! Source of what lies behind the pixels of a picture: one line, which serves all rows. It may end before the picture,
//! which then has the plain background.
class ORIMWIDGETS_EXPORT IColorServer
{
public:
    IColorServer() = default;
    IColorServer(IColorServer const & other) = default;
    IColorServer & operator=(IColorServer const & other) = default;
    virtual ~IColorServer();

    //! \param width  of the picture, px. \return a palette index for each column: 255 for the background, 254 for the
    //!               marker colour. 255 fills what is missing; what is beyond the width is not used.
    virtual std::string GetBackgroundLine(int width) = 0;

    //! For a LifeWatch on this source.
    Lifetime const & GetServerLifetime() const { return m_lifetime; }

private:
    Lifetime m_lifetime;
};

#endif
