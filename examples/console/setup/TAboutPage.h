#pragma once

#include "MMICapableWidget.h"

#include <QWidget>

class TPushButton;
class TTablePanel;

/// Versions, and switching the console off.
class TAboutPage : public QWidget, public KVN::MMICapableWidget
{
    Q_OBJECT

public:
    explicit TAboutPage(QWidget* parent);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    TTablePanel* m_About;
    TPushButton* m_SwitchOff;
};
