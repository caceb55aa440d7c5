#include "MorvanePlatformInterface.h"

#include <QVector>

namespace
{
// In the order of their construction; the last one stands.
QVector<MorvanePlatformInterface*>& Platforms()
{
    static QVector<MorvanePlatformInterface*> platforms;
    return platforms;
}
} // namespace

MorvanePlatformInterface::MorvanePlatformInterface(QObject* parent)
    : QObject(parent)
{
    Platforms().append(this);
}

MorvanePlatformInterface::~MorvanePlatformInterface()
{
    Platforms().removeOne(this);
}

MorvanePlatformInterface* MorvanePlatformInterface::Instance()
{
    QVector<MorvanePlatformInterface*> const& platforms = Platforms();
    return platforms.isEmpty() ? nullptr : platforms.last();
}
