#include "TNavigationBar.h"

#include "Metrics.h"
#include "TNavigationButton.h"

namespace
{
constexpr int ButtonHeight = 63;
constexpr int ButtonGap = 0;

// One picture for both bars, as long as one of them lives.
QSharedPointer<QPixmap> BarPicture()
{
    static QWeakPointer<QPixmap> shared;
    QSharedPointer<QPixmap> picture = shared.toStrongRef();
    if (!picture)
    {
        picture.reset(new QPixmap(QStringLiteral(":/Images/Resources/NavigationBar.png")));
        shared = picture;
    }
    return picture;
}
} // namespace

TNavigationBar::TNavigationBar(QWidget* parent, bool special, bool background)
    : TBaseToolBar(parent, true)
{
    QSharedPointer<QPixmap> picture;
    if (background)
    {
        setAttribute(Qt::WA_OpaquePaintEvent);
        picture = BarPicture();
    }
    SetBackground(picture);
    m_Layout = special ? TOOLBAR_VERTICAL_FAR : TOOLBAR_VERTICAL_NEAR;
    SetScrollIndicators(QStringLiteral(":/Images/Resources/NavBarButtonScrollUp.png"),
                        QStringLiteral(":/Images/Resources/NavBarButtonScrollDown.png"));
}

void TNavigationBar::AssignButton(int id, QString const& icon, QString const& text, QString const& toolTip)
{
    TBaseToolBar::AssignButton(id, icon, text, toolTip);
}

TPushButton* TNavigationBar::GetButton(int id)
{
    return TBaseToolBar::GetButton(id);
}

void TNavigationBar::paintEvent(QPaintEvent* event)
{
    TBaseToolBar::paintEvent(event);
}

TPushButton* TNavigationBar::GenerateButton(int id)
{
    auto* const button = new TNavigationButton(this, id);
    button->setFixedSize(NAVBAR_WIDTH, ButtonHeight);
    return button;
}

void TNavigationBar::ArrangeButtons()
{
    TBaseToolBar::ArrangeButtons(ButtonHeight, ButtonGap);
}
