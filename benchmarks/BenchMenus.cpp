// A snapshot of 1 000 elements of menus, in one menu and in many, against a copy of the same values as one
// would write them down without the toolkit, under a lock of the standard library.

#include "TMenuManager.h"
#include "TMenuState.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

#include <memory>
#include <mutex>
#include <shared_mutex>
#include <vector>

namespace
{
constexpr int Elements = 1000;

void Shapes(benchmark::internal::Benchmark* benchmark)
{
    for (int const menus : {1, 40})
        benchmark->Arg(menus);
    benchmark->Unit(benchmark::kMicrosecond);
}

QString Name(int element)
{
    return QStringLiteral("Section %1").arg(element);
}

QString IconName(int element)
{
    return QStringLiteral("SectionIcon%1").arg(element);
}

/// What an element is at the moment, without what was last reported of it.
struct TPlainElement
{
    int id;
    QString name;
    QString iconName;
    QList<TMMIDef::Data> path;
    QObject* receiver;
    char const* method;
    int argument;
    int menuToToggle;
    EElementHideMode hideMode;
    int controlID;
    bool isEnabled;
    bool isVisible;
    bool isControlVisible;
    bool isShortcut;
};

struct TPlainMenu
{
    int id;
    QString name;
    std::vector<TPlainElement> elements;
};

class TPlainMenus
{
public:
    explicit TPlainMenus(int menus)
    {
        for (int menu = 0; menu < menus; ++menu)
        {
            m_Menus.push_back({menu, Name(menu), {}});
            for (int id = 0; id < Elements / menus; ++id)
                m_Menus.back().elements.push_back({id,
                                                   Name(id),
                                                   IconName(id),
                                                   {{Name(menu), Name(id)}},
                                                   qApp,
                                                   "quit",
                                                   id,
                                                   1,
                                                   ELEMENT_HIDE_NONE,
                                                   id,
                                                   true,
                                                   true,
                                                   true,
                                                   false});
        }
    }

    std::vector<TPlainMenu> Snapshot() const
    {
        std::shared_lock<std::shared_mutex> const locker(m_Lock);
        return m_Menus;
    }

private:
    std::vector<TPlainMenu> m_Menus;
    mutable std::shared_mutex m_Lock;
};

/// The same in the toolkit.
struct TMenus
{
    explicit TMenus(int count)
    {
        for (int menu = 0; menu < count; ++menu)
        {
            menus.push_back(std::make_unique<TMenuState>(Name(menu)));
            for (int id = 0; id < Elements / count; ++id)
                menus.back()->AddElement(
                    TElementState(TMMIDef(Name(menu), Name(id), true),
                                  TActivationConfig(1, qApp, "quit", ELEMENT_HIDE_NONE, id), Name(id),
                                  IconName(id), id, true, true, false));
            manager.AddMenu(menus.back().get());
        }
        QCoreApplication::processEvents();
    }

    std::vector<std::unique_ptr<TMenuState>> menus;
    TMenuManager manager;
};

void MenuSnapshotPlain(benchmark::State& state)
{
    TPlainMenus const menus(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(menus.Snapshot().data());
}
BENCHMARK(MenuSnapshotPlain)->Apply(Shapes);

void MenuSnapshotToolkit(benchmark::State& state)
{
    TMenus const menus(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(menus.manager.GetAllMenuElements().data());
}
BENCHMARK(MenuSnapshotToolkit)->Apply(Shapes);

// Elements that have changed since they were reported share less with what they were.
void MenuSnapshotToolkitChanged(benchmark::State& state)
{
    TMenus const menus(int(state.range(0)));
    std::vector<TMenuStateCopy> const shown = menus.manager.GetAllMenuElements();
    for (auto const& menu : menus.menus)
    {
        std::vector<TElementState> const elements = menu->GetElementsState();
        for (TElementState element : elements)
        {
            element.SetName(Name(Elements + element.GetID()));
            menu->SetElement(element);
        }
    }
    for (auto _ : state)
        benchmark::DoNotOptimize(menus.manager.GetAllMenuElements().data());
}
BENCHMARK(MenuSnapshotToolkitChanged)->Apply(Shapes);

void MenuElementsToolkit(benchmark::State& state)
{
    TMenus const menus(1);
    for (auto _ : state)
        benchmark::DoNotOptimize(menus.manager.GetElementsState(0).data());
}
BENCHMARK(MenuElementsToolkit)->Unit(benchmark::kMicrosecond);
} // namespace
