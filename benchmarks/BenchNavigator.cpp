// Finding and ordering the stops of 1 000 widgets, against a plain walk and a sort of packed keys.

#include "MMICapableWidget.h"
#include "TMMICapableWidgetNavigator.h"

#include <QRandomGenerator>
#include <QWidget>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <vector>

namespace
{
constexpr int WidgetCount = 1000;

class TStop : public QWidget, public KVN::MMICapableWidget
{
public:
    using QWidget::QWidget;
};

// A page of a thousand stops, a tenth of them behind plain layout widgets.
void Fill(QWidget* page)
{
    QRandomGenerator random(7);
    page->resize(1024, 768);
    QWidget* group = page;
    for (int i = 0; i < WidgetCount; ++i)
    {
        if (i % 100 == 0)
        {
            group = i % 200 == 0 ? page : new QWidget(page);
            group->resize(1024, 768);
        }
        auto* const stop = new TStop(group);
        stop->setGeometry(int(random.bounded(980)), int(random.bounded(740)), 40, 20);
    }
}

struct TKeyed
{
    quint64 key;
    QWidget* widget;
};

void Collect(QObject const* object, std::vector<TKeyed>& found)
{
    for (QObject* const child : object->children())
    {
        if (auto* const capable = dynamic_cast<KVN::MMICapableWidget*>(child))
        {
            QWidget* const widget = capable->Widget();
            QPoint const centre = widget->mapToGlobal(QPoint(widget->width() / 2, widget->height() / 2));
            found.push_back({quint64(quint32(centre.y())) << 32 | quint32(centre.x()), widget});
        }
        else
        {
            Collect(child, found);
        }
    }
}

void PlainWalkAndSort(benchmark::State& state)
{
    TStop root;
    Fill(&root);
    for (auto _ : state)
    {
        std::vector<TKeyed> found;
        Collect(&root, found);
        std::sort(found.begin(), found.end(), [](TKeyed const& a, TKeyed const& b) { return a.key < b.key; });
        benchmark::DoNotOptimize(found.data());
    }
}
BENCHMARK(PlainWalkAndSort)->Unit(benchmark::kMicrosecond);

void NavigatorRefresh(benchmark::State& state)
{
    TStop root;
    Fill(&root);
    TMMICapableWidgetNavigator navigator(&root);
    for (auto _ : state)
        navigator.RefreshChildren();
}
BENCHMARK(NavigatorRefresh)->Unit(benchmark::kMicrosecond);
} // namespace
