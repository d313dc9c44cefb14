// SPDX-License-Identifier: MIT
#ifndef ORIM_AGEDIMAGE_H
#define ORIM_AGEDIMAGE_H

#include "iagedimage.h"
#include "lifetime.h"
#include "observable.h"
#include "orimwidgets_export.h"
#include "value.h"

#include <QImage>
#include <QObject>
#include <QPointer>
#include <QString>

#include <memory>
#include <string>
#include <vector>

class AxisBase;
class ValueAgedImage;
class ValueSelection;

//! A picture in which every pixel fades with time and disappears after a hold time: fresh signal points over older
//! ones. A pixel keeps its palette index while the colour behind that index grows old, so that a step of time costs one
//! palette and one sweep over the pixels, whatever there is to see. A pixel may have a quality as well: the palette is
//! then cut into a block of colours for each quality.
//!
//! The clock drives the ageing, or SetCurrentTime() does. Nothing is painted: a client looks at GetDirty() when it is
//! asked, five times a second, and shows GetImage(). Palette entry 254 is the colour of a marker, 255 the background.
//!
//! The blocks may have 254 colours in all; a setting with more gets half of its colours a section, at half the pace.
//! One that does not fit then either is told by a KRException with the code -1, by whichever operation builds the
//! palette: resize() and what calls it, Initialize(), SetHoldTime(), SetSteps(), SetQualitySteps(),
//! slotSetColorGradingPen(), or the choice of a bound hold time. What was set stays set, and so the next of them fails
//! likewise; the palette stays as it was, and no colours are halved and no time is doubled. SetHoldTime() and
//! SetSteps() have started the clock at its new pace by then. A change of colours leaves such an object alone, its
//! background too. For the GUI thread.
class ORIMWIDGETS_EXPORT AgedImage : public QObject, public IObserver, public IAgedImage
{
    Q_OBJECT
public:
    //! Without a picture; 4 s of hold time. \param update  the client; null for none.
    explicit AgedImage(IAgedImageUpdate * update);
    //! \param transparentBackground  the background has no colour.
    AgedImage(IAgedImageUpdate * update, bool transparentBackground);
    //! Takes itself back from the bound value.
    ~AgedImage() override;

    // The picture

    //! Makes an empty picture; the pointer of GetImage() changes with the size. Nothing happens with a width or height
    //! below 1, nor above m_sMostPixels pixels: the picture stays. Without the memory for it there is none.
    virtual void resize(int width, int height);
    //! Takes a byte for each pixel, row by row without padding: 0 leaves a pixel as it is, another number sets it, to
    //! the quality one below it when there are several; a number above them leaves the pixel. Null is ignored.
    //! \param data  width() * height() bytes. \param unused  any number.
    virtual void SetPixel(unsigned char * data, unsigned int unused);
    //! Indexed8; null while there is none. It must not be shared with another QImage: the next step would copy it.
    virtual QImage * GetImage();
    //! Sets what lies behind the pixels from the next clearing on; null for the plain background. Not owned.
    virtual void SetBackgroundColorObject(IColorServer * background);

    //! resize(), unless the picture has that size.
    void ensureSize(int width, int height) override;
    //! resize(), SetHoldTime() with the quality steps as they were, then SetQualitySteps().
    void Initialize(int width, int height, int holdTime, int colorsPerSection, int sections, int qualitySteps) override;
    //! px; -1 while there is no picture.
    int width() const override;
    int height() const override;
    //! Makes the picture anew, at its size.
    void ClearAll() override;
    void reset();

    static constexpr long long m_sMostPixels = 1LL << 28; //!< 256 MiB

    // Pixels. While ageing is off, or without a picture, nothing is set.

    //! Takes a bit for each pixel, the lowest bit of a byte first. \param bytesPerLine  of the bits; has room for
    //! the width. \param size  bytes; height() lines. Other sizes, and null, are ignored.
    void SetPixel(unsigned char * bits, int bytesPerLine, int size, int quality) override;
    void SetPixel(QPoint const & point, int quality) override;
    //! Ignored outside the picture. What is set before the first step of a new palette has its oldest colour, and goes
    //! with that step. \param quality  0 and up; one that there is not counts as the last one.
    void SetPixel(int x, int y, int quality) override;

    // Ageing

    //! One step: all pixels grow older, and the oldest ones go.
    void SwitchColors() override;
    //! Lets a stream of data drive the ageing in place of the clock, up to the next SetHoldTime(). Steps that are not
    //! full wait for the next call; a time before the last one clears the picture.
    //! \param time  of the data, us; 0 to 999 counts as none.
    void SetCurrentTime(unsigned long long time) override;

