// Usage: units-probe values|date|weight|separator|shared|threads
// A process of its own for what a test cannot do to itself: to read the units database, or none, under
// another environment. The operator's log goes to the standard output and has a value in each line.
//  values     prints what is shown of a few values in US units, and which of their units can be converted
//  date       prints a date and a time of day
//  weight     prints what US units show of a volume that is bought by weight and of a mass read as volume
//  separator  prints a number before the operator has chosen anything, in a program that is otherwise German
//  shared     as values, in a program that uses UDUNITS-2 too and fails while the database is read, and later
//  threads    lets several threads be the first at once to convert a value, prints what each has got and
//             whether the settings live in the main thread

#include "TUnits.h"
#include "TUnitSettings.h"
#include "UserLog.h"

#include <QCoreApplication>
#include <QLocale>
#include <QThread>

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <dlfcn.h>
#include <thread>
#include <udunits2.h>
#include <vector>

namespace
{
class TPrintedLog : public IUserLogAccessor
{
public:
    void AddEntry(QString const& text) override
    {
        QString const way =
            TUnits::GetValueStringInContext(1.0, UNIT_TYPE_LENGTH, UNITS_CONTEXT_GENERAL, 1, nullptr, 1.0);
        std::printf("log: %s, %s\n", qPrintable(text), qPrintable(way));
    }
};

void PrintShown(double value, EUnitsType type)
{
    QString const text = TUnits::GetValueStringInContext(value, type, UNITS_CONTEXT_GENERAL, 3, nullptr, 1.0);
    double const shown = TUnits::GetValueInCurrentUnit(value, type, UNITS_CONTEXT_GENERAL, 1.0);
    double const stored = TUnits::GetValueInDefaultUnit(shown, type, UNITS_CONTEXT_GENERAL, 1.0);
    std::printf("%s %.12g\n", qPrintable(text), stored);
}

void ChooseUsUnits()
{
    TUnitSettings::Instance()->SetChoices(
        TUnitChoices::FromNumbers(QLatin1Char('.'), UNIT_SYSTEM_US, 0, true));
}

void PrintValues()
{
    ChooseUsUnits();
    PrintShown(12.5, UNIT_TYPE_LENGTH);
    PrintShown(20.0, UNIT_TYPE_TEMPERATURE);
    PrintShown(2.0, UNIT_TYPE_SEED_RATE);
    std::printf("%.12g\n", TUnits::ConvertUnit(12.5, UNIT_METRE, UNIT_FOOT, 1.0));
    std::printf("%d %d\n", TUnits::CanConvert(UNIT_METRE, UNIT_FOOT),
                TUnits::CanConvert(UNIT_DEGREE_CELSIUS, UNIT_KELVIN));
}

void PrintWeight()
{
    constexpr double DENSITY = 1.28;
    ChooseUsUnits();
    for (EUnitsType const type : {UNIT_TYPE_VOLUME, UNIT_TYPE_MASS})
    {
        EUnitsContext const context = type == UNIT_TYPE_VOLUME ? UNITS_CONTEXT_WEIGHED : UNITS_CONTEXT_GRAIN;
        QString const text = TUnits::GetValueStringInContext(100.0, type, context, 1, nullptr, DENSITY);
        std::printf("%s\n", qPrintable(text));
    }
}

void PrintDate()
{
    constexpr double DAY = 2460311.0;
    constexpr double HOURS = 13.5;
    QString const date = TUnits::GetValueString(DAY, UNIT_DATE, 0, nullptr, 1.0);
    QString const time = TUnits::GetValueString(HOURS, UNIT_TIME_OF_DAY, 0, nullptr, 1.0);
    std::printf("%s\n%s\n", date.toUtf8().constData(), time.toUtf8().constData());
}

void PrintSeparator()
{
    QLocale::setDefault(QLocale(QLocale::German));
    std::printf("%s\n", qPrintable(TUnits::GetValueString(12.5, QString(), 1, nullptr)));
}

bool isSharing = false;
ut_error_message_handler handlerOfTheDatabase = nullptr;

void Fail(ut_error_message_handler handler, char const* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    handler(format, arguments);
    va_end(arguments);
}

void PrintWhileOthersFail()
{
    isSharing = true;
    PrintValues();
    Fail(handlerOfTheDatabase, "failed %s", "later");
}

void PrintFromThreads()
{
    constexpr int THREADS = 8;
    std::atomic<int> waiting{THREADS};
    std::vector<QString> texts(THREADS);
    std::vector<std::thread> threads;
    threads.reserve(THREADS);
    for (QString& text : texts)
    {
        threads.emplace_back(
            [&waiting, &text]
            {
                --waiting;
                while (waiting > 0)
                    std::this_thread::yield();
                double const feet = TUnits::ConvertUnit(12.5, UNIT_METRE, UNIT_FOOT, 1.0);
                text = TUnits::GetValueString(feet, UNIT_FOOT, 1, nullptr, 1.0);
            });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (QString const& text : texts)
        std::printf("%s\n", qPrintable(text));
    std::printf("%d\n", TUnitSettings::Instance()->thread() == QThread::currentThread());
}

struct TTask
{
    char const* name;
    void (*run)();
};

constexpr TTask TASKS[] = {{"values", PrintValues},          {"date", PrintDate},
                           {"weight", PrintWeight},          {"separator", PrintSeparator},
                           {"shared", PrintWhileOthersFail}, {"threads", PrintFromThreads}};
} // namespace

// Comes before that of the library.
extern "C" Q_DECL_EXPORT ut_system* ut_read_xml(char const* path)
{
    if (isSharing)
    {
        handlerOfTheDatabase = ut_set_error_message_handler(ut_ignore);
        ut_set_error_message_handler(handlerOfTheDatabase);
        std::thread([] { Fail(handlerOfTheDatabase, "failed %s", "elsewhere"); }).join();
    }
    using TRead = ut_system* (*)(char const*);
    static auto const read = reinterpret_cast<TRead>(dlsym(RTLD_NEXT, "ut_read_xml"));
    return read(path);
}

// QCoreApplication takes over the locale of the environment, as the console's application does.
int main(int argc, char** argv)
{
    QCoreApplication const application(argc, argv);
    SetUserLog(std::make_shared<TPrintedLog>());
    for (TTask const& task : TASKS)
    {
        if (argc == 2 && QByteArray(argv[1]) == task.name)
        {
            task.run();
            return 0;
        }
    }
    return 2;
}
