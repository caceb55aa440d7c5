// Does one thing with buttons a number of times, for an instruction counter: the difference between two
// numbers, divided by their difference, is the price of one. Usage: count-buttons (own | fusion) (repaint |
// construct) COUNT

#include "ButtonPairs.h"

#include <cstdio>
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
    QStringList const arguments = QCoreApplication::arguments();
    QString const kind = arguments.value(1);
    bool const repaint = arguments.value(2) == QLatin1String("repaint");
    int const count = arguments.value(3).toInt();
    if (arguments.size() != 4 || count < 1)
    {
        std::fputs("Usage: count-buttons (own | opaque | fusion) (repaint | construct) COUNT\n", stderr);
        return 2;
    }
    ButtonPairs::TStage stage;
    TMake make = &ButtonPairs::MakeStock;
    if (kind == QLatin1String("own"))
        make = &ButtonPairs::MakeOwn;
    else if (kind == QLatin1String("opaque"))
        make = &ButtonPairs::MakeOpaque;
    if (repaint)
        Repaint(stage, make, count);
    else
        Construct(stage, make, count);
    return 0;
}
