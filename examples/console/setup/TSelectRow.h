#pragma once

#include "TSetupRow.h"

class TSelectWidget;

/// One line of the setup with a selector: its name, and the selected entry between two buttons that step.
class TSelectRow : public TSetupRow
{
    Q_OBJECT

public:
    TSelectRow(QWidget* parent, QString const& caption);

    TSelectWidget* Select() const { return m_Select; }

private:
    TSelectWidget* m_Select;
};
