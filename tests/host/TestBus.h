#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QMap>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>
#include <QVariantMap>

/// A message bus of a test's own, with nobody on it.
class TTestBus
{
public:
    static bool IsInstalled()
    {
        return !QStandardPaths::findExecutable(QStringLiteral("dbus-daemon")).isEmpty();
    }

    TTestBus()
    {
        QFile config(m_Folder.filePath(QStringLiteral("bus.conf")));
        [&]
        {
            QVERIFY(config.open(QIODevice::WriteOnly));
            config.write("<busconfig><type>test</type><listen>unix:dir=" + m_Folder.path().toUtf8() +
                         "</listen><auth>EXTERNAL</auth><policy context=\"default\"><allow own=\"*\"/>"
                         "<allow send_destination=\"*\"/><allow receive_sender=\"*\"/></policy></busconfig>");
            config.close();
            m_Daemon.start(QStringLiteral("dbus-daemon"),
                           {QStringLiteral("--nofork"), QStringLiteral("--print-address"),
                            QStringLiteral("--config-file=") + config.fileName()});
            QVERIFY(m_Daemon.waitForReadyRead(30000));
            m_Address = QString::fromUtf8(m_Daemon.readLine().trimmed());
            QVERIFY(!m_Address.isEmpty());
        }();
    }
    ~TTestBus() { End(); }
    TTestBus(TTestBus const&) = delete;
    TTestBus& operator=(TTestBus const&) = delete;

    QString Address() const { return m_Address; }
    void End()
    {
        m_Daemon.terminate();
        m_Daemon.waitForFinished();
    }

private:
    QTemporaryDir m_Folder;
    QProcess m_Daemon;
    QString m_Address;
};

using TDiskInterfaces = QMap<QString, QVariantMap>;
using TDiskObjects = QMap<QDBusObjectPath, TDiskInterfaces>;
Q_DECLARE_METATYPE(TDiskInterfaces)
Q_DECLARE_METATYPE(TDiskObjects)

/// A disk service that says what a test wants to be said. GUI thread only.
class TFakeDisks : public QDBusVirtualObject
{
    Q_OBJECT

public:
    enum EAnswer
    {
        ANSWER_OBJECTS,
        ANSWER_ERROR,
        ANSWER_NONSENSE, ///< text in place of objects
        ANSWER_NOTHING,
        ANSWER_NEVER
    };

    explicit TFakeDisks(QString const& address)
        : m_Bus(QDBusConnection::connectToBus(address, QStringLiteral("fake-disks")))
    {
        qDBusRegisterMetaType<QList<QByteArray>>();
        qDBusRegisterMetaType<TDiskInterfaces>();
        qDBusRegisterMetaType<TDiskObjects>();
        [this]
        {
            QVERIFY(m_Bus.registerVirtualObject(QStringLiteral("/org/freedesktop/UDisks2"), this,
                                                QDBusConnection::SubPath));
            Appear();
        }();
    }
    ~TFakeDisks() override { QDBusConnection::disconnectFromBus(QStringLiteral("fake-disks")); }

    void Appear() { QVERIFY(m_Bus.registerService(QStringLiteral("org.freedesktop.UDisks2"))); }
    void Vanish() { QVERIFY(m_Bus.unregisterService(QStringLiteral("org.freedesktop.UDisks2"))); }

    /// A stick or another drive, mounted at \a points; each as bytes with a NUL behind them.
    void AddDrive(QString const& name, QString const& connection, QStringList const& points)
    {
        QList<QByteArray> bytes;
        for (QString const& point : points)
            bytes.append(QFile::encodeName(point) + '\0');
        AddDrive(name, connection, QVariant::fromValue(bytes));
    }
    void AddDrive(QString const& name, QString const& connection, QVariant const& points)
    {
        QDBusObjectPath const drive(QStringLiteral("/org/freedesktop/UDisks2/drives/") + name);
        objects[drive][QStringLiteral("org.freedesktop.UDisks2.Drive")] = {
            {QStringLiteral("ConnectionBus"), connection}};
        TDiskInterfaces& block =
            objects[QDBusObjectPath(QStringLiteral("/org/freedesktop/UDisks2/block_devices/") + name)];
        block[QStringLiteral("org.freedesktop.UDisks2.Block")] = {
            {QStringLiteral("Drive"), QVariant::fromValue(drive)}};
        block[QStringLiteral("org.freedesktop.UDisks2.Filesystem")] = {
            {QStringLiteral("MountPoints"), points}};
    }
    void RemoveAll() { objects.clear(); }

    /// Tells of a change as the real service does: of objects, or of properties.
    void TellOfObjects(char const* signal = "InterfacesAdded") const
    {
        m_Bus.send(QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/UDisks2"),
                                              QStringLiteral("org.freedesktop.DBus.ObjectManager"),
                                              QLatin1String(signal)));
    }
    void TellOfProperties(char const* interface = "org.freedesktop.UDisks2.Filesystem") const
    {
        QDBusMessage message = QDBusMessage::createSignal(
            QStringLiteral("/org/freedesktop/UDisks2/block_devices/sdb1"),
            QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("PropertiesChanged"));
        message << QString(QLatin1String(interface)) << QVariantMap() << QStringList();
        m_Bus.send(message);
    }

    bool handleMessage(QDBusMessage const& message, QDBusConnection const& bus) override
    {
        if (message.member() != QLatin1String("GetManagedObjects"))
            return false;
        ++questions;
        switch (answer)
        {
        case ANSWER_OBJECTS:
            bus.send(message.createReply(QVariant::fromValue(objects)));
            break;
        case ANSWER_ERROR:
            bus.send(message.createErrorReply(QDBusError::Failed, QStringLiteral("no")));
            break;
        case ANSWER_NONSENSE:
            bus.send(message.createReply(QStringLiteral("disks")));
            break;
        case ANSWER_NOTHING:
            bus.send(message.createReply());
            break;
        case ANSWER_NEVER:
            break;
        }
        return true;
    }
    QString introspect(QString const&) const override { return QString(); }

    TDiskObjects objects;
    EAnswer answer = ANSWER_OBJECTS;
    int questions = 0;

private:
    QDBusConnection m_Bus;
};
