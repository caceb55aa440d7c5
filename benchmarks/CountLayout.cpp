// Saves or restores a layout a number of times, for an instruction counter. Usage: count-layout (manager |
// dom) (save | restore) COUNT

#include "CountArguments.h"
#include "LayoutPair.h"

#include <QApplication>

#include <functional>

namespace
{
std::function<void()> WorkOf(QString const& kind, QString const& what, TWindowManager* manager,
                             QString const& text)
{
    bool const isDom = kind == QLatin1String("dom");
    if (what == QLatin1String("restore"))
    {
        if (isDom)
            return [text] { LayoutPair::DomRestore(text); };
        return [manager, text] { manager->RestoreStateFromSnapShot(text, true); };
    }
    if (!isDom)
        return [manager] { manager->GetStateSnapshotXML(); };
    QDomDocument model;
    model.setContent(text);
    return [model] { LayoutPair::DomSave(model); };
}
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    TCountArguments const arguments;
    if (!arguments.AreComplete())
        return TCountArguments::Refuse("count-layout (manager | dom) (save | restore) COUNT");
    LayoutPair::TViews views;
    std::function<void()> const work =
        WorkOf(arguments.Kind(), arguments.What(), views.Manager(), views.Manager()->GetStateSnapshotXML());
    int const count = arguments.Count();
    for (int i = 0; i < count; ++i)
        work();
    return 0;
}
