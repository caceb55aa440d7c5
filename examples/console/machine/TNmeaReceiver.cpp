#include "TNmeaReceiver.h"

#include "TLocalTime.h"
#include "TNmeaFeed.h"
#include "TNmeaSource.h"

#include <QFile>
#include <QFileInfo>
#include <QGeoPositionInfo>
#include <QSerialPort>
#include <QTcpSocket>

#include <sys/stat.h>

#include <cmath>

namespace
{
constexpr int AgeCheckInterval = 500;
constexpr qint64 SocketBuffer = 64 * 1024;
constexpr double FullTurn = 360.0;
QString const TcpPrefix = QStringLiteral("tcp:");

bool ParseTcp(QString const& text, TNmeaOrigin* origin)
{
    int const colon = text.lastIndexOf(QLatin1Char(':'));
    bool isNumber = false;
    int const port = text.midRef(colon + 1).toInt(&isNumber);
    QString host = text.left(qMax(0, colon));
    if (host.startsWith(QLatin1Char('[')) && host.endsWith(QLatin1Char(']')))
        host = host.mid(1, host.size() - 2);
    else if (host.contains(QLatin1Char(':')))
        return false;
    if (host.isEmpty() || !isNumber || port < 1 || port > 65535)
        return false;
    origin->kind = TNmeaOrigin::TCP;
    origin->path = host;
    origin->port = static_cast<quint16>(port);
    return true;
}

bool IsCharacterDevice(QString const& path)
{
    struct stat info = {};
    return stat(QFile::encodeName(path).constData(), &info) == 0 && S_ISCHR(info.st_mode);
}
} // namespace

bool TNmeaOrigin::Parse(QString const& text, int baudRate, TNmeaOrigin* origin, QString* error)
{
    origin->baudRate = baudRate;
    if (text.startsWith(TcpPrefix))
    {
        if (ParseTcp(text.mid(TcpPrefix.size()), origin))
            return true;
        *error = TNmeaReceiver::tr("\"%1\" is not of the form tcp:HOST:PORT.").arg(text);
        return false;
    }
    origin->path = text;
    if (QFileInfo(text).isFile())
    {
        origin->kind = FILE_REPLAY;
        return true;
    }
    if (IsCharacterDevice(text))
    {
        origin->kind = SERIAL;
        return true;
    }
    *error = TNmeaReceiver::tr("\"%1\" is neither a file nor a serial device.").arg(text);
    return false;
}

TNmeaReceiver::TNmeaReceiver(TNmeaOrigin const& origin)
    : m_Origin(origin)
{
    m_RetryTimer.setSingleShot(true);
    connect(&m_RetryTimer, &QTimer::timeout, this, &TNmeaReceiver::TryAgain);
    connect(&m_AgeTimer, &QTimer::timeout, this, &TNmeaReceiver::CheckAge);
}

TNmeaReceiver::~TNmeaReceiver()
{
    // What closes from here on reports to nobody.
    if (m_Socket)
        m_Socket->disconnect(this);
    if (m_Serial)
        m_Serial->disconnect(this);
}

void TNmeaReceiver::Start()
{
    m_AgeTimer.start(AgeCheckInterval);
    switch (m_Origin.kind)
    {
    case TNmeaOrigin::FILE_REPLAY:
        OpenFile();
        break;
    case TNmeaOrigin::TCP:
        OpenTcp();
        break;
    case TNmeaOrigin::SERIAL:
        OpenSerial();
        break;
    }
    Q_EMIT FixChanged(m_Fix);
}

void TNmeaReceiver::OpenFile()
{
    m_File = std::make_unique<QFile>(m_Origin.path);
    if (m_File->open(QIODevice::ReadOnly))
        Listen(std::make_unique<TNmeaFeed>(m_File.get()), true);
}

void TNmeaReceiver::OpenTcp()
{
    Listen(std::make_unique<TNmeaFeed>(), false);
    m_Socket = std::make_unique<QTcpSocket>();
    m_Socket->setReadBufferSize(SocketBuffer);
    connect(m_Socket.get(), &QTcpSocket::readyRead, this, [this] { m_Feed->Push(m_Socket->readAll()); });
    connect(m_Socket.get(), &QTcpSocket::errorOccurred, this, &TNmeaReceiver::LoseLink);
    TryAgain();
}

