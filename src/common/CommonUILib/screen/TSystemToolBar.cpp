#include "TSystemToolBar.h"

#include "Metrics.h"
#include "RenderUtils.h"
#include "TScreen.h"
#include "TSystemToolBarButton.h"

#include <QChildEvent>
#include <QMouseEvent>
#include <QPainter>

#include <climits>
#include <iterator>

namespace
{
constexpr int FirstAddedId = 1000;
// Clear of the round corner of the art when it is stretched.
constexpr int Corner = 12;
constexpr int HorizontalOffset = 12;

constexpr char const* BackgroundFiles[] = {":/Images/Resources/SystemToolbarOneButton.png",
                                           ":/Images/Resources/SystemToolbarTwoButton.png",
                                           ":/Images/Resources/SystemToolbarThreeButton.png"};

QSharedPointer<QPixmap> Stretched(QPixmap const& source, QSize const& size)
{
    auto const picture = QSharedPointer<QPixmap>::create(size);
    picture->fill(Qt::transparent);
    QPainter painter(picture.data());
    KVN::RenderUtils::RenderScaledBitmap(&painter, source, size.width(), size.height(), Corner, Corner,
                                         source.width() - 1 - Corner, source.height() - 1 - Corner);
    return picture;
}
} // namespace

TSystemToolBar::TSystemToolBar(QWidget* parent)
    : TBaseToolBar(parent, true)
{
    for (char const* const file : BackgroundFiles)
        m_Backgrounds.append(QSharedPointer<QPixmap>::create(QLatin1String(file)));
    SetHorizontal(false);
}

// A screen that dies itself is no screen any more when it comes to its children.
TSystemToolBar::~TSystemToolBar()
{
    auto* const screen = qobject_cast<TScreen*>(parentWidget());
    if (screen && screen->GetSystemToolBar() == this)
        screen->SetSystemToolBar(nullptr);
}

void TSystemToolBar::AssignButton(int id, QString const& icon, QString const& text, QString const& toolTip)
{
    TBaseToolBar::AssignButton(id, icon, text, toolTip);
    if (TPushButton* const button = GetButton(id))
        button->SetButtonID(id);
}

void TSystemToolBar::SetMaxButtonsVisible(int count)
{
    Q_UNUSED(count)
}

void TSystemToolBar::SetHorizontal(bool horizontal)
{
    SetPerpOffset(0);
    SetButtonOffset(horizontal ? HorizontalOffset : 0);
    m_Layout = horizontal ? TOOLBAR_HORIZONTAL_FAR : TOOLBAR_VERTICAL_FAR;
    ArrangeButtons();
}

bool TSystemToolBar::IsHorizontal() const
{
    return m_Layout == TOOLBAR_HORIZONTAL_FAR;
}

bool TSystemToolBar::AddButton(TPushButton* button)
{
    int id = m_Buttons.isEmpty() ? FirstAddedId - 1 : m_Buttons.lastKey();
    int present = 0;
    if (!button || id == INT_MAX || FindButtonId(button, present))
        return false;
    AssignButton(++id, button);
    return true;
}

// Without the focus a held button is let go, and whoever hears of it may take the button, or the bar.
bool TSystemToolBar::LetGo(TPushButton* button)
{
    QPointer<TSystemToolBar> const self(this);
    QPointer<TPushButton> const kept(button);
    if (button->hasFocus())
        window()->setFocus(Qt::OtherFocusReason);
    return self && kept && kept->parentWidget() == this;
}

void TSystemToolBar::RemoveButton(TPushButton* button)
{
    int id = 0;
    if (!FindButtonId(button, id) || !LetGo(button))
        return;
    button->hide();
    button->setParent(nullptr); // and so off the list, see childEvent()
}

void TSystemToolBar::SetButtonVisible(TPushButton* button, bool visible)
{
    int id = 0;
    if (FindButtonId(button, id) && (visible || LetGo(button)))
        SetButtonVisibility(id, visible);
}

TPushButton* TSystemToolBar::GenerateButton(int id)
{
    Q_UNUSED(id)
    return new TSystemToolBarButton(this);
}

void TSystemToolBar::ArrangeButtons()
{
    TBaseToolBar::ArrangeButtons(IsHorizontal() ? SYSTEM_TOOLBAR_BUTTON_WIDTH : SYSTEM_TOOLBAR_BUTTON_HEIGHT,
                                 SYSTEM_TOOLBAR_INTER_BUTTON_SPACING);
}

void TSystemToolBar::UpdateFixedSize()
{
    int const count = ShownButtons();
    QSize const size = SizeFor(count);
    SetBackground(BackgroundFor(count, size));
    setFixedSize(size);
}

int TSystemToolBar::ShownButtons()
{
    int const wanted = GetNumberOfVisibleButtons();
    return m_MaximumVisible < 0 ? wanted : qMin(wanted, m_MaximumVisible);
}

QSize TSystemToolBar::SizeFor(int count) const
{
    if (IsHorizontal())
    {
        int const width =
            SYSTEM_TOOLBAR_BUTTON_WIDTH * count + GetButtonOffset() + (count - 1) * GetButtonGap();
        return {count < 1 ? 0 : width, TYPICAL_DASHBOARD_HEIGHT};
    }
    if (count < 1)
        return {0, 0};
    if (count <= m_Backgrounds.size())
        return {SYSTEM_TOOLBAR_BUTTON_WIDTH, m_Backgrounds[count - 1]->height()};
    return {SYSTEM_TOOLBAR_BUTTON_WIDTH,
            SYSTEM_TOOLBAR_BUTTON_HEIGHT * count + (count - 1) * SYSTEM_TOOLBAR_INTER_BUTTON_SPACING};
}

QSharedPointer<QPixmap> TSystemToolBar::BackgroundFor(int count, QSize const& size) const
{
    if (size.isEmpty())
        return {};
    if (!IsHorizontal() && count <= m_Backgrounds.size())
        return m_Backgrounds[count - 1];
    QSharedPointer<QPixmap> const present = GetBackground();
    return present && present->size() == size ? present : Stretched(*m_Backgrounds.constFirst(), size);
}

void TSystemToolBar::mousePressEvent(QMouseEvent* event)
{
    event->accept();
}

void TSystemToolBar::mouseMoveEvent(QMouseEvent* event)
{
    event->accept();
}

void TSystemToolBar::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
}

void TSystemToolBar::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    QSharedPointer<QPixmap> const background = GetBackground();
    if (!background)
        return;
    QPainter painter(this);
    painter.setOpacity(qreal(DASHBOARD_OPACITY));
    painter.drawPixmap(0, 0, *background);
}

void TSystemToolBar::moveEvent(QMoveEvent* event)
{
    TBaseToolBar::moveEvent(event);
    Q_EMIT GeometryChanged();
}

void TSystemToolBar::resizeEvent(QResizeEvent* event)
{
    TBaseToolBar::resizeEvent(event);
    Q_EMIT GeometryChanged();
}

// Whoever takes a button away takes it off the bar. By now one that dies is nothing but its address, and its
// entry is empty.
void TSystemToolBar::childEvent(QChildEvent* event)
{
    TBaseToolBar::childEvent(event);
    if (!event->removed())
        return;
    int const before = m_Buttons.size();
    for (auto entry = m_Buttons.begin(); entry != m_Buttons.end();)
    {
        bool const isGone = !entry->button || entry->button == event->child();
        if (isGone)
            m_Order.removeAll(entry.key());
        entry = isGone ? m_Buttons.erase(entry) : std::next(entry);
    }
    if (m_Buttons.size() != before)
        ArrangeButtons();
}
