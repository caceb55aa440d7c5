#include "Automation.h"

#include "TConsole.h"
#include "TConsoleOptions.h"
#include "TMonkey.h"
#include "TScreen.h"
#include "TTour.h"
#include "TVirtualTime.h"

#include <QDir>
#include <QTemporaryDir>

#include <cstdio>

namespace
{
constexpr int Succeeded = 0;
constexpr int Failed = 1;
// What the machine has done before the screen comes up, so that there is something to see on it; a recording
// may be short.
constexpr int SimulatedWorkBefore = 8 * 60 * 1000;
constexpr int RecordedWorkBefore = 8 * 1000;
constexpr int PaintTime = 500;
QString const OwnStick = QStringLiteral("usb");

int Report(QString const& failure)
{
    if (failure.isEmpty())
        return Succeeded;
    std::fprintf(stderr, "%s\n", qPrintable(failure));
    return Failed;
}

int TakeScreenshot(TConsole* console, TVirtualTime* time, QString const& file)
{
    time->Pass(PaintTime);
    bool const isWritten = console->Screen()->grab().save(file, "PNG");
    return Report(isWritten ? QString() : QStringLiteral("%1 cannot be written").arg(file));
}

int LetTheMonkeyPlay(TConsole* console, TVirtualTime* time, TConsoleOptions const& options)
{
    TMonkey monkey(console->Shell(), time, options.seed);
    QString const broken = monkey.Play(options.monkeySteps);
    if (!broken.isEmpty())
        return Report(QStringLiteral("monkey: seed %1, %2").arg(options.seed).arg(broken));
    std::printf("monkey: seed %u, %d steps, all held (%s)\n", options.seed, options.monkeySteps,
                qPrintable(monkey.Summary()));
    return Succeeded;
}
} // namespace

int RunAutomatically(TConsoleOptions const& options)
{
    QTemporaryDir ownFolder;
    QDir(ownFolder.path()).mkdir(OwnStick);
    TVirtualTime time;
    TConsole console(options, options.dataFolder.isEmpty() ? ownFolder.path() : options.dataFolder);
    time.SetWaitForOthers([&console] { console.WaitForWorkers(); });
    // A run without an operator leaves the sticks of the machine that it runs on alone.
    console.WatchUsb(options.usbFolder.isEmpty() ? ownFolder.filePath(OwnStick) : options.usbFolder);
    console.StartMachine();
    time.Pass(options.nmea ? RecordedWorkBefore : SimulatedWorkBefore);
    console.Start();
    if (!options.tourFolder.isEmpty())
        return Report(TTour(&console, &time, options.tourFolder).Run());
    if (!options.screenshotFile.isEmpty())
        return TakeScreenshot(&console, &time, options.screenshotFile);
    return LetTheMonkeyPlay(&console, &time, options);
}
