// SPDX-License-Identifier: MIT
#ifndef ORIM_PERSISTANTSHADINGCOLORSET_H
#define ORIM_PERSISTANTSHADINGCOLORSET_H

#include "orimwidgets_export.h"
#include "persistant.h"

#include <QString>

class ShadingColorSet;

//! Keeps a colour set under a key of the configuration, as its line of text.
class ORIMWIDGETS_EXPORT PersistantShadingColorSet : public PersistantObject
{
public:
    //! \param set          borrowed, must live as long as this; null for none: nothing is then read or written.
    //! \param key          where the line is kept.
    //! \param defaultText  the line taken when the store has none, and by RestoreDefault().
    PersistantShadingColorSet(ShadingColorSet * set, QString key, QString defaultText);
    ~PersistantShadingColorSet() override;

    void Read(ICfg * store) override;
    void Write(ICfg * store) override;
    void RestoreDefault() override;

private:
    QString m_key;
    QString m_defaultText;
    ShadingColorSet * m_pSet; // borrowed
};

#endif
