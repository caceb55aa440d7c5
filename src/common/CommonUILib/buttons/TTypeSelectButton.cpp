#include "TTypeSelectButton.h"

#include "MainScreen.h"
#include "PixmapManager.h"

#include <QPainter>

namespace
{
constexpr int CornerShare = 6;
constexpr float CornerX = 0.74F;
constexpr float CornerY = 0.045F;
} // namespace

TTypeSelectButton::TTypeSelectButton(QWidget* parent, QSize const& minimumSize, QPoint const& position,
                                     int id)
    : TPushButton(parent, QString(), minimumSize, position, id, QString())
{
}

void TTypeSelectButton::SetCornerElement(QString const& name)
{
    if (name == m_CornerElement)
        return;
    m_CornerElement = name;
    UpdatePixmap();
}

void TTypeSelectButton::UpdatePixmap()
{
    m_CornerPosition = QPoint(int(float(width()) * CornerX), int(float(height()) * CornerY));
    m_CornerPixmap.reset();
    KVN::PixmapManager* const pixmaps = tscreenPixmapManager();
    if (pixmaps && !m_CornerElement.isEmpty())
    {
        QSize const natural = pixmaps->GetPixmap(m_CornerElement)->size();
        int const wide = width() / CornerShare;
        int const high = natural.isEmpty() ? wide : wide * natural.height() / natural.width();
        m_CornerPixmap = pixmaps->GetResizedPixmap(m_CornerElement, wide, high);
    }
    update();
}

void TTypeSelectButton::resizeEvent(QResizeEvent* event)
{
    TPushButton::resizeEvent(event);
    UpdatePixmap();
}

void TTypeSelectButton::paintEvent(QPaintEvent* event)
{
    TPushButton::paintEvent(event);
    if (m_CornerElement.isEmpty() || !m_CornerPixmap || m_CornerPixmap->isNull())
        return;
    QPainter painter(this);
    painter.drawPixmap(m_CornerPosition, *m_CornerPixmap);
}
