// SPDX-License-Identifier: MIT
#ifndef ORIM_RANGESTEP_H
#define ORIM_RANGESTEP_H

#include <QString>
#include <QUndoCommand>

//! Step of undo that moves a range held by two values of the tree; a range that lies wholly beyond their limits is left
//! alone, since all that they could show of it is an edge. It is for what moves the range many times, such as
//! a drag: the step is pushed at the end, so that nothing that live data changed meanwhile is taken back with it.
class RangeStep : public QUndoCommand
{
public:
    struct Range
    {
        double start;
        double stop;

        bool operator==(Range const & other) const { return start == other.start && stop == other.stop; }
    };

    //! \param text       what the operator reads.
    //! \param startPath, stopPath  of the values.
    //! \param isRepeat   the step goes on with the one before, if that moves the same range: both become one.
    RangeStep(QString const & text, QString const & startPath, QString const & stopPath, Range before, Range after,
              bool isRepeat);
    ~RangeStep() override;

    void undo() override;
    void redo() override;
    int id() const override;
    bool mergeWith(QUndoCommand const * other) override;

private:
    void Write(Range range) const;

    QString m_startPath;
    QString m_stopPath;
    Range m_before;
    Range m_after;
    bool m_isRepeat;
};

#endif