void TNmeaReceiver::OpenSerial()
{
    Listen(std::make_unique<TNmeaFeed>(), false);
    m_Serial = std::make_unique<QSerialPort>(m_Origin.path);
    m_Serial->setBaudRate(m_Origin.baudRate);
    m_Serial->setReadBufferSize(SocketBuffer);
    connect(m_Serial.get(), &QSerialPort::readyRead, this, [this] { m_Feed->Push(m_Serial->readAll()); });
    connect(m_Serial.get(), &QSerialPort::errorOccurred, this,
            [this](QSerialPort::SerialPortError error)
            {
                if (error != QSerialPort::NoError)
                    LoseLink();
            });
    TryAgain();
}

void TNmeaReceiver::Listen(std::unique_ptr<TNmeaFeed> feed, bool isReplay)
{
    m_Feed = std::move(feed);
    m_Feed->open(QIODevice::ReadOnly);
    m_Parser = std::make_unique<TNmeaSource>(isReplay ? QNmeaPositionInfoSource::SimulationMode
                                                      : QNmeaPositionInfoSource::RealTimeMode);
    m_Parser->setDevice(m_Feed.get());
    connect(m_Parser.get(), &QGeoPositionInfoSource::positionUpdated, this, &TNmeaReceiver::TakePosition);
    m_Parser->startUpdates();
}

void TNmeaReceiver::LoseLink()
{
    m_Feed->Interrupt();
    if (!m_RetryTimer.isActive())
        m_RetryTimer.start(RetryInterval);
}

void TNmeaReceiver::TryAgain()
{
    if (m_Socket)
    {
        m_Socket->abort();
        m_Socket->connectToHost(m_Origin.path, m_Origin.port);
    }
    if (m_Serial)
    {
        m_Serial->close();
        m_Serial->open(QIODevice::ReadOnly);
    }
}

void TNmeaReceiver::TakePosition(QGeoPositionInfo const& position)
{
    QGeoCoordinate const place = position.coordinate();
    if (!place.isValid())
        return;
    TFix fix;
    fix.quality = m_Parser->Quality() == FIX_NONE ? FIX_GNSS : m_Parser->Quality();
    fix.latitude = place.latitude();
    fix.longitude = place.longitude();
    fix.altitude = qIsFinite(place.altitude()) ? place.altitude() : m_Fix.altitude;
    // Not every sentence names speed and direction; the last ones stand.
    fix.speed = m_Fix.speed;
    fix.heading = m_Fix.heading;
    if (position.hasAttribute(QGeoPositionInfo::GroundSpeed))
        fix.speed = qMax(0.0, position.attribute(QGeoPositionInfo::GroundSpeed));
    if (position.hasAttribute(QGeoPositionInfo::Direction))
        fix.heading = std::fmod(qMax(0.0, position.attribute(QGeoPositionInfo::Direction)), FullTurn);
    fix.dilution = m_Parser->Dilution();
    fix.satellitesUsed = m_Parser->SatellitesUsed();
    m_Fix = fix;
    m_FixTime = TLocalTime::getCurrentTime();
    Q_EMIT FixChanged(m_Fix);
}

void TNmeaReceiver::CheckAge()
{
    if (!m_Fix.IsValid() || TLocalTime::getCurrentTime() - m_FixTime <= FixLifetime)
        return;
    m_Fix = TFix();
    Q_EMIT FixChanged(m_Fix);
}

QVector<TSatellite> TNmeaReceiver::Satellites() const
{
    return m_Parser && m_Fix.IsValid() ? m_Parser->Satellites() : QVector<TSatellite>();
}

QString TNmeaReceiver::Description() const
{
    switch (m_Origin.kind)
    {
    case TNmeaOrigin::FILE_REPLAY:
        return tr("Recording %1").arg(QFileInfo(m_Origin.path).fileName());
    case TNmeaOrigin::TCP:
        return m_Socket && m_Socket->state() == QAbstractSocket::ConnectedState
                   ? tr("Receiver at %1:%2").arg(m_Origin.path).arg(m_Origin.port)
                   : tr("No link to %1:%2").arg(m_Origin.path).arg(m_Origin.port);
    case TNmeaOrigin::SERIAL:
        return m_Serial && m_Serial->isOpen() ? tr("Receiver at %1").arg(m_Origin.path)
                                              : tr("No link to %1").arg(m_Origin.path);
    }
    return QString();
}
