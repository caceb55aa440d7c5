#include "ScreenInvariants.h"

#include "Metrics.h"
#include "ModuleIds.h"
#include "TCanvas.h"
#include "TFullWindow.h"
#include "TMiniWindow.h"
#include "TMMICapableWidgetNavigator.h"
#include "TMMIHighlightWidget.h"
#include "TModalWidget.h"
#include "TNavigationBar.h"
#include "TOffScreenButtons.h"
#include "TScreen.h"
#include "TSystemToolBar.h"
#include "TWindowManager.h"

#include <QApplication>
#include <QLabel>

#include <algorithm>

namespace
{
/// Collects what there is to look at once, since every rule looks at it.
struct TScene
{
    explicit TScene(TScreen* theScreen)
        : screen(theScreen)
        , manager(theScreen->GetWindowManager())
        , ids(theScreen->GetAllNavButtonIDs().keys())
        , isSetup(manager->GetFullViewId() ==
                  screen->GetNavButtonID(KVN::MorvaneID(WELL_KNOWN_MODULES[MODULE_SETUP_MANAGER])))
    {
        for (QObject* const child : screen->children())
        {
            auto* const widget = qobject_cast<QWidget*>(child);
            if (widget && widget->isVisible())
                layers.append(widget);
        }
    }

    int LayerOf(QWidget const* widget) const { return layers.indexOf(const_cast<QWidget*>(widget)); }
    TMiniWindow* MiniWindow(int id) const
    {
        for (QWidget* const widget : layers)
        {
            auto* const mini = qobject_cast<TMiniWindow*>(widget);
            if (mini && mini->GetViewId() == id)
                return mini;
        }
        return nullptr;
    }

