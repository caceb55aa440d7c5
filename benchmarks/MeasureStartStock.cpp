// A bare window of the size of the screen.

#include "FirstPaint.h"

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    TFirstPaint const report("stock", argc > 1 ? QByteArray(argv[1]).toLongLong() : 0);
    QWidget window(nullptr, Qt::Window | Qt::FramelessWindowHint);
    window.resize(1024, 768);
    window.show();
    return QApplication::exec();
}
