#pragma once

#include "TFullWindow.h"
#include "TMiniWindow.h"

class TBrightnessFlyout;
class TCameraOverlay;
class TCameraPicture;
class TMachine;

/// The camera's picture in small.
class TCameraMiniWindow : public TMiniWindow
{
    Q_OBJECT

public:
    TCameraMiniWindow(TMachine const& machine, TCameraOverlay const& overlay);

    void Setup() override;
    void UpdateView() override;

private:
    TMachine const& m_Machine;
    TCameraOverlay const& m_Overlay;
    TCameraPicture* m_Picture = nullptr;
};

/// The camera's picture in full, with its brightness.
class TCameraFullWindow : public TFullWindow
{
    Q_OBJECT

public:
    TCameraFullWindow(QWidget* canvas, TMachine const& machine, TCameraOverlay const& overlay);

    void Setup() override;
    void Refresh() override;
    void SaveXMLStateSnapshot(QDomElement element) override;
    void RestoreXMLStateSnapshot(QDomElement element) override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void ToggleFlyout();
    void Arrange();

    TMachine const& m_Machine;
    TCameraOverlay const& m_Overlay;
    TCameraPicture* m_Picture = nullptr;
    TBrightnessFlyout* m_Flyout = nullptr;
};
