#pragma once

#include "TStackableWidget.h"

/// What the map shows, layer by layer. One layer is open; a tap on another's name, a drag of the boundary
/// between them or the wheel opens it.
class TMapLegend : public TStackableWidget
{
    Q_OBJECT

public:
    explicit TMapLegend(QWidget* parent);

private:
    void AddLayer(int layer);

    int m_Open = 0;
};
