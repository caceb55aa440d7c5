// Does one thing with buttons a number of times, for an instruction counter: the difference between two
// numbers, divided by their difference, is the price of one. Usage: count-buttons (own | fusion) (repaint |
// construct) COUNT

#include "ButtonPairs.h"
#include "CountArguments.h"

#include <functional>

namespace
{
using TMake = std::function<QWidget*(QWidget*)>;

void Repaint(ButtonPairs::TStage& stage, TMake const& make, int count)
{
    QWidget* const button = make(&stage.window);
    QCoreApplication::processEvents();
    for (int i = 0; i < count; ++i)
        button->repaint();
}

void Construct(ButtonPairs::TStage& stage, TMake const& make, int count)
{
    for (int i = 0; i < count; ++i)
    {
        std::unique_ptr<QWidget> const button(make(&stage.window));
        button->repaint();
    }
}
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    TCountArguments const arguments;
    if (!arguments.AreComplete())
        return TCountArguments::Refuse("count-buttons (own | opaque | fusion) (repaint | construct) COUNT");
    QString const kind = arguments.Kind();
    ButtonPairs::TStage stage;
    TMake make = &ButtonPairs::MakeStock;
    if (kind == QLatin1String("own"))
        make = &ButtonPairs::MakeOwn;
    else if (kind == QLatin1String("opaque"))
        make = &ButtonPairs::MakeOpaque;
    bool const isRepaint = arguments.What() == QLatin1String("repaint");
    (isRepaint ? Repaint : Construct)(stage, make, arguments.Count());
    return 0;
}
