#pragma once

#include <QVector>
#include <QWidget>

class TDial;
class TPushButton;
class TScrollableWidget;

/// Dials on pages of which one is seen: a finger drags to the next, two buttons beside serve the wheel.
class TDialPages : public QWidget
{
    Q_OBJECT

public:
    explicit TDialPages(QWidget* parent);

    /// On a page of its own behind the others.
    void AddDial(QString const& caption, QString const& unit, int largest);
    void SetValue(int dial, int value);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    TScrollableWidget* m_Pages;
    TPushButton* m_Next;
    TPushButton* m_Previous;
    QVector<TDial*> m_Dials;
};
