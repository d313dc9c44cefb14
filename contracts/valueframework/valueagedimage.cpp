// SPDX-License-Identifier: MIT
#include "valueagedimage.h"

ValueAgedImage::ValueAgedImage(QString const & name, TValueState state) : ValueBase(name, state) {}

ValueAgedImage::~ValueAgedImage() { GoAway(); }

void ValueAgedImage::SetApplyAgedImage(IAgedImage * image)
{
    if (image == m_pImage)
        return;
    m_pImage = image;
    HasChanged(eValueChanged, nullptr);
}

bool ValueAgedImage::Assign(ValueBase const & other) { return dynamic_cast<ValueAgedImage const *>(&other); }

bool ValueAgedImage::Compare(ValueBase const * other) const
{
    auto const * const image = dynamic_cast<ValueAgedImage const *>(other);
    return image && image->m_pImage == m_pImage;
}

bool ValueAgedImage::SetStringValue(QString const & /*text*/, IObserver * /*except*/) { return false; }

QString ValueAgedImage::GetStringValue() const { return QString(); }

QString ValueAgedImage::ToStoredText() const { return QString(); }

bool ValueAgedImage::FromStoredText(QString const & /*text*/, IObserver * /*except*/) { return false; }
