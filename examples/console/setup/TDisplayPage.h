#pragma once

#include "TSetupPage.h"

class TChoiceRow;

/// What the screen looks like.
class TDisplayPage : public TSetupPage
{
    Q_OBJECT

public:
    explicit TDisplayPage(QWidget* parent);

    void Sync() override;

private:
    TChoiceRow* m_ButtonSize;
};
