#pragma once

#include "TFullWindow.h"

class TLightBar;
class TMachine;
class TMapCanvas;
class TMapLegend;
class TTaskToolBar;
class TValueField;

/// What lies on the map in the full view of the guidance: the light bar, the live values and the buttons for
/// the zoom.
class TGuidanceFullWindow : public TFullWindow
{
    Q_OBJECT

public:
    TGuidanceFullWindow(TMapCanvas* canvas, TMachine const& machine);

    /// An index into TMapView::ZoomLevels, held to its range.
    void SetZoomLevel(int level);
    int ZoomLevel() const;

    void Setup() override;
    void Refresh() override;
    void SaveXMLStateSnapshot(QDomElement element) override;
    void RestoreXMLStateSnapshot(QDomElement element) override;

Q_SIGNALS:
    /// By whomever; the map shows it already.
    void ZoomChanged();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    enum EButton
    {
        BUTTON_ZOOM_IN,
        BUTTON_ZOOM_OUT
    };

    void Arrange();

    TMapCanvas* m_Canvas;
    TMachine const& m_Machine;
    TLightBar* m_LightBar = nullptr;
    TMapLegend* m_Legend = nullptr;
    TTaskToolBar* m_ToolBar = nullptr;
    TValueField* m_Speed = nullptr;
    TValueField* m_Heading = nullptr;
    TValueField* m_Area = nullptr;
};
