#pragma once

#include "TPushButton.h"

class TMachine;

/// The switch of one section: green while it is on, red while it is off.
class TSectionButton : public TPushButton
{
    Q_OBJECT

public:
    /// Sections count from 0; the operator sees them from 1.
    TSectionButton(QWidget* parent, TMachine* machine, int section);

private:
    void Sync();

    TMachine* m_Machine;
    int const m_Section;
};
