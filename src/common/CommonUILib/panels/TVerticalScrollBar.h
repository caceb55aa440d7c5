#pragma once

#include "CommonUILibExport.h"

#include <QPixmap>
#include <QScrollBar>
#include <QSharedPointer>

/// The one scroll bar of the look: a track, 33 pixels wide within a bar of any width, and a handle with a
/// grip that is never shorter than a finger needs. A press beside the handle turns a page, the handle itself
/// follows the finger. GUI thread only.
class COMMONUILIB_EXPORT TVerticalScrollBar : public QScrollBar
{
    Q_OBJECT

public:
    /// A bar of a fixed \a width. The track stands \a xOffset pixels right of the middle, and leaves the
    /// margins free above and below it. No measure counts beyond what a widget can have.
    TVerticalScrollBar(QWidget* parent, int xOffset, int topMargin, int bottomMargin, int width);
    ~TVerticalScrollBar() override;

    void SetBottomMargin(int margin);
    /// Whether the art for lists on glass is drawn; not so at first.
    void UseGlassEffect(bool use);

    /// Pixels from end to end of the handle: the whole track where there is nothing to scroll or the track is
    /// shorter than a finger.
    int GetSliderLength() const;
    /// The first row of the handle; 0 where there is nothing to scroll.
    int GetTopOfSlider() const;
    /// The first row beneath the handle, which still counts as the handle.
    int GetBottomOfSlider() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;
    void sliderChange(SliderChange change) override;

private:
    int Track() const;
    QRect HandleRect() const;
    QString ArtName(QString const& plain, QString const& glass) const;
    void ResizePixmap();
    void ResizeHandle();
    void TurnPage(int pages);
    void Grab(int y);
    void LetGo();
    void ShowSliderDown(bool down);

    bool m_GlassEffect = false;
    bool m_Dragging = false;
    int m_PressOffset = 0;
    int m_Width;
    int m_TopMargin;
    int m_BottomMargin;
    int m_XOffset;
    QPixmap m_Background;
    QSharedPointer<QPixmap> m_Handle;
    QSharedPointer<QPixmap> m_HandleDown;
    QSharedPointer<QPixmap> m_Grip;
    QRect m_DrawnHandle; // by the latest paint
};
