// SPDX-License-Identifier: MIT
#ifndef ORIM_CONTROLSTRIP_H
#define ORIM_CONTROLSTRIP_H

#include <QWidget>

#include <memory>
#include <vector>

class FlowLayout;
class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class ValueFollower;

//! A strip of labelled controls, each bound to a value of the tree both ways: the operator's input is written to the
//! value, as a step of undo, and the control shows what the value made of it.
class ControlStrip : public QWidget
{
    Q_OBJECT
public:
    //! How a number is shown.
    struct NumberForm
    {
        double unit; // the value in this unit is shown
        char const * suffix;
        int decimals;
        double step;           // of the arrow buttons, in the unit
        char const * zeroText; // shown instead of the least value when that is 0; null for none
    };

    explicit ControlStrip(QWidget * parent = nullptr);
    ~ControlStrip() override;

    //! Adds a box with the items of a selection. \return the box; it stays empty when the path is unknown.
    QComboBox * AddSelection(QString const & name, QString const & label, QString const & path);
    //! Adds a spin box for a number.
    QDoubleSpinBox * AddNumber(QString const & name, QString const & label, QString const & path,
                               NumberForm const & form);

    //! A flag with its text.
    struct SwitchForm
    {
        QString name; // of the box
        QString text;
        QString path;
    };

    //! Adds check boxes for flags, side by side behind one label.
    void AddSwitches(QString const & label, std::vector<SwitchForm> const & forms);
    //! Adds any control; without a label it stands alone.
    void AddControl(QString const & label, QWidget * control);
    //! Lets controls be used while a flag is set only. Without the flag they stay as they are.
    //! \param controls  children of this, with their tool tips.
    //! \param hint      tool tip of the controls while they cannot be used.
    void EnableWith(QString const & path, std::vector<QWidget *> const & controls, QString const & hint);

private:
    FlowLayout * m_pLayout = nullptr;
    std::vector<std::unique_ptr<ValueFollower>> m_followers;
};

#endif
