#include "TConsoleOptions.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>

#include <limits>

namespace
{
QString const DataOption = QStringLiteral("data");
QString const NmeaOption = QStringLiteral("nmea");
QString const BaudOption = QStringLiteral("baud");
QString const UsbOption = QStringLiteral("usb");
QString const TourOption = QStringLiteral("tour");
QString const ScreenshotOption = QStringLiteral("screenshot");
QString const MonkeyOption = QStringLiteral("monkey");
QString const SeedOption = QStringLiteral("seed");
QString const HelpOption = QStringLiteral("help");

QString Translate(char const* text)
{
    return QCoreApplication::translate("TConsoleOptions", text);
}

void AddOptions(QCommandLineParser& parser)
{
    parser.setApplicationDescription(
        Translate("The console of a tractor cab. Without a receiver it drives a simulated field."));
    parser.addOption({{QStringLiteral("h"), HelpOption}, Translate("Prints this text.")});
    parser.addOption(
        {DataOption,
         Translate("Keeps settings, layout and log in <folder>. Without it they are kept with the user's "
                   "data, or, in a run without an operator, nowhere."),
         QStringLiteral("folder")});
    parser.addOption(
        {NmeaOption,
         Translate("Takes the position from NMEA 0183: a recording, tcp:HOST:PORT, or a serial device."),
         QStringLiteral("source")});
    parser.addOption({BaudOption, Translate("Bits per second of a serial device; 38400 unless told."),
                      QStringLiteral("rate"), QStringLiteral("38400")});
    parser.addOption({UsbOption,
                      Translate("Takes <folder> for a USB stick, in place of those that are plugged in."),
                      QStringLiteral("folder")});
    parser.addOption({TourOption,
                      Translate("Shows what the console can do, and writes pictures of it into <folder>."),
                      QStringLiteral("folder")});
    parser.addOption({ScreenshotOption, Translate("Writes one picture of the started console to <file>."),
                      QStringLiteral("file")});
    parser.addOption({MonkeyOption,
                      Translate("Does <count> senseless things and checks the screen after each."),
                      QStringLiteral("count")});
    parser.addOption({SeedOption, Translate("Chooses what the monkey does; 1 unless told."),
                      QStringLiteral("number"), QStringLiteral("1")});
}

/// Reads numbers and notes the first that is none.
class TNumbers
{
public:
    TNumbers(QCommandLineParser const& parser, QString* error)
        : m_Parser(parser)
        , m_Error(error)
    {
    }

    quint32 Read(QString const& option, quint32 smallest, quint32 largest)
    {
        bool isNumber = false;
        quint32 const value = m_Parser.value(option).toUInt(&isNumber);
        if ((!isNumber || value < smallest || value > largest) && m_Error->isEmpty())
        {
            *m_Error = Translate("--%1 wants a number from %2 to %3, but got \"%4\".")
                           .arg(option)
                           .arg(smallest)
                           .arg(largest)
                           .arg(m_Parser.value(option));
        }
        return value;
    }

private:
    QCommandLineParser const& m_Parser;
    QString* m_Error;
};

void ReadNmea(QCommandLineParser const& parser, int baudRate, TConsoleOptions* options, QString* error)
{
    TNmeaOrigin origin;
    QString reason;
    if (TNmeaOrigin::Parse(parser.value(NmeaOption), baudRate, &origin, &reason))
        options->nmea = origin;
    else if (error->isEmpty())
        *error = Translate("--nmea: %1").arg(reason);
}

void CheckTexts(QCommandLineParser const& parser, QString* error)
{
    for (QString const& option : {DataOption, TourOption, ScreenshotOption})
    {
        if (parser.isSet(option) && parser.value(option).isEmpty() && error->isEmpty())
            *error = Translate("--%1 wants a name, but got an empty one.").arg(option);
    }
    if (!parser.positionalArguments().isEmpty() && error->isEmpty())
        *error = Translate("The console takes options only, but got: %1")
                     .arg(parser.positionalArguments().constFirst());
    if (parser.isSet(UsbOption) && !QFileInfo(parser.value(UsbOption)).isDir() && error->isEmpty())
        *error = Translate("--usb wants a folder, but got \"%1\".").arg(parser.value(UsbOption));
    int const runs =
        int(parser.isSet(TourOption)) + int(parser.isSet(ScreenshotOption)) + int(parser.isSet(MonkeyOption));
    if (runs > 1 && error->isEmpty())
        *error = Translate("Only one of --tour, --screenshot and --monkey at a time.");
}
} // namespace

std::optional<TConsoleOptions> TConsoleOptions::Parse(QStringList const& arguments, QString* error)
{
    QCommandLineParser parser;
    AddOptions(parser);
    error->clear();
    if (!parser.parse(arguments))
    {
        *error = parser.errorText();
        return std::nullopt;
    }
    TConsoleOptions options;
    options.help = parser.isSet(HelpOption);
    if (options.help)
        return options;
    CheckTexts(parser, error);
    options.dataFolder = parser.value(DataOption);
    options.usbFolder = parser.value(UsbOption);
    options.tourFolder = parser.value(TourOption);
    options.screenshotFile = parser.value(ScreenshotOption);
    TNumbers numbers(parser, error);
    constexpr quint32 LargestCount = std::numeric_limits<int>::max();
    constexpr quint32 LargestSeed = std::numeric_limits<quint32>::max();
    constexpr quint32 LargestBaudRate = 4000000;
    if (parser.isSet(MonkeyOption))
        options.monkeySteps = static_cast<int>(numbers.Read(MonkeyOption, 1, LargestCount));
    options.seed = numbers.Read(SeedOption, 0, LargestSeed);
    int const baudRate = static_cast<int>(numbers.Read(BaudOption, 1, LargestBaudRate));
    if (parser.isSet(NmeaOption))
        ReadNmea(parser, baudRate, &options, error);
    return error->isEmpty() ? std::optional<TConsoleOptions>(options) : std::nullopt;
}

QString TConsoleOptions::HelpText()
{
    QCommandLineParser parser;
    AddOptions(parser);
    return parser.helpText();
}
