#include "TMonkeyWindows.h"

#include "TPopupWindow.h"
#include "TScreen.h"
#include "TTaskWindow.h"

#include <memory>

namespace
{
constexpr int Places = 5;
constexpr int ChancesOfDeath = 4;
constexpr int SmallestSide = 120;
constexpr int SideRange = 300;
} // namespace

TMonkeyWindows::TMonkeyWindows(TScreen* screen, QRandomGenerator* random)
    : m_Screen(screen)
    , m_Random(random)
    , m_Windows(Places)
{
}

TMonkeyWindows::~TMonkeyWindows()
{
    for (QPointer<TWindow> const& window : qAsConst(m_Windows))
        delete window;
}

void TMonkeyWindows::Act()
{
    TWindow* const window = Any();
    if (Choose(2) == 0)
        ActLater(window, Any());
    else
        AnyDeed(window)();
}

TWindow* TMonkeyWindows::Any()
{
    QPointer<TWindow>& place = m_Windows[Choose(Places)];
    if (!place)
        place = Make();
    return place;
}

TWindow* TMonkeyWindows::Make()
{
    QList<KVN::MorvaneID> modules = m_Screen->GetAllNavButtonIDs().values();
    modules.append(KVN::MorvaneID()); // the screen's own
    KVN::MorvaneID const module = modules.at(Choose(modules.size()));
    QSize const size(SmallestSide + Choose(SideRange), SmallestSide + Choose(SideRange));
    if (Choose(2) == 0)
    {
        auto* const popup = new TPopupWindow(nullptr);
        popup->SetSurfaceID(module);
        popup->resize(size);
        return popup;
    }
    auto* const task = new TTaskWindow(nullptr);
    task->SetSurfaceID(module);
    task->SetDesiredContentSize(size);
    return task;
}

TMonkeyWindows::TDeed TMonkeyWindows::AnyDeed(TWindow* window)
{
    QPointer<TWindow> const guard(window);
    if (Choose(ChancesOfDeath) == 0)
        return [guard] { delete guard; };
    if (Choose(2) == 0)
    {
        return [guard]
        {
            if (guard)
                guard->HideWindow();
        };
    }
    bool const isModal = Choose(ChancesOfDeath) == 0;
    return [guard, isModal]
    {
        if (guard)
            guard->ShowWindow(isModal);
    };
}

// Once, so that two windows do not bring each other up for ever.
void TMonkeyWindows::ActLater(TWindow* cause, TWindow* window)
{
    auto const signal = Choose(2) == 0 ? &TWindow::WindowShown : &TWindow::WindowHidden;
    auto const connection = std::make_shared<QMetaObject::Connection>();
    *connection = QObject::connect(cause, signal, window,
                                   [connection, deed = AnyDeed(window)]
                                   {
                                       TDeed const own = deed; // the connection takes its own copy along
                                       QObject::disconnect(*connection);
                                       own();
                                   });
}
