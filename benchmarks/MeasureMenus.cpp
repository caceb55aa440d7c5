// Threads that change menus as fast as they are told to, a screen that shows them, a plain reader that keeps
// up with every notice, and an operator who presses what is on the screen. Prints how far the display is
// behind, how long its thread waits for locks, and whether the last state was lost.
//
// measure-menus [SECONDS [THREADS [CHANGES]]], CHANGES being those of each thread in a second.

#include "LockProbe.h"
#include "MainScreen.h"
#include "TCanvasMenuDisplay.h"
#include "TMenuCanvas.h"
#include "TMenuManager.h"
#include "TMenuState.h"
#include "TPushButton.h"
#include "TScreen.h"

#include <QApplication>
#include <QSet>
#include <QTimer>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <iterator>
#include <map>
#include <memory>
#include <numeric>
#include <random>
#include <thread>
#include <vector>

#ifdef __SANITIZE_THREAD__
#include <sanitizer/tsan_interface.h>
#endif

namespace
{
constexpr int Menus = 40;
constexpr int Elements = 25;
constexpr int Root = 0;
constexpr int Tick = 1;             // ms between the bursts of changes of a thread
constexpr int PressTime = 20;       // ms
constexpr int LongestLag = 5000000; // µs after which a wrong display counts as one that stays so

using TClock = std::chrono::steady_clock;

std::int64_t Now()
{
    return std::chrono::duration_cast<std::chrono::microseconds>(TClock::now().time_since_epoch()).count();
}

/// Since when each menu has had changes that the display has not shown, in µs; 0 if it has none.
std::array<std::atomic<std::int64_t>, Menus> unseenSince;

/// Counts how many events of the menus waited when the event loop came to them: it goes through those that
/// it finds, and no further. A manager gets no others.
class TCountingManager : public TMenuManager
{
public:
    void NextRound()
    {
        largest = std::max(largest, m_InRound);
        m_InRound = 0;
    }

    std::int64_t delivered = 0;
    int largest = 0;

protected:
    bool event(QEvent* event) override
    {
        ++delivered;
        ++m_InRound;
        return TMenuManager::event(event);
    }

private:
    int m_InRound = 0;
};

/// What a display keeps of a menu.
struct TPicture
{
    bool isEnabled = true;
    std::vector<TElementState> elements;

    bool operator!=(TPicture const& other) const
    {
        return isEnabled != other.isEnabled ||
               !std::equal(elements.begin(), elements.end(), other.elements.begin(), other.elements.end(),
                           [](TElementState const& one, TElementState const& two) { return !(one != two); });
    }
};

/// Reads from the manager what it is told of, and nothing else.
class TPlainDisplay : public QObject
{
public:
    explicit TPlainDisplay(TMenuManager& manager)
        : m_Manager(manager)
    {
        connect(&manager, &TMenuManager::ElementListChanged, this, &TPlainDisplay::ShowMenu);
        connect(&manager, &TMenuManager::ElementStateChanged, this, &TPlainDisplay::ShowMenu);
        connect(&manager, &TMenuManager::MenuStateChanged, this, &TPlainDisplay::ShowOpenMenus);
        std::vector<TMenuStateCopy> const menus = manager.GetAllMenuElements();
        for (TMenuStateCopy const& menu : menus)
            ShowMenu(menu.menuID);
        ShowOpenMenus();
    }

    /// Whether it shows what the menus are, and the manager knows it.
    bool IsRight() const
    {
        std::vector<TMenuState*> const menus = m_Manager.GetMenus();
        return m_Open == m_Manager.GetMenuShownOrder() &&
               std::all_of(menus.begin(), menus.end(),
                           [this](TMenuState const* menu) { return IsRight(*menu); });
    }

    std::int64_t shown = 0;
    std::vector<std::int64_t> lags;

private:
    static TPicture PictureOf(TMenuState const& menu) { return {menu.IsEnabled(), menu.GetElementsState()}; }

    bool IsRight(TMenuState const& menu) const
    {
        TPicture const picture = PictureOf(menu);
        QSet<int> shortcuts;
        for (TElementState const& element : picture.elements)
        {
            if (element.IsVisible() && element.IsShortcut())
                shortcuts.insert(element.GetID());
        }
        int const id = menu.GetMenuID();
        return !(m_Pictures.at(id) != picture) && m_Manager.GetMenuDisplayState(id).shortcutIDs == shortcuts;
    }

