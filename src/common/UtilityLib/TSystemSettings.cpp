#include "TSystemSettings.h"

#include <QMutex>
#include <QStandardPaths>

namespace
{
struct TInternalDrive
{
    QMutex mutex;
    QString path;
};

TInternalDrive& InternalDrive()
{
    static TInternalDrive drive;
    return drive;
}

QString DefaultInternalDrivePath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/CommonUI/");
}
} // namespace

char const* const TSystemSettings::BrandingFolder = "Branding";

QString TSystemSettings::GetInternalDrivePath()
{
    TInternalDrive& drive = InternalDrive();
    QMutexLocker const locker(&drive.mutex);
    return drive.path.isEmpty() ? DefaultInternalDrivePath() : drive.path;
}

void TSystemSettings::SetInternalDrivePath(QString const& path)
{
    bool const isComplete = path.isEmpty() || path.endsWith(QLatin1Char('/'));
    TInternalDrive& drive = InternalDrive();
    QMutexLocker const locker(&drive.mutex);
    drive.path = isComplete ? path : path + QLatin1Char('/');
}
