// SPDX-License-Identifier: MIT
#ifndef ORIM_MEMORYCFG_H
#define ORIM_MEMORYCFG_H

#include "icfg.h"

#include <QMap>
#include <QStringList>

//! A store that forgets at its end, for tests and previews.
class ORIMCONTRACTS_EXPORT MemoryCfg : public ICfg
{
public:
    QString ReadString(QString const & key, QString const & fallback) override;
    void WriteString(QString const & key, QString const & text) override;

    bool Contains(QString const & key) const;
    QStringList GetKeys() const; //!< sorted
    void Clear();

private:
    QMap<QString, QString> m_texts;
};

#endif
