// SPDX-License-Identifier: MIT
#include "memorycfg.h"

QString MemoryCfg::ReadString(QString const & key, QString const & fallback) { return m_texts.value(key, fallback); }

void MemoryCfg::WriteString(QString const & key, QString const & text)
{
    m_texts.insert(key, text.isNull() ? QString(QLatin1String("")) : text);
}

bool MemoryCfg::Contains(QString const & key) const { return m_texts.contains(key); }

QStringList MemoryCfg::GetKeys() const { return m_texts.keys(); }

void MemoryCfg::Clear() { m_texts.clear(); }
