#pragma once

#include "TScrollArea.h"

#include <QVector>

class TChoiceRow;

/// What the machine is fitted with, row by row: more than fit, so the page scrolls under the finger and with
/// the wheel. Every choice takes effect at once and stays.
class TMachinePage : public TScrollArea
{
    Q_OBJECT

public:
    explicit TMachinePage(QWidget* parent);

    /// Takes the choices up from the settings.
    void Sync();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* m_Content;
    QVector<TChoiceRow*> m_Rows;
};
