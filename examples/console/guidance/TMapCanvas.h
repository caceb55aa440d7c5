#pragma once

#include "TMapView.h"
#include "TMenuCanvas.h"

/// The canvas of the guidance: the moving map in the room that bars and mini windows leave.
class TMapCanvas : public TMenuCanvas
{
    Q_OBJECT

public:
    /// \a manager has to live longer.
    TMapCanvas(TMachine const& machine, TMenuManager& manager);

    /// Takes up where the machine is and how much room there is.
    void Follow();
    void SetZoomLevel(int level);
    int ZoomLevel() const { return m_Map.ZoomLevel(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void OnCovered(QPolygonF const& ground);

    TMapView m_Map;
};
