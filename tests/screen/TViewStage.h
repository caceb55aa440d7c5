#pragma once

#include "Metrics.h"
#include "TCanvas.h"
#include "TestScreen.h"
#include "TFinger.h"
#include "TFullWindow.h"
#include "TMiniWindow.h"
#include "TNavigationBar.h"
#include "TNavigationButton.h"
#include "TObstructionManager.h"

#include <functional>
#include <memory>

/// A mini window that answers as a test wishes and notes what it is called for.
class TTestMiniWindow : public TMiniWindow
{
public:
    explicit TTestMiniWindow(QStringList& calls, QString const& name)
        : TMiniWindow(MainScreen)
        , m_Calls(calls)
        , m_Name(name)
    {
    }

    bool IsAvailable() override { return m_Available; }
    bool CanHideView() override { return m_CanHide; }
    KVN::AppWindowSurface* GetAppWindowSurface() override { return m_Surface; }
    void MaximizeSurface(KVN::AppWindowSurface* surface) override { m_Received = surface; }
    void OnMaximize() override
    {
        Note("maximise");
        TMiniWindow::OnMaximize();
    }
    void OnMinimize() override { Note("minimise"); }
    void UpdateView() override { Note("update"); }
    void ChildButtonsPropagateClick(bool propagate) override
    {
        m_Propagates = propagate;
        TMiniWindow::ChildButtonsPropagateClick(propagate);
    }
    void SaveXMLStateSnapshot(QDomElement element) override
    {
        if (m_Save)
            m_Save(element);
    }
    void RestoreXMLStateSnapshot(QDomElement element) override
    {
        Note("restore");
        m_Restored.append(element);
        if (m_Restore)
            m_Restore();
    }

    bool m_Available = true;
    bool m_CanHide = true;
    bool m_Propagates = true;
    KVN::AppWindowSurface* m_Surface = nullptr;
    KVN::AppWindowSurface* m_Received = nullptr;
    QList<QDomElement> m_Restored;
    std::function<void(QDomElement)> m_Save;
    std::function<void()> m_Restore;

private:
    void Note(char const* call) { m_Calls.append(m_Name + QLatin1Char(' ') + QLatin1String(call)); }

    QStringList& m_Calls;
    QString m_Name;
};

/// The same for a full window.
class TTestFullWindow : public TFullWindow
{
public:
    explicit TTestFullWindow(QStringList& calls, QString const& name)
        : TFullWindow(nullptr)
        , m_Calls(calls)
        , m_Name(name)
    {
    }

    bool IsAvailable() override { return m_Available; }
    KVN::AppWindowSurface* GetAppWindowSurface() override { return m_Surface; }
    void MinimizeSurface(KVN::AppWindowSurface* surface) override { m_Received = surface; }
    void ShowWindow(bool modal) override
    {
        Note("show");
        TFullWindow::ShowWindow(modal);
    }
    void HideWindow() override
    {
        Note("hide");
        TFullWindow::HideWindow();
    }
    void SaveXMLStateSnapshot(QDomElement element) override
    {
        if (m_Save)
            m_Save(element);
    }
    void RestoreXMLStateSnapshot(QDomElement element) override
    {
        Note("restore");
        m_Restored.append(element);
        if (m_Restore)
            m_Restore();
    }

    bool m_Available = true;
    KVN::AppWindowSurface* m_Surface = nullptr;
    KVN::AppWindowSurface* m_Received = nullptr;
    QList<QDomElement> m_Restored;
    std::function<void(QDomElement)> m_Save;
    std::function<void()> m_Restore;

private:
    void Note(char const* call) { m_Calls.append(m_Name + QLatin1Char(' ') + QLatin1String(call)); }

    QStringList& m_Calls;
    QString m_Name;
};

/// The parts of a view. They are the stage's unless a test deletes them.
struct TTestView
{
    int id = -1;
    QString name;
    QPointer<TTestMiniWindow> mini;
    QPointer<TCanvas> canvas;
    QPointer<TTestFullWindow> full;
};

/// What a view is made of.
enum EViewPart
{
    VIEW_NOTHING = 0,
    VIEW_MINI = 1,
    VIEW_CANVAS = 2,
    VIEW_FULL = 4,
    VIEW_ALL = VIEW_MINI | VIEW_CANVAS | VIEW_FULL
};

/// A screen with views on it.
class TViewStage
{
public:
    explicit TViewStage(bool show = true)
        : screen(show)
        , manager(screen.Manager())
        , finger(screen.get())
    {
        // As after the first full view: mini windows come out from behind a visible bar.
        if (TNavigationBar* const bar = screen->GetNavigationBar())
            bar->show();
    }
    ~TViewStage()
    {
        for (QPointer<QWidget> const& widget : qAsConst(m_Owned))
            delete widget;
    }
    TViewStage(TViewStage const&) = delete;
    TViewStage& operator=(TViewStage const&) = delete;

    /// Makes the parts of a view without registering it.
    TTestView Make(QString const& name, int parts)
    {
        TTestView view;
        view.name = name;
        if (parts & VIEW_MINI)
            view.mini = new TTestMiniWindow(calls, name);
        if (parts & VIEW_CANVAS)
            view.canvas = new TCanvas(nullptr);
        if (parts & VIEW_FULL)
            view.full = new TTestFullWindow(calls, name);
        Own(view.mini);
        Own(view.canvas);
        Own(view.full);
        return view;
    }
    void Register(TTestView& view, int id)
    {
        view.id = id;
        manager->RegisterView(view.name, id, nullptr, view.mini, view.canvas, view.full,
                              WIDGET_BEHAVIOUR_SINGLE, -1, false);
    }
    /// Makes and registers a view under the next id.
    TTestView Add(QString const& name, int parts = VIEW_MINI)
    {
        TTestView view = Make(name, parts);
        Register(view, m_NextId++);
        return view;
    }
    /// The same with its mini window standing in the next slot.
    TTestView AddStanding(QString const& name, int parts = VIEW_MINI)
    {
        TTestView const view = Add(name, parts);
        manager->OnShowMiniView(view.id);
        screen.FinishSlides();
        return view;
    }
    EMiniViewState State(TTestView const& view) const { return manager->GetMiniViewState(view.id); }
    /// The slots as "1 2|3|", the top of each last.
    QString Slots() const
    {
        QStringList slotTexts;
        for (int slot = 0; slot < TWindowManager::GetSlotCount(); ++slot)
        {
            QStringList ids;
            auto const held = manager->GetSlot(slot);
            for (int const id : held)
                ids.append(QString::number(id));
            slotTexts.append(ids.join(QLatin1Char(' ')));
        }
        return slotTexts.join(QLatin1Char('|'));
    }
    void Own(QWidget* widget) { m_Owned.append(widget); }

    TTestScreen screen;
    TWindowManager* manager;
    TFinger finger;
    QStringList calls;

private:
    QList<QPointer<QWidget>> m_Owned;
    int m_NextId = 1;
};