    void ShowMenu(int menuID)
    {
        std::int64_t const since = unseenSince.at(menuID).exchange(0);
        if (since)
            lags.push_back(Now() - since);
        m_Pictures[menuID] = {m_Manager.GetMenu(menuID)->IsEnabled(), m_Manager.GetElementsState(menuID)};
        ++shown;
    }

    void ShowOpenMenus()
    {
        m_Open = m_Manager.GetMenuShownOrder();
        for (int const id : qAsConst(m_Open))
            m_Manager.GetMenuDisplayState(id);
    }

    TMenuManager& m_Manager;
    std::map<int, TPicture> m_Pictures;
    QList<int> m_Open;
};

/// The name by which an element's buttons are found.
QString NameOf(int menu, int element)
{
    return QStringLiteral("%1.%2").arg(menu).arg(element);
}

/// The menus on a screen, as the console shows them.
class TScreenDisplay
{
public:
    explicit TScreenDisplay(TMenuManager& manager)
        : m_Manager(manager)
    {
        MainScreen = &m_Screen;
        m_Screen.Setup();
        m_Canvas = std::make_unique<TMenuCanvas>(&m_Screen, manager);
        m_Canvas->SetBackgroundColor(Qt::darkGray);
        m_Screen.show();
        m_Canvas->show();
        m_Canvas->raise();
        m_Canvas->GetMenuDisplay()->ToggleMenus();
    }
    ~TScreenDisplay()
    {
        m_Canvas.reset();
        MainScreen = nullptr;
    }
    TScreenDisplay(TScreenDisplay const&) = delete;
    TScreenDisplay& operator=(TScreenDisplay const&) = delete;

    /// What may be pressed.
    QList<TPushButton*> Buttons() const
    {
        QList<TPushButton*> seen;
        QList<TPushButton*> const all = m_Canvas->findChildren<TPushButton*>();
        std::copy_if(all.begin(), all.end(), std::back_inserter(seen),
                     [](TPushButton const* button) {
                         return button->isVisible() &&
                                button->objectName() != QLatin1String(TCanvasMenuDisplay::FoldButtonName);
                     });
        return seen;
    }

    /// Whether each button that is seen shows its element as it is, and the open menus are those of the
    /// manager.
    bool IsRight() const
    {
        QList<int> shown = m_Canvas->GetMenuDisplay()->GetMenuShownOrder();
        QList<int> open = m_Manager.GetMenuShownOrder();
        std::sort(shown.begin(), shown.end());
        std::sort(open.begin(), open.end());
        QList<TPushButton*> const buttons = Buttons();
        return shown == open && buttons.size() >= VisibleElements(Root) &&
               std::all_of(buttons.begin(), buttons.end(),
                           [this](TPushButton const* button) { return IsRight(*button); });
    }

private:
    int VisibleElements(int menuID) const
    {
        std::vector<TElementState> const elements = m_Manager.GetElementsState(menuID);
        return int(std::count_if(elements.begin(), elements.end(),
                                 [](TElementState const& element) { return element.IsVisible(); }));
    }
    bool IsRight(TPushButton const& button) const
    {
        QStringList const ids = button.objectName().split(QLatin1Char('.'));
        int const menu = ids.constFirst().toInt();
        TElementState const element = m_Manager.GetMenu(menu)->GetElement(ids.constLast().toInt());
        bool const isEnabled = element.IsEnabled() && m_Manager.IsMenuEnabled(menu);
        return element.IsVisible() && button.GetToolTip() == element.GetName() &&
               button.isEnabled() == isEnabled;
    }

    TMenuManager& m_Manager;
    TScreen m_Screen;
    std::unique_ptr<TMenuCanvas> m_Canvas;
};

/// A thread of a module. It changes any element of any menu, now and then there and back.
class TChanger
{
public:
    TChanger(std::vector<std::unique_ptr<TMenuState>> const& menus, unsigned seed, int rate)
        : m_Menus(menus)
        , m_Random(seed)
        , m_Rate(rate)
    {
    }

