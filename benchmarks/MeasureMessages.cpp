// Opens and closes 10 000 messages, of which each paints and deletes itself, and prints how much more memory
// the program holds afterwards. They come in bursts with a pause behind each, in which the wheel's navigator
// notices what has gone.

#include "BenchScreen.h"
#include "TLocalTime.h"
#include "TMessageDialog.h"
#include "TMMICapableWidgetNavigator.h"

#include <QApplication>
#include <QElapsedTimer>

#include <cstdio>
#include <malloc.h>

namespace
{
constexpr int WarmUp = 2500;
constexpr int Rounds = 10000;
constexpr int Burst = 100;
// Wider numbers later on would make windows of sizes that the caches have not seen.
constexpr int Digits = 5;
constexpr int LongRepeats = 40;
// The pause in ms: as the operator has it, and as it takes here.
constexpr int PauseTime = 1000;
constexpr int RealPauseTime = 150;

// No two rounds alike, so that a cache without a bound shows too.
void Open(int round)
{
    QString const number = QString::number(round).rightJustified(Digits, QLatin1Char('0'));
    QString const message = QStringLiteral("Section %1 is blocked. ").arg(number);
    QPixmap picture;
    if (round % 3 == 0)
    {
        picture = QPixmap(40 + round % 30, 60);
        picture.fill(Qt::darkRed);
    }
    auto* const dialog = new TMessageDialog(nullptr, QStringLiteral("Boom %1").arg(number),
                                            message.repeated(1 + round % LongRepeats),
                                            EMessageDialogType(round % MESSAGE_NO_BUTTON), true, picture);
    dialog->ShowWindow(round % 2 == 0);
    QCoreApplication::processEvents();
    dialog->Accept();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}

void Pause(qint64& skipped)
{
    skipped += PauseTime;
    QElapsedTimer clock;
    clock.start();
    while (!clock.hasExpired(RealPauseTime))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, RealPauseTime);
}

void OpenMany(int first, int count, qint64& skipped)
{
    for (int i = 0; i < count; ++i)
    {
        Open(first + i);
        if (i % Burst == Burst - 1)
            Pause(skipped);
    }
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
    QElapsedTimer clock;
    clock.start();
    qint64 skipped = 0;
    TLocalTime::SetClock([&clock, &skipped] { return clock.elapsed() + skipped; });
    OpenMany(0, WarmUp, skipped);
    int const widgets = QApplication::allWidgets().size();
    size_t const before = BytesInUse();
    OpenMany(WarmUp, Rounds, skipped);
    std::printf("messages.growth.kb %.1f\n", (double(BytesInUse()) - double(before)) / 1024.0);
    std::printf("messages.widgets.left %d\n", QApplication::allWidgets().size() - widgets);
    TLocalTime::SetClock({});
    return 0;
}
