#pragma once

#include "TSetupRow.h"

#include <QStringList>

class TPushButton;

/// One setting with a few values to choose from: its name, and a button for each value. The chosen one is
/// green.
class TChoiceRow : public TSetupRow
{
    Q_OBJECT

public:
    /// \a toolTip tells what is chosen here.
    TChoiceRow(QWidget* parent, QString const& caption, QString const& toolTip, QStringList const& choices);

    /// -1 for none. Emits nothing.
    void SetChoice(int choice);
    /// Other words for the same choices. Those that are missing stay as they are.
    void SetTexts(QStringList const& choices);

Q_SIGNALS:
    void Chosen(int choice);

private:
    QVector<TPushButton*> m_Buttons;
    int m_Choice = -1;
};
