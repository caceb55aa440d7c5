#include "TMiniWindowTitlebar.h"

#include "Fonts.h"
#include "TPushButton.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QPainter>

namespace
{
constexpr QSize BarSize(267, 30);
constexpr QRect HideButtonRect(0, 0, 42, 30);
constexpr QRect CentreButtonRect(60, 0, 147, 60);
constexpr QRect MaximizeButtonRect(217, 0, 54, 32);
constexpr QPoint PixmapPosition(10, 3);
constexpr int TitleFontSize = 14;
constexpr int TitleWidth = 192;
constexpr QRect ShadowTextRect(QPoint(40, 4), QPoint(246, 33));

QString TwoLines(QString const& first, QString const& second)
{
    return first + QLatin1Char('\n') + second;
}

QString HideToolTip()
{
    return TwoLines(QCoreApplication::translate("ToolTip", "Hide this window"),
                    QCoreApplication::translate(
                        "ToolTip", "(or drag the window onto the navigation bar to the left to hide it)"));
}

QString MaximizeToolTip()
{
    return TwoLines(QCoreApplication::translate("ToolTip", "Switch this window to full screen"),
                    QCoreApplication::translate("ToolTip", "(or drag the window to the right to expand it)"));
}

void PlaceButton(TPushButton* button, QRect const& rect)
{
    button->setFixedSize(rect.size());
    button->move(rect.topLeft());
}
} // namespace

QPixmap* TMiniWindowTitlebar::TitleBar = nullptr;
QFont* TMiniWindowTitlebar::FontPtr = nullptr;

TMiniWindowTitlebar::TMiniWindowTitlebar(QWidget* parent)
    : QWidget(parent)
    , m_HideButton(new TPushButton(this, QString(), QStringLiteral("MiniViewMinimize"),
                                   QStringLiteral("MiniViewMinimizeSelected"), -1, HideToolTip()))
    , m_MaximizeButton(new TPushButton(this, QString(), QStringLiteral("MiniViewMaximize"),
                                       QStringLiteral("MiniViewMaximizeSelected"), -1, MaximizeToolTip()))
    , m_CentreButton(new TPushButton(this, -1, QString()))
{
    if (!TitleBar)
    {
        TitleBar = new QPixmap(QStringLiteral(":/Images/Resources/MiniViewTitlebar.png"));
        FontPtr = new QFont(CONDENSED_BOLD_FONT);
        FontPtr->setPixelSize(TitleFontSize);
    }
    setFixedSize(BarSize);
    PlaceButton(m_HideButton, HideButtonRect);
    PlaceButton(m_CentreButton, CentreButtonRect);
    m_CentreButton->SetMMIBehaviour(MMI_EXCLUDED);
    m_CentreButton->PlayButtonPressSounds(false);
    m_CentreButton->raise();
    PlaceButton(m_MaximizeButton, MaximizeButtonRect);
    m_MaximizeButton->hide();
    m_MaximizeButton->raise();
    m_Face = DrawFace();
}

TPushButton* TMiniWindowTitlebar::GetHideButton() const
{
    return m_HideButton;
}

TPushButton* TMiniWindowTitlebar::GetMaximizeButton() const
{
    return m_MaximizeButton;
}

void TMiniWindowTitlebar::SetTitle(QString const& title)
{
    QString const shortTitle = QFontMetrics(*FontPtr).elidedText(title, Qt::ElideRight, TitleWidth);
    m_CentreButton->SetToolTip(shortTitle == title ? QString() : title);
    if (shortTitle == m_Title)
        return;
    m_Title = shortTitle;
    m_Face = DrawFace();
    update();
}

// Drawn once for each title: a bar that slides is painted at every frame.
QPixmap TMiniWindowTitlebar::DrawFace() const
{
    QPixmap face(size());
    face.fill(Qt::transparent);
    QPainter painter(&face);
    painter.drawPixmap(PixmapPosition, *TitleBar);
    painter.setFont(*FontPtr);
    painter.setPen(Qt::black);
    painter.drawText(ShadowTextRect, Qt::AlignLeft, m_Title);
    painter.setPen(Qt::white);
    painter.drawText(ShadowTextRect.translated(-1, -1), Qt::AlignLeft, m_Title);
    return face;
}

void TMiniWindowTitlebar::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QPainter(this).drawPixmap(0, 0, m_Face);
}
