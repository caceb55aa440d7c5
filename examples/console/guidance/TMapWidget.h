#pragma once

#include "TMapView.h"

#include <QWidget>

/// The moving map as a widget, for small windows.
class TMapWidget : public QWidget
{
    Q_OBJECT

public:
    TMapWidget(QWidget* parent, TMachine const& machine);

    void Follow();
    void SetZoomLevel(int level);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void OnCovered(QPolygonF const& ground);

    TMapView m_Map;
};
