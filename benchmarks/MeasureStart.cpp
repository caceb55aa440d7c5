// A console with six views, from the start of the program to its first full view.

#include "BenchScreen.h"
#include "FirstPaint.h"
#include "TMMICapableWidgetNavigator.h"

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    TFirstPaint const report("toolkit", argc > 1 ? QByteArray(argv[1]).toLongLong() : 0);
    TBenchScreen console(6);
    TMMICapableWidgetNavigator navigator(console.Screen());
    console.Screen()->SetMMINavigator(&navigator);
    console.Screen()->DisplayStartupFullView();
    console.Manager()->DisplayFullView(console.Id(0), false);
    return QApplication::exec();
}
