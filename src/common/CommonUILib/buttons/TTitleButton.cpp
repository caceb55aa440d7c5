#include "TTitleButton.h"

#include "Fonts.h"
#include "Metrics.h"
#include "RenderUtils.h"

#include <QPainter>

namespace
{
constexpr int TitleSize = 14;
constexpr int TitleAlignment = Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextWordWrap;
constexpr QPoint IconPosition(5, 25);
constexpr double IconPart = 0.75;
constexpr int WidthWithText = 150;
constexpr int Border = 5;
// The title has nine twentieths of the height, and the text the rest.
constexpr int TitleParts = 9;
constexpr int Parts = 20;
} // namespace

TTitleButton::TTitleButton(QWidget* parent, int id)
    : TPushButton(parent, id, QString())
    , m_TitleAlignment(TitleAlignment)
{
    SetTitleFontProperties(m_TitleColour, TitleSize, true, m_TitleWrap, m_TitleShadow, TitleAlignment);
    // Brings the font of the first line along.
    SetText(QString(), QString(), false, QString(), false);
}

TTitleButton::TTitleButton(QWidget* parent, QString const& icon, QString const& background,
                           QString const& selectedBackground, int id)
    : TPushButton(parent, QString(), background, selectedBackground, id, QString())
    , m_TitleAlignment(TitleAlignment)
{
    SetTitleFontProperties(m_TitleColour, TitleSize, true, m_TitleWrap, m_TitleShadow, TitleAlignment);
    SetText(QString(), QString(), false, QString(), false);
    TTitleButton::SetIcon(icon, QSize(), true);
}

void TTitleButton::SetIcon(QString const& name, QSize const&, bool)
{
    int const side = int(STANDARD_ICON_SIZE * IconPart);
    SetIconPosition(IconPosition, false);
    TPushButton::SetIcon(name, QSize(side, side), true);
}

void TTitleButton::SetTitle(QString const& title)
{
    if (title == m_Title)
        return;
    m_Title = title;
    updateGeometry();
    update();
}

void TTitleButton::SetText(QString const& text)
{
    if (text == m_Text)
        return;
    m_Text = text;
    updateGeometry();
    update();
}

void TTitleButton::SetTitleFontProperties(QColor const& colour, int pixelSize, bool bold, bool wrap,
                                          bool shadow, int alignment)
{
    m_TitleFont = bold ? CONDENSED_BOLD_FONT : CONDENSED_FONT;
    m_TitleFont.setPixelSize(qMax(1, pixelSize));
    m_TitleColour = colour;
    m_TitleWrap = wrap;
    m_TitleShadow = shadow;
    m_TitleAlignment = alignment;
    update();
}

QSize TTitleButton::sizeHint() const
{
    bool const hasText = !m_Title.isEmpty() || !m_Text.isEmpty();
    return {hasText ? WidthWithText : 0, TPushButton::sizeHint().height()};
}

QRect TTitleButton::TextArea() const
{
    return rect().adjusted(Border, Border, -Border, -Border);
}

void TTitleButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    PaintBackgroundAndIcons(painter);
    QRect title = TextArea();
    QRect text = title;
    int const height = title.height();
    title.setHeight(TitleParts * height / Parts);
    text.setTop(text.top() + (TitleParts * height + TitleParts) / Parts);
    if (!GetIconSize().isEmpty())
        text.setLeft(GetIconLeftPosition() + GetIconSize().width());
    PaintTitle(painter, title);
    PaintAsFirstLine(painter, text, m_Text);
    RenderToolTipMark(painter);
}

void TTitleButton::PaintTitle(QPainter& painter, QRect const& rect) const
{
    bool const centred =
        (m_TitleAlignment & Qt::AlignHCenter) != 0 && (m_TitleAlignment & Qt::AlignLeft) == 0;
    KVN::RenderUtils::RenderElidedTextInsideRect(&painter, m_TitleFont, rect, m_Title,
                                                 m_TitleFont.pixelSize(), MINIMUM_FONT_SIZE, m_TitleColour,
                                                 m_TitleWrap, m_TitleShadow, centred);
}
