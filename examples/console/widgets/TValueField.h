#pragma once

#include "TUnits.h"

#include <QString>
#include <QWidget>

struct TQuantity;

/// One live value with its name above and its unit behind; a unit that is too long for that stands above too.
/// It repaints only when a text changes.
class TValueField : public QWidget
{
    Q_OBJECT

public:
    TValueField(QWidget* parent, QString const& caption);

    /// \a value of \a quantity, in the operator's unit.
    void SetValue(TQuantity const& quantity, double value);
    /// A dash in place of a value of \a quantity that is not known.
    void SetUnknown(TQuantity const& quantity);
    /// Value and unit as the operator sees them.
    TUnits::TValueAndUnit const& Text() const { return m_Text; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void SetText(TUnits::TValueAndUnit const& text);

    QString m_Caption;
    TUnits::TValueAndUnit m_Text;
    bool m_IsUnitAbove = false;
};
