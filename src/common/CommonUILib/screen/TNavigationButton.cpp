#include "TNavigationButton.h"

#include "PixmapNames.h"

#include <QMouseEvent>
#include <QPointer>

namespace
{
// The part of the button's art that is shadow.
constexpr int ShadowRight = 7;
constexpr int ShadowBottom = 9;
constexpr QSize DefaultIconSize(55, 55);
} // namespace

TNavigationButton::TNavigationButton(QWidget* parent, int id)
    : TPushButton(parent, id, QString())
{
    SetBackground(PixmapNames::NavBarButton);
    SetBackgroundSelected(PixmapNames::NavBarButtonSelected);
}

void TNavigationButton::SetIcon(QString const& name, QSize const& size, bool enable)
{
    TPushButton::SetIcon(name, size, enable);
    SetIconPosition(GetIconPos(), false);
}

void TNavigationButton::SetIcon(QImage const& image, QSize const& size, bool enable)
{
    TPushButton::SetIcon(image, size, enable);
    SetIconPosition(GetIconPos(), false);
}

QPoint TNavigationButton::GetIconPos() const
{
    QSize const icon = GetIconSize().isEmpty() ? DefaultIconSize : GetIconSize();
    int const right = width() - 1;
    int const bottom = height() - 1;
    return {(right - ShadowRight - icon.width()) / 2, (bottom - ShadowBottom - icon.height()) / 2};
}

void TNavigationButton::mouseMoveEvent(QMouseEvent* event)
{
    if (IsHeld())
    {
        int const rightEdge = mapToGlobal(QPoint(width() - 1, 0)).x();
        if (event->globalPos().x() > rightEdge)
        {
            ClearHeld();
            setDown(false);
            QPointer<TNavigationButton> const self(this);
            Q_EMIT DraggedOffRight(GetButtonId());
            if (!self)
                return;
        }
    }
    TPushButton::mouseMoveEvent(event);
}
