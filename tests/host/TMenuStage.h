#pragma once

#include "TCanvasMenuDisplay.h"
#include "TestModule.h"
#include "TestScreen.h"
#include "TFinger.h"
#include "TFullWindow.h"
#include "THostPlatform.h"
#include "TMenuCanvas.h"
#include "TMenuManager.h"
#include "TMenuState.h"
#include "TMMICapableWidgetNavigator.h"
#include "TMMIHighlightWidget.h"
#include "TPushButton.h"
#include "TTaskToolBar.h"

#include <QTimer>

#include <algorithm>
#include <functional>
#include <memory>

/// Notes what the elements of menus call.
class TMenuReceiver : public QObject
{
    Q_OBJECT

public:
    QList<int> TakeCalls()
    {
        QList<int> const calls = m_Calls;
        m_Calls.clear();
        return calls;
    }

    std::function<void()> m_OnCall;

public Q_SLOTS:
    void Note(int argument)
    {
        m_Calls << argument;
        if (m_OnCall)
            m_OnCall();
    }
    void Arrived(bool arrived) { m_Arrivals << arrived; }

public:
    QList<int> m_Calls;
    QList<bool> m_Arrivals;
};

/// A view whose canvas offers menus.
class TMenuModule : public IConsoleModule
{
public:
    TMenuModule(KVN::MorvaneID const& id, TMenuManager& manager)
        : m_Id(id)
        , m_Canvas(std::make_unique<TMenuCanvas>(nullptr, manager))
        , m_Full(m_Canvas.get())
    {
    }

    void RegisterViews(TScreen* screen) override
    {
        m_ViewId = screen->AssignNavButton(m_Id, QStringLiteral("icon-info"), nullptr, m_Canvas.get(),
                                           &m_Full, QString());
        m_Canvas->SetFullWindow(&m_Full, false);
    }

    KVN::MorvaneID m_Id;
    std::unique_ptr<TMenuCanvas> m_Canvas;
    TFullWindow m_Full;
    int m_ViewId = -1;
};

/// A console whose root menu leads to the field and the tank, and the field to its lines. Two views offer the
/// menus; the first is up.
class TMenuStage
{
public:
    static constexpr int TickMs = 100;

    TMenuStage()
        : navigator(screen.get())
        , platform(screen.get())
        , root(QStringLiteral("Root"))
        , field(QStringLiteral("Field"))
        , tank(QStringLiteral("Tank"))
        , lines(QStringLiteral("Lines"))
        , first(std::make_unique<TMenuModule>(TTestModule::Id(1), manager))
        , second(std::make_unique<TMenuModule>(TTestModule::Id(2), manager))
    {
        screen->SetMMINavigator(&navigator);
        for (TMenuState* const menu : {&root, &field, &tank, &lines})
            manager.AddMenu(menu);
        manager.SetRootMenuID(root.GetMenuID(), true);
        toField = AddOpener(root, "field", field);
        toTank = AddOpener(root, "tank", tank);
        record = Add(field, "record");
        toLines = AddOpener(field, "lines", lines);
        drain = Add(tank, "drain");
        left = Add(lines, "left");
        right = Add(lines, "right");
        first->RegisterViews(screen.get());
        second->RegisterViews(screen.get());
        screen->SetDefaultView(first->m_Id);
        screen->DisplayStartupFullView();
        Settle();
    }
    TMenuStage(TMenuStage const&) = delete;
    TMenuStage& operator=(TMenuStage const&) = delete;

    /// Lets everything arrive that is on its way, and the displays draw it.
    void Settle()
    {
        QCoreApplication::processEvents();
        for (auto const* const module : {first.get(), second.get()})
        {
            if (module && module->m_Canvas)
                PassPace(module->m_Canvas->GetMenuDisplay());
        }
        QCoreApplication::processEvents();
    }
    static void PassPace(TCanvasMenuDisplay* display)
    {
        QList<QTimer*> const timers = display->findChildren<QTimer*>();
        for (auto* const timer : timers)
        {
            if (!timer->isActive())
                continue;
            timer->stop();
            QMetaObject::invokeMethod(timer, "timeout");
        }
    }

    TCanvas* Canvas() const { return first->m_Canvas.get(); }
    TCanvasMenuDisplay* Display() const { return first->m_Canvas->GetMenuDisplay(); }
    QRect Strip() const { return Canvas()->GetRootToolbarRect(); }
    QRect OnCanvas(QWidget const* widget) const
    {
        return {widget->mapTo(Canvas(), QPoint()), widget->size()};
    }
    /// Null while there is none to be seen.
    TTaskToolBar* Bar(char const* name) const
    {
        QList<TTaskToolBar*> const bars = Canvas()->findChildren<TTaskToolBar*>(QLatin1String(name));
        for (auto* const bar : bars)
        {
            if (bar->isVisible())
                return bar;
        }
        return nullptr;
    }
    TPushButton* Button(char const* bar, char const* name) const
    {
        TTaskToolBar const* const found = Bar(bar);
        return found ? found->findChild<TPushButton*>(QLatin1String(name)) : nullptr;
    }
    TPushButton* FoldButton() const
    {
        return Canvas()->findChild<TPushButton*>(QLatin1String(TCanvasMenuDisplay::FoldButtonName));
    }
    QStringList NamesOnBar(char const* name) const
    {
        QMap<int, QString> names;
        if (TTaskToolBar const* const bar = Bar(name))
        {
            QList<TPushButton*> const buttons = bar->findChildren<TPushButton*>();
            for (auto const* const button : buttons)
            {
                if (button->isVisible())
                    names.insert(button->y(), button->objectName());
            }
        }
        return QStringList(names.begin(), names.end());
    }

