// Steps a value up and down and paints it, for an instruction counter. Usage: count-steps (own | stock) value
// COUNT
//
// The stock one is a QDoubleSpinBox with the same bounds, step, decimals and unit in the style Fusion.

#include "BenchScreen.h"
#include "CountArguments.h"
#include "Fonts.h"
#include "Metrics.h"
#include "TEditWidget.h"

#include <QApplication>
#include <QDoubleSpinBox>
#include <QStyleFactory>

namespace
{
constexpr QRect Place(300, 300, 150, 50);
constexpr double Largest = 100.0;
constexpr double Step = 0.5;

void StepStock(TScreen* screen, int count)
{
    QDoubleSpinBox box(screen);
    QFont font(STANDARD_BOLD_FONT);
    font.setPixelSize(STANDARD_FONT_SIZE);
    box.setFont(font);
    box.setRange(0, Largest);
    box.setSingleStep(Step);
    box.setDecimals(1);
    box.setSuffix(QStringLiteral(" km/h"));
    box.setGeometry(Place);
    box.setValue(Largest / 2);
    box.show();
    QCoreApplication::processEvents();
    for (int i = 0; i < count; ++i)
    {
        box.stepBy(i % 2 == 0 ? 1 : -1);
        QCoreApplication::processEvents();
    }
}

void StepOwn(TScreen* screen, int count)
{
    QWidget source(screen);
    source.setGeometry(Place);
    source.show();
    TEditItem item;
    item.SetMinMaxInc(0, Largest, Step);
    item.SetUnitAndDecimalPlaces(UNIT_KILOMETRES_PER_HOUR, 1);
    item.floatingButtons = true;
    item.value = Largest / 2;
    TEditWidget editor(nullptr, &item);
    editor.setParent(screen);
    editor.SetPosition(&source);
    editor.show();
    editor.SourceMovedSlot();
    QCoreApplication::processEvents();
    for (int i = 0; i < count; ++i)
    {
        if (i % 2 == 0)
            editor.OnUp();
        else
            editor.OnDown();
        QCoreApplication::processEvents();
    }
}
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    TCountArguments const arguments;
    if (!arguments.AreComplete() || arguments.What() != QLatin1String("value"))
        return TCountArguments::Refuse("count-steps (own | stock) value COUNT");
    TBenchScreen const screen(0);
    QCoreApplication::processEvents();
    (arguments.Kind() == QLatin1String("stock") ? StepStock : StepOwn)(MainScreen, arguments.Count());
    return 0;
}
