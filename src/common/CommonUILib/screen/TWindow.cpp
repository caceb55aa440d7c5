#include "TWindow.h"

#include "MainScreen.h"
#include "Palette.h"
#include "PixmapManager.h"
#include "PixmapNames.h"
#include "TLockStack.h"
#include "TPushButton.h"
#include "TScreen.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace
{
constexpr int ControlButtonFontSize = 16;
constexpr int CenteredWordWrap = Qt::AlignHCenter | Qt::AlignVCenter | Qt::TextWordWrap;

QWidget* MakeFade(QWidget* parent)
{
    auto* const fade = new QWidget(parent);
    QPalette palette = fade->palette();
    palette.setColor(QPalette::Window, modalFadeoutColor);
    fade->setPalette(palette);
    fade->setAutoFillBackground(true);
    fade->hide();
    return fade;
}
} // namespace

TWindow::TWindow(QWidget* parent)
    : QWidget(parent, Qt::FramelessWindowHint)
    , m_Locks(std::make_unique<TLockStack>())
{
    if (parent && parent == MainScreen)
        setParent(nullptr);
    m_Content = new QWidget(this);
    m_Fade = MakeFade(this);
    m_OkButton = MakeDialogButton(QStringLiteral("icon-tick-larger"));
    m_CancelButton = MakeDialogButton(QStringLiteral("icon-cross-larger"));
    connect(m_OkButton, &QAbstractButton::clicked, this, [this] { OnOk(); });
    connect(m_CancelButton, &QAbstractButton::clicked, this, [this] { OnCancel(); });
    connect(&m_Timer, &QTimer::timeout, this, [this] { Refresh(); });
}

TWindow::~TWindow() = default;

TPushButton* TWindow::MakeDialogButton(QString const& icon)
{
    auto* const button = new TPushButton(m_Content, icon, PixmapNames::NewStandardButton,
                                         PixmapNames::NewStandardButtonSelected, -1, QString());
    button->SetBackgroundDisabled(PixmapNames::NewDisabledButton);
    button->hide();
    return button;
}

QWidget* TWindow::GetWindowContent() const
{
    return m_Content;
}

bool TWindow::WillHideMiniviewsOnShow() const
{
    return m_HideMiniviewsOnShow;
}

int TWindow::ModalType() const
{
    if (!m_Modal)
        return KVN::MODAL_NONE;
    return m_LocalModal ? KVN::MODAL_LOCAL : KVN::MODAL_GLOBAL;
}

QString TWindow::GetWindowName() const
{
    return m_WindowName;
}

void TWindow::SetWindowName(QString const& name)
{
    m_WindowName = name;
}

void TWindow::SetBackground(QString const& name)
{
    if (name == m_BackgroundName)
        return;
    m_BackgroundName = name;
    m_Background.clear();
    InvalidateBackground();
}

void TWindow::SetBackgroundArea(int x, int y, int w, int h)
{
    m_BackgroundX = x;
    m_BackgroundY = y;
    m_BackgroundWidth = w;
    m_BackgroundHeight = h;
    InvalidateBackground();
}

void TWindow::SetBackgroundOpacity(float opacity)
{
    m_BackgroundOpacity = qBound(0.0F, opacity, 1.0F);
    update();
}

void TWindow::UseTimer(int ms)
{
    m_TimerInterval = ms;
}

void TWindow::HideMiniviewsOnShow(bool hide)
{
    m_HideMiniviewsOnShow = hide;
}

void TWindow::EnableGuide()
{
    m_GuideEnabled = true;
}

void TWindow::DisableGuide()
{
    m_GuideEnabled = false;
}

void TWindow::SetGuideId(int id, int step)
{
    m_GuideId = id;
    m_GuideStep = step;
}

void TWindow::ResetGuideId()
{
    SetGuideId(-1, 0);
}

void TWindow::AddControlButton(int id, QString const& icon, QString const& background,
                               QString const& backgroundSelected, QString const& backgroundDisabled,
                               QString const& toolTip)
{
    if (id < 0 || id > MaxControlButtonId)
        return;
    if (id >= m_ControlButtons.size())
        m_ControlButtons.resize(id + 1);
    TPushButton*& button = m_ControlButtons[id];
    if (!button)
    {
        button = new TPushButton(m_Content, icon, background, backgroundSelected, id, toolTip);
    }
    else
    {
        button->SetIcon(icon, QSize(-1, -1), true);
        button->SetBackground(background);
        button->SetBackgroundSelected(backgroundSelected);
        button->SetToolTip(toolTip);
    }
    button->SetBackgroundDisabled(backgroundDisabled);
    button->SetFontProperties(regularButtonTextColor, ControlButtonFontSize, true, true, false,
                              CenteredWordWrap, false);
}