    /// The view loses its canvas, with the menus on it.
    void DropCanvas()
    {
        first->m_Full.setParent(nullptr);
        first->m_Canvas.reset();
    }

    void Touch(QWidget* widget)
    {
        QVERIFY(widget);
        TFinger(screen.get()).Touch(widget);
        Settle();
    }
    /// A finger draws the strip of the bar up by \a distance pixels.
    void DragUp(QWidget* bar, int distance)
    {
        TFinger finger(screen.get());
        QPoint const place = bar->mapTo(screen.get(), bar->rect().center());
        finger.Press(place);
        finger.Move({place - QPoint(0, distance / 2), place - QPoint(0, distance)});
        finger.Lift();
    }
    void Unfold()
    {
        if (!Display()->AreMenusVisible())
            Touch(FoldButton());
    }
    void Open(char const* bar, char const* opener) { Touch(Button(bar, opener)); }

    int Add(TMenuState& menu, char const* name, bool shortcut = false,
            EElementHideMode hideMode = ELEMENT_HIDE_NONE)
    {
        return menu.AddElement(
            Element(name, TActivationConfig(&receiver, "Note", hideMode, m_NextArgument++), shortcut));
    }
    /// Elements that make a menu long; answers their ids.
    QList<int> AddMore(TMenuState& menu, int count)
    {
        QList<int> ids;
        for (int i = 0; i < count; ++i)
            ids << Add(menu, "more");
        return ids;
    }
    static int AddOpener(TMenuState& menu, char const* name, TMenuState const& target)
    {
        return menu.AddElement(
            Element(name, TActivationConfig(target.GetMenuID(), ELEMENT_HIDE_NONE), false));
    }
    static TElementState Element(char const* name, TActivationConfig const& config, bool shortcut)
    {
        QString const text = QLatin1String(name);
        return TElementState(TMMIDef(text, text.toUpper(), false), config, text.toUpper(), QString(), 0, true,
                             true, shortcut);
    }
    /// Changes one element as a module does.
    template<typename TChange>
    void Change(TMenuState& menu, int id, TChange change)
    {
        TElementState element = menu.GetElement(id);
        change(element);
        menu.SetElement(element);
        Settle();
    }

    /// The wheel's tick.
    void Tick()
    {
        screen.m_Clock.Advance(TickMs);
        navigator.UpdateFocus();
    }
    /// A press of the enter key, and what comes of it.
    void Enter()
    {
        navigator.OnEnter();
        LetPressesEnd();
        Tick();
    }
    /// What the enter key presses is seen for a while before it is clicked.
    void LetPressesEnd()
    {
        QList<TPushButton*> const buttons = screen->findChildren<TPushButton*>();
        QVERIFY(QTest::qWaitFor(
            [&buttons]
            {
                return std::none_of(buttons.begin(), buttons.end(),
                                    [](TPushButton const* button) { return button->isDown(); });
            }));
        Settle();
    }
    /// Ticks, and lets presses end, until the macro path has reported.
    bool FollowToTheEnd()
    {
        constexpr int MostTicks = 20;
        for (int i = 0; i < MostTicks && receiver.m_Arrivals.isEmpty(); ++i)
        {
            Tick();
            LetPressesEnd();
        }
        return receiver.m_Arrivals == QList<bool>{true};
    }
    /// The name of what the wheel stands on.
    QString Selected() const
    {
        auto const* const glow = screen->findChild<TMMIHighlightWidget*>();
        if (!glow || !glow->isVisible())
            return {};
        for (QObject* const sibling : glow->parent()->children())
        {
            auto const* const widget = qobject_cast<QWidget*>(sibling);
            if (widget && widget != glow && widget->isVisible() && widget->geometry() == glow->geometry())
                return widget->objectName();
        }
        return {};
    }

    TTestScreen screen;
    TMMICapableWidgetNavigator navigator;
    THostPlatform platform;
    TMenuReceiver receiver;
    TMenuManager manager;
    TMenuState root;
    TMenuState field;
    TMenuState tank;
    TMenuState lines;
    std::unique_ptr<TMenuModule> first;
    std::unique_ptr<TMenuModule> second;
    int toField = -1;
    int toTank = -1;
    int toLines = -1;
    int record = -1;
    int drain = -1;
    int left = -1;
    int right = -1;

private:
    int m_NextArgument = 0;
};
