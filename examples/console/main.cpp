#include "Automation.h"
#include "TConsole.h"
#include "TConsoleOptions.h"

#include <QApplication>
#include <QStandardPaths>

#include <cstdio>

namespace
{
constexpr int UsageError = 2;

/// The arguments without those that choose the platform, which Qt itself reads later.
QStringList WithoutPlatform(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
    {
        QByteArray const argument(argv[i]);
        if (argument == "-platform" || argument == "--platform")
            ++i;
        else
            arguments.append(QString::fromLocal8Bit(argument));
    }
    return arguments;
}

bool ChoosesPlatform(int argc, QStringList const& others)
{
    return argc != others.size() || qEnvironmentVariableIsSet("QT_QPA_PLATFORM");
}

int PrintHelp(int argc, char** argv)
{
    QCoreApplication const application(argc, argv);
    std::fputs(qPrintable(TConsoleOptions::HelpText()), stdout);
    return 0;
}

int RunWithOperator(TConsoleOptions const& options)
{
    QString const folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    TConsole console(options, options.dataFolder.isEmpty() ? folder : options.dataFolder);
    console.WatchUsb(options.usbFolder);
    console.StartMachine();
    console.Start();
    return QApplication::exec();
}
} // namespace

int main(int argc, char** argv)
{
    QStringList const arguments = WithoutPlatform(argc, argv);
    QString error;
    auto const options = TConsoleOptions::Parse(arguments, &error);
    if (!options)
    {
        std::fprintf(stderr, "%s\nTry --help.\n", qPrintable(error));
        return UsageError;
    }
    if (options->help)
        return PrintHelp(argc, argv);
    if (options->IsAutomatic() && !ChoosesPlatform(argc, arguments))
        qputenv("QT_QPA_PLATFORM", "offscreen");

    // One pixel of the layout is one pixel of the screen, whatever the display says of itself.
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    QApplication const application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("console"));
    QCoreApplication::setApplicationVersion(QStringLiteral(CONSOLE_VERSION));
    return options->IsAutomatic() ? RunAutomatically(*options) : RunWithOperator(*options);
}
