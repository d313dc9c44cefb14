// SPDX-License-Identifier: MIT
#ifndef ORIM_ICFG_H
#define ORIM_ICFG_H

#include "orimcontracts_export.h"

#include <QString>

//! A configuration store: texts under keys. What Persistant reads its items from and writes them to.
//!
//! A key is any text; "/" parts it into levels by custom only. Implementations: IniCfg (a file), MemoryCfg (tests and
//! previews), and whatever an application has.
class ORIMCONTRACTS_EXPORT ICfg
{
public:
    typedef int View; //!< which of several views of one store is meant; 0 is the ordinary one

    virtual ~ICfg();

    //! The text under a key.
    //! \return the stored text, an empty one included; \a fallback only when the key is not there.
    virtual QString ReadString(QString const & key, QString const & fallback) = 0;
    //! Puts a text under a key. It is read back at once; when it reaches the disk is told by Flush().
    virtual void WriteString(QString const & key, QString const & text) = 0;
    //! Makes what was written last beyond the end of the program. Persistant calls it once at the end of each Write.
    //! \return false when that failed: the texts stay readable, and the next Flush() tries again. True where there is
    //!         nothing to do, which is what this base answers.
    virtual bool Flush();
};

#endif
