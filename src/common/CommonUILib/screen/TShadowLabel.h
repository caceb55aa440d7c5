#pragma once

#include <QLabel>
#include <QPainter>

/// A label that is nothing but its pixmap, painted without the way through the style that a plain label takes
/// at every frame of a slide. Touches go through it. Private to the room.
class TShadowLabel : public QLabel
{
public:
    TShadowLabel(QWidget* parent, QPixmap const& shadow, QSize const& size)
        : QLabel(parent)
        , m_Shadow(shadow)
    {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        resize(size);
        setPixmap(shadow);
        hide();
    }

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).drawPixmap(0, 0, m_Shadow); }

private:
    QPixmap m_Shadow;
};
