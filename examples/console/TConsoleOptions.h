#pragma once

#include "TNmeaReceiver.h"

#include <QString>
#include <QStringList>

#include <optional>

/// What the console is asked to do by its command line.
struct TConsoleOptions
{
    QString dataFolder;              ///< empty: nothing was said
    std::optional<TNmeaOrigin> nmea; ///< nothing: the simulated tractor
    QString usbFolder;               ///< empty: the sticks of the system
    QString tourFolder;
    QString screenshotFile;
    int monkeySteps = 0;
    quint32 seed = 1;
    bool help = false;

    /// True for a run without an operator.
    bool IsAutomatic() const { return !tourFolder.isEmpty() || !screenshotFile.isEmpty() || monkeySteps > 0; }

    /// Reads \a arguments, of which the first is the program. Nothing, with the reason in \a error, when they
    /// make no sense.
    static std::optional<TConsoleOptions> Parse(QStringList const& arguments, QString* error);
    /// Needs an application object.
    static QString HelpText();
};
