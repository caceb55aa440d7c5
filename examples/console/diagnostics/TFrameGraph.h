#pragma once

#include <QWidget>

class TFrameMeter;

/// The last frames as bars: how long each took to paint, against the 20 ms in which the next one is due.
class TFrameGraph : public QWidget
{
    Q_OBJECT

public:
    TFrameGraph(QWidget* parent, TFrameMeter const& meter);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    TFrameMeter const& m_Meter;
};