    void Run(int seconds)
    {
        auto const start = TClock::now();
        for (int tick = 0; tick < seconds * 1000 / Tick; ++tick)
        {
            for (int change = 0; change < m_Rate * Tick / 1000; ++change)
                Change();
            ended = Now();
            std::this_thread::sleep_until(start + std::chrono::milliseconds((tick + 1) * Tick));
        }
    }

    std::int64_t changes = 0;
    std::int64_t ended = 0;

private:
    int Below(int end) { return static_cast<int>(m_Random() % static_cast<unsigned>(end)); }

    void Change()
    {
        int const index = Below(Menus);
        TMenuState& menu = *m_Menus.at(index);
        int const kind = Below(1000);
        if (kind == 0)
            Q_EMIT menu.ForceToShortcut(index);
        else if (kind < 20)
            menu.SetEnabled(kind % 2 == 0);
        else
            ChangeElement(menu, kind);
        ++changes;
        std::int64_t none = 0;
        unseenSince.at(index).compare_exchange_strong(none, Now());
    }

    void ChangeElement(TMenuState& menu, int kind)
    {
        TElementState const before = menu.GetElement(Below(Elements));
        TElementState element = before;
        if (kind < 100)
            element.SetVisible(!element.IsVisible());
        else if (kind < 120)
            element.SetShortcut(!element.IsShortcut());
        else if (kind < 400)
            element.SetEnabled(!element.IsEnabled());
        else if (kind < 600)
            element.SetIconName(m_Icons.at(kind % m_Icons.size()));
        else
            element.SetName(QString::number(changes));
        menu.SetElement(element);
        if (kind % 10 == 0)
            menu.SetElement(before);
    }

    std::vector<std::unique_ptr<TMenuState>> const& m_Menus;
    std::mt19937 m_Random;
    int const m_Rate;
    std::array<QString, 3> const m_Icons{QStringLiteral("icon-section-on"),
                                         QStringLiteral("icon-section-off"), QStringLiteral("icon-warning")};
};

/// Presses what is on the screen.
class TOperator : public QObject
{
public:
    explicit TOperator(TScreenDisplay const& display)
        : m_Display(display)
    {
        connect(&m_Timer, &QTimer::timeout, this, &TOperator::Press);
        m_Timer.start(PressTime);
    }

    void Stop() { m_Timer.stop(); }

    int presses = 0;

private:
    void Press()
    {
        QList<TPushButton*> const buttons = m_Display.Buttons();
        if (buttons.isEmpty())
            return;
        buttons.at(int(m_Random() % unsigned(buttons.size())))->click();
        ++presses;
    }

    TScreenDisplay const& m_Display;
    QTimer m_Timer;
    std::mt19937 m_Random{1};
};

std::vector<std::unique_ptr<TMenuState>> MakeMenus(TMenuManager& manager)
{
    std::vector<std::unique_ptr<TMenuState>> menus;
    for (int id = 0; id < Menus; ++id)
    {
        menus.push_back(std::make_unique<TMenuState>(QStringLiteral("menu%1").arg(id)));
        for (int element = 0; element < Elements; ++element)
        {
            // A tree of four menus below each, and a hide mode in a few.
            int const target = element < 4 && id * 4 + element + 1 < Menus ? id * 4 + element + 1 : -1;
            auto const mode = element == 5   ? ELEMENT_HIDE_MENU
                              : element == 6 ? ELEMENT_HIDE_ALL
                                             : ELEMENT_HIDE_NONE;
            menus.back()->AddElement(
                TElementState(TMMIDef(NameOf(id, element), QString::number(element), true),
                              TActivationConfig(target, mode), QString::number(element),
                              QStringLiteral("icon-section-off"), element, true, true, element % 10 == 7));
        }
        manager.AddMenu(menus.back().get());
    }
    manager.SetRootMenuID(Root, true);
    return menus;
}

/// An event loop that knows its rounds. What was posted in another thread comes here.
class TConsole : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override
    {
#ifdef __SANITIZE_THREAD__
        __tsan_acquire(qApp);
#endif
        return QApplication::notify(receiver, event);
    }
};

