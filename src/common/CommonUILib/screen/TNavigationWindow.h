#pragma once

#include "TWindow.h"

#include <QMap>
#include <QPointer>

/// The choice of views in a build without navigation bars: a window with a grid of the same buttons.
class COMMONUILIB_EXPORT TNavigationWindow : public TWindow
{
    Q_OBJECT

public:
    using TWindow::AddControlButton;

    explicit TNavigationWindow(QWidget* parent);

    /// The button of \a id gets icon, text and tool tip; it is made at the first call.
    virtual void AssignButton(int id, QString const& icon, QString const& text, QString const& toolTip);
    /// Null for an unknown id.
    virtual TPushButton* GetButton(int id);
    virtual void RemoveButton(int id);
    virtual void SetButtonVisibility(int id, bool visible);
    virtual void SetButtonEnabled(int id, bool enabled);
    /// Lays the visible buttons out row by row, ascending by id.
    virtual void ArrangeButtons();

    void OnCancel() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QMap<int, QPointer<TPushButton>> m_Buttons;
};
