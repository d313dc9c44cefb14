// SPDX-License-Identifier: MIT
#ifndef ORIM_AXISPROPERTYPAGE_H
#define ORIM_AXISPROPERTYPAGE_H

#include "orimwidgets_export.h"
#include "qtcompat.h"
#include "valueptr.h"

#include <QPointer>
#include <QString>
#include <QWidget>

class IUnitTextProvider;
class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class VCComboBoxClassic;

//! The operator's page for the range of an axis: start and stop within limits, a box for automatic scaling when that is
//! asked for, and a selector of the azimuth mode that shows on an azimuth axis alone.
//!
//! What is typed is taken over when the edit loses the focus or Return is pressed, and shown again as it was read.
//! Values are in the displayed unit. The page may be deleted by whoever reads or writes its numbers.
class ORIMWIDGETS_EXPORT AxisPropertyPage : public QWidget
{
    Q_OBJECT
public:
    ORIM_TR_UTF8

    static constexpr double NoLimit = -9999.765; //!< a limit that limits nothing

    //! \param name       object name, Latin-1; null for none.
    //! \param provider   writes and reads the numbers and tells the unit; not owned; may be null. One that is a QObject
    //!                   may end before the page, which then goes on without; any other must outlive the page.
    //! \param autoScale  whether there is a box for automatic scaling.
    AxisPropertyPage(QWidget * parent, char const * name, IUnitTextProvider * provider, bool autoScale);
    //! Without a provider: numbers as QString writes and reads them. \param unit  as it is shown: "[MHz]".
    AxisPropertyPage(QWidget * parent, char const * name, QString const & unit, bool autoScale);
    //! Removes the selection of its azimuth modes from the tree. What is still being typed is dropped.
    ~AxisPropertyPage() override;

    //! Takes a value with its limits and shows it; the limits hold from the next edit or check on.
    //! \param value             NaN and infinities are refused: the held value stays.
    //! \param minimum, maximum  NoLimit for none; NaN limits nothing either. The minimum wins over a lower maximum.
    //! \param lastShown         kept only.
    void SetStart(double value, double minimum, double maximum, double lastShown);
    void SetStop(double value, double minimum, double maximum, double lastShown);

    double GetStart() const { return m_start; }

    double GetStop() const { return m_stop; }

    //! Applies the limits to the held value, unless azimuth mode is on. The edit stays as it is.
    void CheckStart();
    void CheckStop();
    //! Writes a value into an edit. Null is ignored.
    void Show(double value, QLineEdit * edit);

    QLineEdit * GetStartEdit() const;
    QLineEdit * GetStopEdit() const;

    //! Checks the box, disables the edits while it is checked, and makes the page modified. Ignored without a box.
    void SetAutoScale(bool on);
    //! \return true without a box.
    bool GetAutoScale() const;

    //! Shows or hides the selector of azimuth modes; while it is on no limit is applied. Off at the start.
    void SetAzimuthMode(bool on);
    //! \param key  receives the key of the chosen mode; 0 when the selection has gone.
    //! \return whether azimuth mode is on.
    bool GetAzimuthMode(long & key) const;

    //! Whether the operator chose another azimuth mode, or the page was modified. Stays true.
    bool GetDirty() const;
    //! Takes over what is being typed, as if both edits lost the focus.
    void DoKillFocus();

public Q_SLOTS:
    //! Enables the edits when the box is not checked.
    void SlotEnableAutoScale();
    //! Make the page modified, whether or not the text changed, and take the text over.
    void SlotStartEditFinished();
    void SlotStopEditFinished();

protected:
    //! Reads a text and shows what became of it. Once the page is modified the value takes the number, within its
    //! limits. A text that is no finite number counts as 0; one that a provider reads as NaN or infinite as \a old.
    //! \param old   the value before; another one makes the page modified.
    //! \param edit  the start or the stop edit; for any other object, and null, nothing is taken or shown.
    void UpdateAfterEditFinished(QString text, double old, QObject * edit);
    //! Takes the text over when an edit loses the focus. Consumes an event only when its receiver ended in that.
    bool eventFilter(QObject * object, QEvent * event) override;

private:
    //! A number of the page and its limits.
    struct End
    {
        double minimum = NoLimit;
        double maximum = NoLimit;
        double lastShown = NoLimit;
    };

    void Init();
    int AddAutoScale(QGridLayout * grid);
    void AddAzimuth(QGridLayout * grid, int row);
    QLineEdit * AddEdit(QGridLayout * grid, int row, QString const & text, char const * name);
    void SetEnd(double & held, End & end, double value, End const & limits, QLineEdit * edit);
    double Limited(double value, End const & end) const;
    double Read(QString const & text, double old) const;
    QString Write(double value) const;
    //! Null once a provider that is a QObject has ended, or is ending.
    IUnitTextProvider * Provider() const;

    double m_start = 0.0;
    double m_stop = 0.0;
    End m_startLimits;
    End m_stopLimits;
    bool m_azimuthMode = false;
    bool m_modified = false;
    IUnitTextProvider * m_pProvider = nullptr; // borrowed; ask Provider()
    QPointer<QObject> m_pProviderObject;       // the same; a widget outlasts its part that is a provider
    bool m_providerIsObject = false;
    QPointer<QLineEdit> m_pStartEdit; // this owns what follows
    QPointer<QLineEdit> m_pStopEdit;
    QPointer<QCheckBox> m_pAutoScale; // null unless asked for
    bool m_autoScaleWanted;
    QPointer<VCComboBoxClassic> m_pAzimuthSelector;
    QPointer<QLabel> m_pAzimuthLabel;
    QPointer<QLabel> m_pHintLabel;
    QString m_unitText;
    ValuePtr<ValueSelection> m_azimuth; // chosen in by the selector; this removes it
};

#endif
