#pragma once

#include "TSetupRow.h"

/// One line of the setup that only tells: its name and a value that follows from others.
class TValueRow : public TSetupRow
{
    Q_OBJECT

public:
    TValueRow(QWidget* parent, QString const& caption);

    void SetText(QString const& text);
    QString const& Text() const { return m_Text; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_Text;
};