void TWindow::Setup()
{
    m_SetUp = true;
}

void TWindow::SetupIfRequired()
{
    if (m_SetUp)
        return;
    // Marked first: what Setup() calls may ask for the set up window again.
    m_SetUp = true;
    Setup();
}

void TWindow::SetVisible(bool visible, bool modal)
{
    if (isVisibleTo(parentWidget()) == visible && modal == m_Modal)
        return;
    if (visible)
        ShowWindow(modal);
    else
        HideWindow();
}

void TWindow::MakeSystemConnections() {}

void TWindow::SetTitle(QString const& title)
{
    if (title == m_Title)
        return;
    m_Title = title;
    update();
}

QString TWindow::GetTitle()
{
    return m_Title;
}

void TWindow::AddControlButton(int id, QString const& icon, QString const& toolTip)
{
    AddControlButton(id, icon, PixmapNames::NewStandardButton, PixmapNames::NewStandardButtonSelected,
                     PixmapNames::NewDisabledButton, toolTip);
}

void TWindow::Refresh() {}

void TWindow::SaveXMLStateSnapshot(QDomElement element)
{
    Q_UNUSED(element)
}

void TWindow::RestoreXMLStateSnapshot(QDomElement element)
{
    Q_UNUSED(element)
}

bool TWindow::SafeToCloseWindow()
{
    return true;
}

void TWindow::AddLockingWidget(KVN::ModalData const& data)
{
    if (!data.widget)
        return;
    if (!m_Locks->Add(data))
    {
        // One that came after it may have died meanwhile.
        StackFade();
        return;
    }
    m_Fade->show();
    m_Fade->raise();
    data.widget->raise();
}

void TWindow::RemoveLockingWidget(QWidget* widget)
{
    m_Locks->Remove(widget);
    StackFade();
}

void TWindow::StackFade()
{
    if (KVN::ModalData const* const top = m_Locks->Top())
        m_Fade->stackUnder(top->widget);
    else
        m_Fade->hide();
}

bool TWindow::IsVisible()
{
    return isVisible();
}

bool TWindow::IsDismissed() const
{
    return m_WindowHidden;
}

bool TWindow::OnMMIBack()
{
    if (m_CancelButton->isVisible())
    {
        OnCancel();
        return false;
    }
    return !m_Modal;
}

void TWindow::RaiseBelowFade(QWidget* child)
{
    child->raise();
    if (!m_Fade->isHidden())
        child->stackUnder(m_Fade);
}

void TWindow::ShowWindow(bool modal)
{
    QPointer<TWindow> const self(this);
    m_WindowHidden = false;
    SetupIfRequired();
    MoveToScreen();
    m_Modal = m_Modal || modal;
    if (m_Modal)
    {
        LockParent();
        tscreenPushMMIWidget(this);
    }
    m_AutoReCentre = ShouldAutoReCentre();
    Q_EMIT WindowShown();
    if (!self || m_WindowHidden)
        return;
    show();
    if (MainScreen)
        MainScreen->RaiseOffScreenButtons();
}

// Re-parenting loses the position, so it is put back, and brings a window on top of all, where only the alarm
// and tool tips belong.
void TWindow::MoveToScreen()
{
    if (parentWidget() || !MainScreen)
        return;
    QPoint const position = pos();
    setParent(MainScreen);
    move(position);
    MainScreen->RaiseToBelowAlarm(this);
}

void TWindow::LockParent()
{
    ReleaseFormerParent();
    m_LockedParent = parentWidget();
    if (auto* const parent = qobject_cast<TWindow*>(parentWidget()))
        parent->AddLockingWidget({this, GetTitle(), ModalType(), {}});
}

void TWindow::UnlockParent()
{
    bool const isLocked = m_Modal || m_LockedParent;
    ReleaseFormerParent();
    if (!isLocked)
        return;
    if (auto* const parent = qobject_cast<TWindow*>(parentWidget()))
        parent->RemoveLockingWidget(this);
}

// A window that was given another parent while it was modal takes its lock off the one it had. The cast
// passes over a parent that is in the middle of its destruction.
void TWindow::ReleaseFormerParent()
{
    auto* const former = qobject_cast<TWindow*>(m_LockedParent.data());
    m_LockedParent = nullptr;
    if (former && former != parentWidget())
        former->RemoveLockingWidget(this);
}

void TWindow::HideWindow()
{
    QPointer<TWindow> const self(this);
    if (!m_WindowHidden)
    {
        m_WindowHidden = true;
        hide();
        Q_EMIT WindowHidden();
        // Whoever heard of it may have brought the window back, or to its end.
        if (!self || !m_WindowHidden)
            return;
    }
    UnlockParent();
    if (MainScreen && parentWidget() == MainScreen)
    {
        QPoint const position = pos();
        setParent(nullptr);
        move(position);
    }
}

