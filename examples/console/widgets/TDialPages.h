#pragma once

#include <QVector>
#include <QWidget>

class TDial;
struct TQuantity;
class TPushButton;
class TScrollableWidget;

/// Dials on pages of which one is seen: a finger drags to the next, two buttons beside serve the wheel.
class TDialPages : public QWidget
{
    Q_OBJECT

public:
    explicit TDialPages(QWidget* parent);

    /// On a page of its own behind the others.
    void AddDial(QString const& caption, TQuantity const& quantity, double largest);
    /// In the unit in which the console counts the quantity.
    void SetValue(int dial, double value);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    TScrollableWidget* m_Pages;
    TPushButton* m_Next;
    TPushButton* m_Previous;
    QVector<TDial*> m_Dials;
};
