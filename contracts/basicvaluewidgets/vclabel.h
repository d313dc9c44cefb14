// SPDX-License-Identifier: MIT
#ifndef ORIM_VCLABEL_H
#define ORIM_VCLABEL_H

#include "observable.h"
#include "orimcontracts_export.h"
#include "undorecording.h"
#include "valuebinding.h"

#include <QColor>
#include <QFont>
#include <QLabel>
#include <QString>

//! Label that shows a value of the tree, or any text. It never writes the value.
class ORIMCONTRACTS_EXPORT VCLabel : public QLabel, public IObserver, public UndoRecordingControlBase
{
    Q_OBJECT
public:
    //! \param name   object name, Latin-1; null for none.
    //! \param flags  the window flags as a number.
    explicit VCLabel(QWidget * parent = nullptr, char const * name = nullptr, unsigned int flags = 0);
    ~VCLabel() override;

    //! Shows the text of a value from now on. While nothing is bound the last text stays.
    //! \return whether the path was found.
    bool SetValue_ValuePath(QString const & path);

    //! Shows a plain text, with no markup in it, until the bound value changes.
    void setText(QString const & text);
    //! Fills the ground with a colour and writes in black or white, whichever reads better on it. An invalid colour
    //! gives ground and text of the parent again.
    void SetBackgroundColor(QColor const & color);
    //! Sets a font, and makes it smaller until a text fits into the label: now and whenever the size changes. It is
    //! never larger than \a font and never below 4 points or pixels. A wider text that is shown makes it smaller still;
    //! one that does not fit even then ends in an ellipsis, and is told whole by the tool tip of a label without one.
    //! \param text  the widest text that the label is made for; for an empty one the font is taken as it is.
    void SetFontOnSize(QFont const & font, QString const & text);

    void Update(Observable * subject, TChangeCode code) override;
    //! With a text to fit, the room that it takes in the font as given.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent * event) override;
    void paintEvent(QPaintEvent * event) override;
    void resizeEvent(QResizeEvent * event) override;

private:
    void FitFont();
    QString ElidedText() const;
    //! Room that a text takes in a font, with the frame.
    QSize Room(QFont const & font, QString const & text) const;
    //! What frame, margin and indent take beside a text in a font.
    QSize Surround(QFont const & font) const;

    ValueBinding<ValueBase> m_value{ this };
    QFont m_fullFont; // as given to SetFontOnSize()
    QString m_sizingText;
    bool m_isCut = false; // the text is wider than the label in the smallest font
};

#endif
