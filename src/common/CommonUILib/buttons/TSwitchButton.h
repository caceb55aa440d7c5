#pragma once

#include "TPushButton.h"

#include <QFont>

/// A button that stands for a switch of the machine: a light that is green while the switch is on and red
/// while it is off, and the number of the switch. It only shows the state; whoever works the switch sets it.
class COMMONUILIB_EXPORT TSwitchButton : public TPushButton
{
    Q_OBJECT

public:
    TSwitchButton(QWidget* parent, int id);

    /// 0 at first.
    void SetSwitchNumber(int number);
    /// Off at first.
    void SetSwitchState(bool on);
    /// The light in the middle above the number, as at first, or at the left of it.
    void SetCentredLED(bool centred);

protected:
    void paintEvent(QPaintEvent* event) override;

    /// Loaded for the first button and shared by all; they stay for the life of the program.
    static QPixmap* m_greenLED;
    static QPixmap* m_redLED;

private:
    QRect Field() const;
    QRect LightPlace() const;
    QRect NumberPlace() const;

    bool m_SwitchState = false;
    int m_SwitchNumber = 0;
    QFont m_NumberFont;
    bool m_CentredLED = true;
};