    TScreen* screen;
    TWindowManager* manager;
    QList<int> ids;
    bool isSetup;
    /// The visible children of the screen, the lowest first.
    QList<QWidget*> layers;
};

QString OneTopLevelWindow(TScene const& scene)
{
    QWidgetList const windows = QApplication::topLevelWidgets();
    for (QWidget const* const window : windows)
    {
        if (window->isVisible() && window != scene.screen)
            return QStringLiteral("a second top-level window: %1")
                .arg(QLatin1String(window->metaObject()->className()));
    }
    return QString();
}

QString CanvasLiesLowest(TScene const& scene)
{
    auto const count =
        std::count_if(scene.layers.begin(), scene.layers.end(),
                      [](QWidget* widget) { return qobject_cast<TCanvas*>(widget) != nullptr; });
    if (count != 1)
        return QStringLiteral("%1 canvases are visible").arg(count);
    if (scene.LayerOf(scene.screen->GetCurrentCanvas()) != 0)
        return QStringLiteral("the current canvas is not the lowest layer");
    return QString();
}

QString FullViewIsUp(TScene const& scene)
{
    if (scene.manager->GetFullViewId() < 0)
        return QStringLiteral("no full view is current");
    auto const windows = scene.screen->findChildren<TFullWindow*>();
    auto const count = std::count_if(windows.begin(), windows.end(),
                                     [](TFullWindow* window) { return window->isVisible(); });
    return count == 1 ? QString() : QStringLiteral("%1 full windows are visible").arg(count);
}

QString BarsFollowTheView(TScene const& scene)
{
    if (scene.screen->IsNavigationBarVisible() == scene.isSetup)
        return scene.isSetup ? QStringLiteral("the navigation bar shows over the setup")
                             : QStringLiteral("the navigation bar is hidden");
    return QString();
}

QString SystemToolBarStandsInTheCorner(TScene const& scene)
{
    TSystemToolBar* const bar = scene.screen->GetSystemToolBar();
    if (!bar)
        return QString();
    if (bar->isVisible() == scene.isSetup)
        return scene.isSetup ? QStringLiteral("the system tool bar shows over the setup")
                             : QStringLiteral("the system tool bar is hidden");
    if (!scene.isSetup && bar->geometry().bottomRight() != scene.screen->rect().bottomRight())
        return QStringLiteral("the system tool bar left its corner");
    bool const isBehindTheFade = scene.LayerOf(scene.screen->GetModalWidget()) > scene.LayerOf(bar);
    if (!scene.isSetup && isBehindTheFade != scene.screen->AreAllToolbarsLocked())
        return QStringLiteral("the system tool bar is in the wrong layer");
    return QString();
}

QString OffScreenButtonsLieAboveAll(TScene const& scene)
{
    TOffScreenButtons* const strip = scene.screen->GetOffScreenButtons();
    if (!strip)
        return QString();
    EOffScreenState const state = scene.manager->GetOffScreenState();
    if (strip->isVisible() == (state == OFF_SCREEN_HIDDEN))
        return QStringLiteral("the off-screen buttons are not where they are thought to be");
    int const layer = scene.LayerOf(strip);
    for (int above = layer + 1; layer >= 0 && above < scene.layers.size(); ++above)
    {
        if (!scene.layers[above]->inherits("TToolTip"))
            return QStringLiteral("%1 lies above the off-screen buttons")
                .arg(QLatin1String(scene.layers[above]->metaObject()->className()));
    }
    return QString();
}

QString ToolTipLiesOnTop(TScene const& scene)
{
    for (int layer = 0; layer < scene.layers.size(); ++layer)
    {
        QWidget const* const widget = scene.layers[layer];
        if (!widget->inherits("TToolTip"))
            continue;
        if (layer + 1 != scene.layers.size())
            return QStringLiteral("%1 lies above the tool tip")
                .arg(QLatin1String(scene.layers.constLast()->metaObject()->className()));
        if (!scene.screen->rect().contains(widget->geometry()))
            return QStringLiteral("the tool tip leaves the screen");
    }
    return QString();
}

QString TopLockLiesAboveTheFade(TScene const& scene)
{
    QVector<TLockingWidget> const& locks = scene.screen->GetLockingWidgets();
    if (locks.isEmpty() || scene.LayerOf(locks.constLast().widget) < 0)
        return QString();
    return scene.LayerOf(locks.constLast().widget) < scene.LayerOf(scene.screen->GetModalWidget())
               ? QStringLiteral("the window that locks the screen is behind the fade")
               : QString();
}

QString MiniWindowsLieBelowTheBar(TScene const& scene)
{
    int const bar = scene.LayerOf(scene.screen->GetNavigationBar());
    for (int layer = 0; layer < scene.layers.size(); ++layer)
    {
        QWidget* const widget = scene.layers[layer];
        bool const belongsBelow = qobject_cast<TMiniWindow*>(widget) || qobject_cast<QLabel*>(widget);
        if (belongsBelow && bar >= 0 && layer > bar)
            return QStringLiteral("%1 lies above the navigation bar")
                .arg(QLatin1String(widget->metaObject()->className()));
        if (belongsBelow && scene.isSetup)
            return QStringLiteral("a mini window shows over the setup");
    }
    return QString();
}

QString SlotsHaveOneTop(TScene const& scene)
{
    QList<int> seen;
    for (int slot = 0; slot < TWindowManager::GetSlotCount(); ++slot)
    {
        QList<int> const ids = scene.manager->GetSlot(slot);
        int below = -1;
        for (int const id : ids)
        {
            EMiniViewState const state = scene.manager->GetMiniViewState(id);
            if (seen.contains(id))
                return QStringLiteral("view %1 stands in two places").arg(id);
            seen.append(id);
            if (state == MINI_VIEW_HIDDEN || state == MINI_VIEW_HIDING)
                return QStringLiteral("view %1 stands in slot %2, but is going or gone").arg(id).arg(slot);
            TMiniWindow* const mini = scene.MiniWindow(id);
            if (!mini && !scene.isSetup)
                return QStringLiteral("view %1 stands in slot %2, but is not on the screen")
                    .arg(id)
                    .arg(slot);
            int const layer = scene.LayerOf(mini);
            // One that still settles is raised when it has settled.
            if (mini && state == MINI_VIEW_SHOWN && layer < below)
                return QStringLiteral("view %1 lies below the one that it covers in slot %2")
                    .arg(id)
                    .arg(slot);
            below = state == MINI_VIEW_SHOWN ? qMax(below, layer) : below;
        }
    }
    return QString();
}

QString MiniWindowsStandWhereTheyShould(TScene const& scene)
{
    for (int const id : scene.ids)
    {
        EMiniViewState const state = scene.manager->GetMiniViewState(id);
        TMiniWindow const* const mini = scene.MiniWindow(id);
        if (state == MINI_VIEW_HIDDEN && mini)
            return QStringLiteral("view %1 is hidden, but on the screen").arg(id);
        if (state != MINI_VIEW_SHOWN || !mini)
            continue;
        int slot = 0;
        while (slot < TWindowManager::GetSlotCount() && !scene.manager->GetSlot(slot).contains(id))
            ++slot;
        if (mini->pos() != QPoint(NAVBAR_WIDTH, slot * MINI_WINDOW_SIZE))
            return QStringLiteral("view %1 stands at %2, %3").arg(id).arg(mini->x()).arg(mini->y());
        if (mini->testAttribute(Qt::WA_TransparentForMouseEvents))
            return QStringLiteral("view %1 is shown, but takes no touch").arg(id);
    }
    return QString();
}

QString LocksHaveOwners(TScene const& scene)
{
    QWidgetList const all = QApplication::allWidgets();
    QVector<TLockingWidget> const& locks = scene.screen->GetLockingWidgets();
    for (TLockingWidget const& lock : locks)
    {
        if (!all.contains(lock.widget))
            return QStringLiteral("a widget that is gone locks the screen");
        if (!lock.widget->isVisible())
            return QStringLiteral("a hidden widget locks the screen");
    }
    if (scene.screen->GetModalWidget()->isVisible() == locks.isEmpty())
        return locks.isEmpty() ? QStringLiteral("the fade is up without a lock")
                               : QStringLiteral("a lock has no fade");
    return QString();
}

QString WheelPointsAtOneThing(TScene const& scene)
{
    auto const glows = scene.screen->findChildren<TMMIHighlightWidget*>();
    auto const count = std::count_if(glows.begin(), glows.end(),
                                     [](TMMIHighlightWidget* glow) { return glow->isVisible(); });
    return count <= 1 ? QString() : QStringLiteral("%1 widgets glow").arg(count);
}
} // namespace

QString BrokenInvariant(TScreen* screen)
{
    TScene const scene(screen);
    using TRule = QString (*)(TScene const&);
    constexpr TRule Rules[] = {OneTopLevelWindow,
                               CanvasLiesLowest,
                               FullViewIsUp,
                               BarsFollowTheView,
                               SystemToolBarStandsInTheCorner,
                               OffScreenButtonsLieAboveAll,
                               ToolTipLiesOnTop,
                               MiniWindowsLieBelowTheBar,
                               SlotsHaveOneTop,
                               MiniWindowsStandWhereTheyShould,
                               LocksHaveOwners,
                               TopLockLiesAboveTheFade,
                               WheelPointsAtOneThing};
    for (TRule const rule : Rules)
    {
        QString const broken = rule(scene);
        if (!broken.isEmpty())
            return broken;
    }
    return QString();
}