    //! Off: no pixel is set, the clock stands still, and nobody is asked to show the picture; SwitchColors() and
    //! SetCurrentTime() go on. On at the start.
    void SetAgeing(bool on);

    bool GetAgeing() const { return m_Ageing; }

    //! Sets the hold time and clears the picture. \param steps  s; below 1 pixels stay until they are cleared.
    void SetSteps(int steps);

    int GetSteps() const { return m_Steps; }

    //! Sets the number of blocks and clears the picture. \param steps  below 2: one, and no quality is heard.
    void SetQualitySteps(int steps);

    int GetQualitySteps() const { return m_QualitySteps; }

    //! Sets hold time and colours of a block, clears the picture and starts the clock anew.
    //! \param seconds  cut into one step for each colour; below 1 the clock stands still.
    //! \param colorsPerSection, sections  below 1 there are no colours: no time passes.
    void SetHoldTime(int seconds, int colorsPerSection, int sections);

    //! Time of one step, ms.
    int GetSwitchTime() const { return m_SwitchTime; }

    //! An axis that shows the hold time: from 0 to it, with tics that stay; its zoom history goes. Not owned; may be
    //! null. The colours of a section are counted anew, for the next palette.
    void SetAgeingAxis(AxisBase * axis);

    // To show it

    //! Whether the picture has changed since ClearDirty().
    bool GetDirty() const { return m_Dirty; }

    void ClearDirty() { m_Dirty = false; }

    //! Gives back to the background all pixels of an index, in each block when there are several; 255 gives it all.
    void Clear(unsigned char index);
    //! Takes the background anew, under the pixels that are set; without a source of it nothing happens.
    void ResetBackground();

    //! Does nothing.
    void SetDebugPattern() {}

    // Values of the tree, by path. \return whether there is such a value.

    //! A bool: SetAgeing().
    bool SetAgeingActive_ValuePath(QString const & path);
    //! A selection whose number is the hold time: SetSteps().
    bool SetAgeingSteps_ValuePath(QString const & path);
    //! An image value, which feeds this from now on, and drives the ageing: the clock stops up to the next
    //! SetHoldTime().
    bool Set_ValuePath(QString const & path);

    void Update(Observable * subject, TChangeCode code) override;

public Q_SLOTS:
    //! Builds the palette anew, and puts its turn back to the start. Connected to the colours' signal. A signal has no
    //! one to catch an exception: called by one, it leaves alone what does not fit.
    void slotSetColorGradingPen();

protected:
    void timerEvent(QTimerEvent * event) override;

private:
    friend class AgedImageAccess; // tests look inside with it

    // These tell whether this still lives.
    bool Wipe(unsigned char index);
    bool FetchBackgroundLine();
    bool BuildPalette();

    void ApplyColors2Image();
    int UpdateAxis();
    bool MakeImage(int width, int height);
    void DropImage();
    void StopSwitchTimer();
    unsigned char const * BackgroundLine() const;

    template <class T>
    bool Attach(T *& field, QString const & path);
    template <class T>
    bool Bind(T *& field, QString const & path);
    template <class T>
    void LetGo(T *& field);
    void LetGoOfDriver();
    void LetGoOf(Observable * subject);

    std::unique_ptr<QImage> m_pImage;
    bool m_TransparentBackground;
    bool m_Ageing = true;
    std::vector<unsigned int> m_Colors; // by age, 256
    int m_Sections = 4;
    int m_ColorPosition = 0; // turn of the palette, 0 .. m_ColorsPerQualityStep - 1
    int m_CurrentColor = 0;  // index of a new pixel in the first block
    int m_SwitchTimerId = -1;
    int m_UpdateTimerId = -1; // of the last SetHoldTime(); those before run on unheard
    int m_Steps = 4;          // s
    int m_QualitySteps = 1;
    int m_ColorsPerQualityStep = 8;
    IAgedImageUpdate * m_pUpdate; // borrowed
    LifeWatch m_updateLife;       // of m_pUpdate
    QPointer<AxisBase> m_pAgeingAxis;
    Value<bool> * m_pAgeingActive = nullptr; // borrowed from the tree, as the next two
    ValueSelection * m_pAgeingSteps = nullptr;
    ValueAgedImage * m_pValue = nullptr;
    int m_SwitchTime = 500; // ms
    int m_ColorsPerSection = 2;
    unsigned long long m_LastTime = 0; // ms; 0: none
    bool m_Dirty = true;
    IColorServer * m_pBackground = nullptr; // borrowed
    LifeWatch m_backgroundLife;             // of m_pBackground
    std::string m_BackgroundLine;           // a palette index for each column
};

#endif
