#include "TUDisks.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QFile>
#include <QMap>
#include <QPointer>
#include <QThreadPool>
#include <QUuid>
#include <QVariantMap>

namespace
{
QString const ServiceName = QStringLiteral("org.freedesktop.UDisks2");
QString const ManagerPath = QStringLiteral("/org/freedesktop/UDisks2");
QString const ObjectManager = QStringLiteral("org.freedesktop.DBus.ObjectManager");
QString const Properties = QStringLiteral("org.freedesktop.DBus.Properties");
QString const BlockInterface = QStringLiteral("org.freedesktop.UDisks2.Block");
QString const DriveInterface = QStringLiteral("org.freedesktop.UDisks2.Drive");
QString const FilesystemInterface = QStringLiteral("org.freedesktop.UDisks2.Filesystem");
QString const LocalPath = QStringLiteral("/org/freedesktop/DBus/Local");
QString const LocalInterface = QStringLiteral("org.freedesktop.DBus.Local");

// The service has all that is asked at hand; one that takes longer, in ms, hangs.
constexpr int AnswerTime = 5000;

QString const AnswerSignature = QStringLiteral("a{oa{sa{sv}}}");
QString const MountPointsSignature = QStringLiteral("aay");

using TInterfaces = QMap<QString, QVariantMap>;
using TObjects = QMap<QDBusObjectPath, TInterfaces>;

QDBusConnection Connect(QString const& address, QString const& connectionName)
{
    return address.isEmpty() ? QDBusConnection::connectToBus(QDBusConnection::SystemBus, connectionName)
                             : QDBusConnection::connectToBus(address, connectionName);
}

// Paths come as bytes with a NUL behind them.
QStringList MountPoints(QVariant const& property)
{
    if (property.userType() != qMetaTypeId<QDBusArgument>())
        return {};
    auto const argument = property.value<QDBusArgument>();
    if (argument.currentSignature() != MountPointsSignature)
        return {};
    QStringList paths;
    auto const points = qdbus_cast<QList<QByteArray>>(argument);
    for (QByteArray const& point : points)
    {
        QByteArray const path = point.endsWith('\0') ? point.chopped(1) : point;
        if (path.size() > 1 && path.startsWith('/') && !path.contains('\0'))
            paths.append(QFile::decodeName(path));
    }
    return paths;
}

bool IsOnUsb(TObjects const& objects, TInterfaces const& interfaces)
{
    QVariant const drive = interfaces.value(BlockInterface).value(QStringLiteral("Drive"));
    QVariantMap const properties = objects.value(drive.value<QDBusObjectPath>()).value(DriveInterface);
    return properties.value(QStringLiteral("ConnectionBus")).toString() == QLatin1String("usb");
}

QStringList SticksOf(TObjects const& objects)
{
    QStringList sticks;
    for (TInterfaces const& interfaces : objects)
    {
        if (IsOnUsb(objects, interfaces))
            sticks += MountPoints(interfaces.value(FilesystemInterface).value(QStringLiteral("MountPoints")));
    }
    return sticks;
}
} // namespace

TUDisks::TUDisks(QString const& busAddress, QObject* parent)
    : QObject(parent)
    , m_ConnectionName(QStringLiteral("usb-") + QUuid::createUuid().toString(QUuid::WithoutBraces))
{
    OpenBus(busAddress);
}

// Apart from this thread, as it waits for the bus to answer.
void TUDisks::OpenBus(QString const& address)
{
    auto const onOpened = [self = QPointer<TUDisks>(this), name = m_ConnectionName](bool isOpen)
    {
        if (self)
            self->OnBusOpened(isOpen);
        else
            QDBusConnection::disconnectFromBus(name);
    };
    auto const open = [onOpened, address, name = m_ConnectionName, application = qApp]
    {
        bool const isOpen = Connect(address, name).isConnected();
        QMetaObject::invokeMethod(
            application, [onOpened, isOpen] { onOpened(isOpen); }, Qt::QueuedConnection);
    };
    QThreadPool::globalInstance()->start(open);
}

TUDisks::~TUDisks()
{
    // The connection gives up its open calls on a thread of its own: none may be let go here meanwhile.
    delete m_Question;
    // Before, it would wait for the bus to answer.
    if (m_Service)
        QDBusConnection::disconnectFromBus(m_ConnectionName);
}

// Slots for what the bus sends are named by text, which is all that its connections take. The sender stays
// unnamed, as the connection would wait for the bus to look it up; the worst that a stranger's signal does is
// a question too many.
void TUDisks::OnBusOpened(bool isOpen)
{
    if (!isOpen)
        return;
    QDBusConnection bus(m_ConnectionName);
    m_Service = new QDBusServiceWatcher(ServiceName, bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(m_Service, &QDBusServiceWatcher::serviceOwnerChanged, this, &TUDisks::OnObjectsChanged);
    for (char const* const signal : {"InterfacesAdded", "InterfacesRemoved"})
        bus.connect(QString(), ManagerPath, ObjectManager, QLatin1String(signal), this,
                    SLOT(OnObjectsChanged()));
    // Of all that changes on the bus, only what is mounted.
    bus.connect(QString(), QString(), Properties, QStringLiteral("PropertiesChanged"), {FilesystemInterface},
                QString(), this, SLOT(OnObjectsChanged()));
    bus.connect(QString(), LocalPath, LocalInterface, QStringLiteral("Disconnected"), this,
                SLOT(OnDisconnected()));
    Ask();
}

void TUDisks::OnObjectsChanged()
{
    Ask();
}

void TUDisks::OnDisconnected()
{
    SetAnswer(false, {});
}

// One question at a time: whatever happens meanwhile is a reason for one more.
void TUDisks::Ask()
{
    m_AskAgain = m_Question != nullptr;
    if (m_Question)
        return;
    QDBusMessage const question = QDBusMessage::createMethodCall(ServiceName, ManagerPath, ObjectManager,
                                                                 QStringLiteral("GetManagedObjects"));
    m_Question =
        new QDBusPendingCallWatcher(QDBusConnection(m_ConnectionName).asyncCall(question, AnswerTime), this);
    connect(m_Question, &QDBusPendingCallWatcher::finished, this, &TUDisks::OnAnswer);
}

void TUDisks::OnAnswer(QDBusPendingCallWatcher* call)
{
    call->deleteLater();
    m_Question = nullptr;
    QDBusMessage const answer = call->reply();
    bool const isGood = !call->isError() && answer.signature() == AnswerSignature;
    QPointer<TUDisks> const self(this);
    SetAnswer(isGood,
              isGood ? SticksOf(qdbus_cast<TObjects>(answer.arguments().constFirst())) : QStringList());
    if (self && m_AskAgain)
        Ask();
}

void TUDisks::SetAnswer(bool isAnswering, QStringList const& sticks)
{
    if (isAnswering == m_IsAnswering && sticks == m_Sticks)
        return;
    m_IsAnswering = isAnswering;
    m_Sticks = sticks;
    Q_EMIT Changed();
}
