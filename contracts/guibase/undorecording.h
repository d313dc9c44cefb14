// SPDX-License-Identifier: MIT
#ifndef ORIM_UNDORECORDING_H
#define ORIM_UNDORECORDING_H

#include "orimcontracts_export.h"

#include <QString>

//! Base of what lets the operator change values: its changes can be undone.
class ORIMCONTRACTS_EXPORT UndoRecordingControlBase
{
public:
    UndoRecordingControlBase() = default;
    UndoRecordingControlBase(UndoRecordingControlBase const &) = default;
    UndoRecordingControlBase & operator=(UndoRecordingControlBase const &) = default;
    virtual ~UndoRecordingControlBase();

    //! What the operator reads of a change that was recorded without a description. Empty here.
    virtual QString GetUndoText() const;
};

//! Records the operator's change while it lives: all changes of values of the tree become one command on the undo stack
//! of GuiBase. Helpers nest; the inner ones fold into the outermost.
//!
//! The command keeps the paths of the values and what they held before and after. Undo and redo write that back, with
//! limits and observers as for any write; a value that has gone, or that stands there with another type, is left out. A
//! value that ends where it began is left out too, and without any value there is no command. What undo and redo cause
//! is not recorded. For the GUI thread.
class ORIMCONTRACTS_EXPORT GuiUndoRecordingHelper
{
public:
    //! \param control  who changes; only looked at here, for its GetUndoText(). May be null.
    //! \param text     description of the change. When it is empty, that of the control counts, then that of an inner
    //!                 helper, then "Change of " and the name of the value that changed first.
    GuiUndoRecordingHelper(UndoRecordingControlBase const * control, QString const & text);
    GuiUndoRecordingHelper(GuiUndoRecordingHelper const &) = delete;
    GuiUndoRecordingHelper & operator=(GuiUndoRecordingHelper const &) = delete;
    ~GuiUndoRecordingHelper();
};

#endif
