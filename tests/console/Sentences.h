#pragma once

#include <QByteArray>

/// An NMEA sentence with its checksum and line end, from what stands between "$" and "*".
inline QByteArray Sentence(QByteArray const& body)
{
    int sum = 0;
    for (char const byte : body)
        sum ^= static_cast<unsigned char>(byte);
    return '$' + body + '*' + QByteArray::number(sum, 16).rightJustified(2, '0').toUpper() + "\r\n";
}

/// What a receiver says in one tenth of a second: tenths after 10:00:00 on 14 April 2026, at 48° 20' N, 11°
/// 40' E, heading east.
inline QByteArray Epoch(int tenth)
{
    QByteArray const time = "1000" + QByteArray::number(tenth / 10).rightJustified(2, '0') + '.' +
                            QByteArray::number(tenth % 10) + '0';
    return Sentence("GNGGA," + time + ",4820.0000,N,01140.0000,E,4,14,0.7,480.0,M,46.0,M,1.0,0001") +
           Sentence("GNRMC," + time + ",A,4820.0000,N,01140.0000,E,6.0,90.0,140426,,,D");
}
