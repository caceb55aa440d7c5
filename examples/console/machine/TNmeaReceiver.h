#pragma once

#include "IPositionSource.h"

#include <QPointer>
#include <QTimer>

#include <memory>

class QFile;
class QGeoPositionInfo;
class QSerialPort;
class QTcpSocket;
class TNmeaFeed;
class TNmeaSource;

/// Where NMEA sentences come from.
struct TNmeaOrigin
{
    enum EKind
    {
        FILE_REPLAY, ///< a recording, played at the pace at which it was made
        TCP,
        SERIAL
    };

    EKind kind = FILE_REPLAY;
    QString path; ///< of the file or the device, or the host
    quint16 port = 0;
    int baudRate = 0;

    /// Understands "tcp:HOST:PORT", with an IPv6 address in brackets, and paths of files and devices. False,
    /// with the reason in \a error, for what is none of them.
    static bool Parse(QString const& text, int baudRate, TNmeaOrigin* origin, QString* error);
};

/// A GNSS receiver that speaks NMEA 0183. Whatever is wrong, noise, a lost link, a recording at its end,
/// shows as "no fix"; a link that broke is opened again every two seconds.
class TNmeaReceiver : public IPositionSource
{
    Q_OBJECT

public:
    /// A fix that is older, in ms, is none.
    static constexpr int FixLifetime = 2500;
    static constexpr int RetryInterval = 2000;

    explicit TNmeaReceiver(TNmeaOrigin const& origin);
    ~TNmeaReceiver() override;

    void Start() override;
    QVector<TSatellite> Satellites() const override;
    QString Description() const override;

private:
    void OpenFile();
    void OpenTcp();
    void OpenSerial();
    void Listen(std::unique_ptr<TNmeaFeed> feed, bool isReplay);
    void LoseLink();
    void TryAgain();
    void TakePosition(QGeoPositionInfo const& position);
    void CheckAge();

    TNmeaOrigin m_Origin;
    std::unique_ptr<QFile> m_File;
    std::unique_ptr<QTcpSocket> m_Socket;
    std::unique_ptr<QSerialPort> m_Serial;
    std::unique_ptr<TNmeaFeed> m_Feed;
    std::unique_ptr<TNmeaSource> m_Parser;
    QTimer m_RetryTimer;
    QTimer m_AgeTimer;
    TFix m_Fix;
    qint64 m_FixTime = 0;
};