void TWindow::OnOk() {}

void TWindow::OnCancel() {}

bool TWindow::ShouldAutoReCentre() const
{
    return false;
}

void TWindow::ReCentre(QWidget* parent)
{
    Q_UNUSED(parent)
}

bool TWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize && watched == parentWidget())
        ReCentre(parentWidget());
    return false;
}

void TWindow::mousePressEvent(QMouseEvent* event)
{
    QPointer<TWindow> const self(this);
    Q_EMIT WindowMousePress(event);
    if (self)
        QWidget::mousePressEvent(event);
}

void TWindow::mouseMoveEvent(QMouseEvent* event)
{
    QPointer<TWindow> const self(this);
    Q_EMIT WindowMouseMove(event);
    if (self)
        QWidget::mouseMoveEvent(event);
}

void TWindow::mouseReleaseEvent(QMouseEvent* event)
{
    QPointer<TWindow> const self(this);
    Q_EMIT WindowMouseRelease(event);
    if (self)
        QWidget::mouseReleaseEvent(event);
}

// Keys belong to whoever turns them into wheel, enter and back; a window keeps none, not even Escape.
void TWindow::keyPressEvent(QKeyEvent* event)
{
    event->ignore();
}

void TWindow::keyReleaseEvent(QKeyEvent* event)
{
    event->ignore();
}

void TWindow::paintEvent(QPaintEvent* event)
{
    Q_UNUSED(event)
    if (!m_Background)
        return;
    QPainter painter(this);
    painter.setOpacity(static_cast<qreal>(m_BackgroundOpacity));
    painter.drawPixmap(m_BackgroundX, m_BackgroundY, *m_Background);
    painter.setOpacity(1.0);
}

// Many windows are built at the start and few are shown: a hidden one fetches its background when it appears.
void TWindow::InvalidateBackground()
{
    m_BackgroundStale = true;
    if (isVisible())
        ResizeBackground();
    update();
}

void TWindow::ResizeBackground()
{
    m_BackgroundStale = false;
    KVN::PixmapManager* const pixmaps = tscreenPixmapManager();
    if (m_BackgroundName.isEmpty() || !pixmaps)
        return;
    int const backgroundWidth = m_BackgroundWidth == 0 ? width() : m_BackgroundWidth;
    int const backgroundHeight = m_BackgroundHeight == 0 ? height() : m_BackgroundHeight;
    m_Background = pixmaps->GetResizedPixmap(m_BackgroundName, backgroundWidth, backgroundHeight);
}

void TWindow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_Fade->setGeometry(m_ContentRect);
    ResizeBackground();
}

// A window that is closed instead of hidden must not leave its lock behind.
void TWindow::closeEvent(QCloseEvent* event)
{
    if (!m_WindowHidden)
        HideWindow();
    event->accept();
}

void TWindow::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (m_BackgroundStale)
        ResizeBackground();
    if (m_TimerInterval > 0)
        m_Timer.start(m_TimerInterval);
    if (m_AutoReCentre && parentWidget())
    {
        ReCentre(parentWidget());
        parentWidget()->installEventFilter(this);
    }
}

void TWindow::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    m_Timer.stop();
    if (parentWidget())
        parentWidget()->removeEventFilter(this);
}

void TWindow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ParentAboutToChange && parentWidget())
        parentWidget()->removeEventFilter(this);
}

QString TWindow::GetBackground() const
{
    return m_BackgroundName;
}

void TWindow::SetMiniViewsOverlap(bool overlap)
{
    m_MiniViewsOverlap = overlap;
}

bool TWindow::GetMiniViewsOverlap() const
{
    return m_MiniViewsOverlap;
}

bool TWindow::IsModal() const
{
    return m_Modal;
}

void TWindow::SetModalFlag()
{
    m_Modal = true;
}

void TWindow::ClearModalFlag()
{
    m_Modal = false;
}

void TWindow::SetLocalModal(bool local)
{
    m_LocalModal = local;
}

QRect TWindow::GetContentRect() const
{
    return m_ContentRect;
}

void TWindow::SetContentRect(QRect const& rect)
{
    m_ContentRect = rect;
    m_Fade->setGeometry(rect);
}

TPushButton* TWindow::GetOkButton() const
{
    return m_OkButton;
}

TPushButton* TWindow::GetCancelButton() const
{
    return m_CancelButton;
}

QVector<TPushButton*> const& TWindow::GetControlButtons() const
{
    return m_ControlButtons;
}
