#include "TConfigMenuElement.h"

#include "Fonts.h"
#include "MainScreen.h"
#include "Metrics.h"
#include "Palette.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "RenderUtils.h"

#include <QPainter>

namespace
{
constexpr double WidthOfHeight = 1.2;
constexpr int TextFlags = Qt::AlignHCenter | Qt::AlignVCenter; // 132
constexpr int TextInset = 9;
// Of the room within the insets.
constexpr double IconShare = 0.6;
constexpr double TextShare = 0.18; // of the height of the element
constexpr float DisabledOpacity = 0.5F;
} // namespace

TConfigMenuElement::TConfigMenuElement(QWidget* parent, QString const& text, int id)
    : TPushButton(parent, QString(), PixmapNames::LargeMenuButton, PixmapNames::LargeMenuButtonSelected, id,
                  QString())
{
    setFont(CONDENSED_BOLD_FONT);
    SetText(text, QString(), true, QString(), false);
    connect(this, &QAbstractButton::pressed, this, &TConfigMenuElement::OnPressed);
    connect(this, &QAbstractButton::released, this, &TConfigMenuElement::OnReleased);
    setFixedSize(WidthForHeight(height()), height());
    FitPictures();
    LetGroundThrough();
}

int TConfigMenuElement::WidthForHeight(int height)
{
    return int(height * WidthOfHeight);
}

void TConfigMenuElement::SetSelected(bool selected)
{
    if (selected == m_Selected)
        return;
    m_Selected = selected;
    update();
}

bool TConfigMenuElement::IsSelected() const
{
    return m_Selected;
}

void TConfigMenuElement::SetActive(bool active)
{
    if (active == m_Active)
        return;
    m_Active = active;
    update();
}

bool TConfigMenuElement::IsActive() const
{
    return m_Active;
}

void TConfigMenuElement::SetOpacity(float opacity)
{
    float const held = qBound(0.0F, opacity, 1.0F);
    if (qFuzzyCompare(1.0F + held, 1.0F + m_Opacity))
        return;
    m_Opacity = held;
    if (!m_Active)
        update();
}

float TConfigMenuElement::GetOpacity() const
{
    return m_Opacity;
}

void TConfigMenuElement::SetIcon(QString const& name, QSize const& size, bool enable)
{
    Q_UNUSED(size)
    m_IconName = name;
    TPushButton::SetIcon(name, QSize(IconSide(), IconSide()), enable);
    FitPictures();
    update();
}

void TConfigMenuElement::SetIcon(QSharedPointer<QPixmap> icon, QSharedPointer<QPixmap> disabledIcon)
{
    Q_UNUSED(icon)
    Q_UNUSED(disabledIcon)
}

void TConfigMenuElement::OnMMIHighlight()
{
    m_Highlighted = true;
    TPushButton::OnMMIHighlight();
    LetGroundThrough();
}

void TConfigMenuElement::OnMMIUnHighlight()
{
    m_Highlighted = false;
    TPushButton::OnMMIUnHighlight();
    LetGroundThrough();
}

void TConfigMenuElement::ResizeContents()
{
    TPushButton::ResizeContents(); // with the pictures, by SetIcon(), where there is an icon
    if (m_IconName.isEmpty())
        FitPictures();
}

void TConfigMenuElement::OnPressed()
{
    update();
}

void TConfigMenuElement::OnReleased()
{
    update();
}

TConfigMenuElement::ELook TConfigMenuElement::Look() const
{
    bool const isTouched = isDown() || m_Highlighted;
    if (m_Selected)
        return isTouched ? LOOK_RAISED_PRESSED : LOOK_RAISED;
    return isTouched ? LOOK_FLAT_PRESSED : LOOK_FLAT;
}

float TConfigMenuElement::Opacity() const
{
    float const opacity = m_Active ? 1.0F : m_Opacity;
    return isEnabled() ? opacity : opacity * DisabledOpacity;
}

int TConfigMenuElement::IconSide() const
{
    return int(qMax(0, height() - 2 * TextInset) * IconShare);
}

QRect TConfigMenuElement::TextRect() const
{
    int const top = m_Icon ? TextInset + IconSide() : TextInset;
    return QRect(TextInset, top, width() - 2 * TextInset, height() - TextInset - top);
}

int TConfigMenuElement::TextSize() const
{
    return qMax(STANDARD_FONT_SIZE, int(height() * TextShare));
}

// The base tells by its own background that nothing does. That need not be the body which is seen.
void TConfigMenuElement::LetGroundThrough()
{
    if (!testAttribute(Qt::WA_OpaquePaintEvent))
        return;
    setAttribute(Qt::WA_OpaquePaintEvent, false);
    update();
}

void TConfigMenuElement::FitPictures()
{
    KVN::PixmapManager* const pixmaps = tscreenPixmapManager();
    if (!pixmaps)
        return;
    QString const* const names[LOOK_COUNT] = {
        &PixmapNames::MenuButtonFlatSmall, &PixmapNames::MenuButtonFlatSelectedSmall,
        &PixmapNames::LargeMenuButton, &PixmapNames::LargeMenuButtonSelected};
    for (int look = 0; look < LOOK_COUNT; ++look)
        m_Bodies[look] = pixmaps->GetResizedPixmap(*names[look], width(), height());
    bool const hasIcon = !m_IconName.isEmpty();
    m_Icon = hasIcon ? pixmaps->GetResizedIcon(m_IconName, IconSide(), KVN::ICON_NORMAL) : nullptr;
    m_DisabledIcon = hasIcon ? pixmaps->GetResizedIcon(m_IconName, IconSide(), KVN::ICON_DISABLED) : nullptr;
}

void TConfigMenuElement::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    LetGroundThrough();
    QPainter painter(this);
    painter.setOpacity(qreal(Opacity()));
    if (m_Bodies[Look()])
        painter.drawPixmap(0, 0, *m_Bodies[Look()]);
    PaintIcon(painter);
    KVN::RenderUtils::RenderTextInsideRect(&painter, TextRect(), TextFlags, GetText(), TextSize(),
                                           MINIMUM_FONT_SIZE, regularButtonTextColor, false, true, true, true,
                                           false);
    RenderToolTipMark(painter);
}

void TConfigMenuElement::PaintIcon(QPainter& painter) const
{
    QSharedPointer<QPixmap> const& icon = isEnabled() ? m_Icon : m_DisabledIcon;
    if (icon)
        painter.drawPixmap((width() - icon->width()) / 2, TextInset, *icon);
}
