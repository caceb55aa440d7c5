#pragma once

#include "TSetupPage.h"

#include <QStringList>

class TEditRow;

/// The language of numbers and dates.
class TLanguagePage : public TSetupPage
{
    Q_OBJECT

public:
    explicit TLanguagePage(QWidget* parent);

    void Sync() override;

private:
    void Choose(int row);

    TEditRow* m_Language;
    QStringList m_Locales; // by the rows of the list
};
