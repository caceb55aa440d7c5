#pragma once

#include <QPixmap>
#include <QWidget>

class TCameraOverlay;
class TMachine;

/// What the camera behind the machine sees: rows that run away under the sky, drawn from how far the machine
/// has come. While something is to be seen above the picture, it stands aside and says so.
class TCameraPicture : public QWidget
{
    Q_OBJECT

public:
    TCameraPicture(QWidget* parent, TMachine const& machine, TCameraOverlay const& overlay);

    /// Draws the present moment, if anything has moved.
    void Sync();
    /// -4 (dark) to 4 (bright), held to that; 0 at first.
    void SetBrightness(int brightness);
    int Brightness() const { return m_Brightness; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void MakeBackdrop();
    void PaintRows(QPainter* painter) const;
    void PaintBands(QPainter* painter) const;
    void PaintBrightness(QPainter* painter) const;
    int Horizon() const;

    TMachine const& m_Machine;
    TCameraOverlay const& m_Overlay;
    QPixmap m_Backdrop;
    double m_Travelled = 0.0;
    QPointF m_LastPosition;
    int m_Brightness = 0;
};
