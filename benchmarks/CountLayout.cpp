// Saves or restores a layout a number of times, for an instruction counter. Usage: count-layout (manager |
// dom) (save | restore) COUNT

#include "LayoutPair.h"

#include <QApplication>

#include <cstdio>
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
    QStringList const arguments = QCoreApplication::arguments();
    int const count = arguments.value(3).toInt();
    if (arguments.size() != 4 || count < 1)
    {
        std::fputs("Usage: count-layout (manager | dom) (save | restore) COUNT\n", stderr);
        return 2;
    }
    LayoutPair::TViews views;
    std::function<void()> const work =
        WorkOf(arguments.at(1), arguments.at(2), views.Manager(), views.Manager()->GetStateSnapshotXML());
    for (int i = 0; i < count; ++i)
        work();
    return 0;
}
