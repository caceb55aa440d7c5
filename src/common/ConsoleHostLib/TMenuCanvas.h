#pragma once

#include "ConsoleHostLibExport.h"
#include "TCanvas.h"

#include <memory>

class TCanvasMenuDisplay;

/// The canvas of a view that offers the console's menus: a strip at its right edge, beside the full window,
/// with the button that unfolds them and with the shortcuts; see TCanvasMenuDisplay.
class CONSOLEHOSTLIB_EXPORT TMenuCanvas : public TCanvas
{
    Q_OBJECT

public:
    /// \a manager has to live longer.
    TMenuCanvas(QWidget* parent, TMenuManager& manager);
    ~TMenuCanvas() override;

    /// Always true.
    bool HasMenus() const override;
    TCanvasMenuDisplay* GetMenuDisplay() const;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void childEvent(QChildEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::unique_ptr<TCanvasMenuDisplay> m_Display;
    bool m_IsStacking = false;
};
