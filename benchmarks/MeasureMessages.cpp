// Opens and closes 10 000 messages, of which each paints and deletes itself, and prints how much more memory
// the program holds afterwards.

#include "BenchScreen.h"
#include "TMessageDialog.h"
#include "TMMICapableWidgetNavigator.h"

#include <QApplication>
#include <QElapsedTimer>

#include <cstdio>
#include <malloc.h>

namespace
{
constexpr int WarmUp = 1000;
constexpr int Rounds = 10000;
constexpr int LongRepeats = 40;

// No two rounds alike, so that a cache without a bound shows too.
void Open(int round)
{
    QString const message = QStringLiteral("Section %1 is blocked. ").arg(round);
    QPixmap picture;
    if (round % 3 == 0)
    {
        picture = QPixmap(40 + round % 30, 60);
        picture.fill(Qt::darkRed);
    }
    auto* const dialog = new TMessageDialog(nullptr, QStringLiteral("Boom %1").arg(round),
                                            message.repeated(1 + round % LongRepeats),
                                            EMessageDialogType(round % MESSAGE_NO_BUTTON), true, picture);
    dialog->ShowWindow(round % 2 == 0);
    QCoreApplication::processEvents();
    dialog->Accept();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

size_t BytesInUse()
{
    struct mallinfo2 const info = mallinfo2();
    return info.uordblks + info.hblkhd;
}
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    TBenchScreen const screen(1);
    TMMICapableWidgetNavigator navigator(screen.Screen());
    screen.Screen()->SetMMINavigator(&navigator);
    for (int i = 0; i < WarmUp; ++i)
        Open(i);
    int const widgets = QApplication::allWidgets().size();
    size_t const before = BytesInUse();
    QElapsedTimer clock;
    clock.start();
    for (int i = 0; i < Rounds; ++i)
        Open(WarmUp + i);
    std::printf("messages.round.us %.1f\n", double(clock.nsecsElapsed()) / 1000.0 / Rounds);
    std::printf("messages.growth.kb %.1f\n", (double(BytesInUse()) - double(before)) / 1024.0);
    std::printf("messages.widgets.left %d\n", QApplication::allWidgets().size() - widgets);
    return 0;
}