double Quantile(std::vector<std::int64_t>& values, double share)
{
    if (values.empty())
        return 0.0;
    std::sort(values.begin(), values.end());
    return double(values.at(std::min(values.size() - 1, std::size_t(share * double(values.size()))))) /
           1000.0;
}

double CpuSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) + double(time.tv_nsec) * 1e-9;
}

/// The threads of the modules, from start to end.
class TLoad
{
public:
    TLoad(std::vector<std::unique_ptr<TMenuState>> const& menus, int seconds, int threads, int rate)
        : m_Running(threads)
    {
        for (int thread = 0; thread < threads; ++thread)
            m_Changers.emplace_back(menus, unsigned(thread + 1), rate);
        for (TChanger& changer : m_Changers)
        {
            m_Threads.emplace_back(
                [this, &changer, seconds]
                {
                    changer.Run(seconds);
                    --m_Running;
                    // For the loop to see it.
                    QCoreApplication::postEvent(qApp, new QEvent(QEvent::User));
                });
        }
    }
    ~TLoad()
    {
        for (std::thread& thread : m_Threads)
            thread.join();
    }

    bool IsRunning() const { return m_Running > 0; }

    // Once it does not run any more.
    std::int64_t Changes() const
    {
        return std::accumulate(m_Changers.begin(), m_Changers.end(), std::int64_t(0),
                               [](std::int64_t sum, TChanger const& changer)
                               { return sum + changer.changes; });
    }
    std::int64_t Ended() const
    {
        return std::max_element(m_Changers.begin(), m_Changers.end(),
                                [](TChanger const& one, TChanger const& two)
                                { return one.ended < two.ended; })
            ->ended;
    }

private:
    std::atomic<int> m_Running;
    std::vector<TChanger> m_Changers;
    std::vector<std::thread> m_Threads;
};

// From the last change to the right display, in ms; -1 if it stays wrong.
double LastLag(TPlainDisplay const& reader, TScreenDisplay const& screen, std::int64_t ended)
{
    while (!reader.IsRight() || !screen.IsRight())
    {
        if (Now() - ended > LongestLag)
            return -1.0;
        QCoreApplication::processEvents();
    }
    return double(std::max<std::int64_t>(0, Now() - ended)) / 1000.0;
}

int Argument(int argc, char** argv, int index, int fallback)
{
    return argc > index ? std::max(1, std::atoi(argv[index])) : fallback;
}
void Print(char const* name, double value)
{
    std::printf("menus.%s %.3f\n", name, value);
}

void PrintWaits()
{
    Print("locks", double(LockProbe::Count()));
    Print("lock.wait.median.us", LockProbe::Quantile(0.5));
    Print("lock.wait.99.us", LockProbe::Quantile(0.99));
    Print("lock.wait.99.9.us", LockProbe::Quantile(0.999));
    Print("lock.wait.longest.us", LockProbe::Quantile(1.0));
}
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    TConsole const application(argc, argv);
    int const seconds = Argument(argc, argv, 1, 60);
    TCountingManager manager;
    std::vector<std::unique_ptr<TMenuState>> const menus = MakeMenus(manager);
    TPlainDisplay display(manager);
    TScreenDisplay screen(manager);
    TOperator finger(screen);
    QCoreApplication::processEvents();
    manager.NextRound();
    manager.largest = 0;

    LockProbe::StartHere();
    double const start = CpuSeconds();
    TLoad const load(menus, seconds, Argument(argc, argv, 2, 4), Argument(argc, argv, 3, 10000));
    while (load.IsRunning())
    {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        manager.NextRound();
    }
    finger.Stop();
    double const cpu = CpuSeconds() - start;
    double const lag = LastLag(display, screen, load.Ended());

    Print("changes.per.s", double(load.Changes()) / seconds);
    Print("presses", finger.presses);
    Print("events", double(manager.delivered));
    Print("events.waiting.largest", manager.largest);
    Print("shown", double(display.shown));
    Print("lag.median.ms", Quantile(display.lags, 0.5));
    Print("lag.largest.ms", Quantile(display.lags, 1.0));
    Print("lag.last.ms", lag);
    Print("display.cpu.share", cpu / seconds);
    PrintWaits();
    return lag < 0.0 ? 1 : 0;
}
