// SPDX-License-Identifier: MIT
#ifndef ORIM_VALUEAGEDIMAGE_H
#define ORIM_VALUEAGEDIMAGE_H

#include "valuebase.h"

class IAgedImage;

//! A value that drives an ageing image. It holds the image for whoever feeds it, and has no content of its own.
class ORIMCONTRACTS_EXPORT ValueAgedImage : public ValueBase
{
public:
    explicit ValueAgedImage(QString const & name = QString(), TValueState state = eStateValid);
    ~ValueAgedImage() override;

    //! The image that is driven; null for none. Not owned: it must take itself back before it ends. Notifies code 3
    //! when it differs.
    void SetApplyAgedImage(IAgedImage * image);

    IAgedImage * GetApplyAgedImage() const { return m_pImage; }

    TValueType GetType() const override { return eTypeAgedImage; }

    //! Nothing is taken over. \return whether \a other is an image value.
    bool Assign(ValueBase const & other) override;
    //! Whether \a other drives the same image.
    bool Compare(ValueBase const * other) const override;
    //! False: an image has no text.
    bool SetStringValue(QString const & text, IObserver * except) override;
    QString GetStringValue() const override;
    QString ToStoredText() const override;
    bool FromStoredText(QString const & text, IObserver * except) override;

private:
    IAgedImage * m_pImage = nullptr;
};

#endif
