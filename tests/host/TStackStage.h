#pragma once

#include "ScreenLayers.h"
#include "TCanvas.h"
#include "TestModule.h"
#include "TestScreen.h"
#include "THostPlatform.h"
#include "TMMICapableWidgetNavigator.h"
#include "TPopupWindow.h"
#include "TTaskWindow.h"
#include "TWindowManager.h"
#include "TWindowStacks.h"

#include <memory>
#include <vector>

/// A module with a mini window and nothing else.
class TMiniModule : public IConsoleModule
{
public:
    explicit TMiniModule(KVN::MorvaneID const& id)
        : m_Id(id)
        , m_Mini(nullptr)
    {
    }

    void RegisterViews(TScreen* screen) override
    {
        m_ViewId =
            screen->AssignNavButton(m_Id, QStringLiteral("icon-info"), &m_Mini, nullptr, nullptr, QString());
    }

    KVN::MorvaneID m_Id;
    TMiniWindow m_Mini;
    int m_ViewId = -1;
};

/// A console with the modules A and B, which have full views, and C, which has none. A is up. Its time passes
/// at once.
class TStackStage
{
public:
    TStackStage()
        : navigator(screen.get())
        , platform(screen.get())
        , a(Add(new TTestModule(TTestModule::Id(1))))
        , b(Add(new TTestModule(TTestModule::Id(2))))
        , c(Add(new TMiniModule(TTestModule::Id(3))))
    {
        screen->SetMMINavigator(&navigator);
        screen->SetDefaultView(a->m_Id);
        screen->DisplayStartupFullView();
        QCoreApplication::processEvents();
    }
    ~TStackStage()
    {
        for (QPointer<QWidget> const& window : qAsConst(m_Windows))
            delete window;
    }
    TStackStage(TStackStage const&) = delete;
    TStackStage& operator=(TStackStage const&) = delete;

    /// Owned by the stage.
    template<typename TModule>
    TModule* Add(TModule* module)
    {
        m_Modules.emplace_back(module);
        module->RegisterViews(screen.get());
        return module;
    }

    TScreen* Screen() const { return screen.get(); }
    TWindowManager* Manager() const { return screen.Manager(); }
    TWindowStacks* Stacks() const { return platform.GetWindowStacks(); }
    template<typename TModule>
    void GoTo(TModule const* module)
    {
        Manager()->OnDraggedOffRight(module->m_ViewId);
        screen.FinishSlides();
    }
    template<typename TModule>
    void OpenMini(TModule const* module)
    {
        Manager()->OnShowMiniView(module->m_ViewId);
        screen.FinishSlides();
    }

    TPopupWindow* Popup(KVN::MorvaneID const& id = KVN::MorvaneID())
    {
        auto* const popup = new TPopupWindow(nullptr);
        popup->SetSurfaceID(id);
        m_Windows.append(popup);
        return popup;
    }
    TTaskWindow* Task(KVN::MorvaneID const& id = KVN::MorvaneID())
    {
        auto* const task = new TTaskWindow(nullptr);
        task->SetSurfaceID(id);
        task->SetDesiredContentSize(300, 200);
        m_Windows.append(task);
        return task;
    }
    template<typename TWindowType>
    TWindowType* Shown(TWindowType* window, bool modal = false, bool local = false)
    {
        window->ShowWindow(modal, local);
        return window;
    }

    /// The widgets that lock the screen, the first one first.
    QList<QWidget*> Locks() const
    {
        QList<QWidget*> widgets;
        for (TLockingWidget const& lock : Screen()->GetLockingWidgets())
            widgets.append(lock.widget);
        return widgets;
    }
    /// Whether the canvas is behind its own fade.
    static bool IsFaded(TCanvas const& canvas)
    {
        auto const* const fade = canvas.findChild<TModalWidget*>(QString(), Qt::FindDirectChildrenOnly);
        return fade && fade->isVisibleTo(&canvas);
    }

    TTestScreen screen;
    TMMICapableWidgetNavigator navigator;
    THostPlatform platform;

private:
    std::vector<std::unique_ptr<IConsoleModule>> m_Modules;

public:
    TTestModule* const a;
    TTestModule* const b;
    TMiniModule* const c;

private:
    QList<QPointer<QWidget>> m_Windows;
};
