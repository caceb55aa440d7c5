#include "TNmeaSource.h"

namespace
{
constexpr int TalkerLength = 2;
constexpr int QualityField = 6;
constexpr int UsedField = 7;
constexpr int DilutionField = 8;
constexpr int MessageNumberField = 2;
constexpr int FirstSatelliteField = 4;
constexpr int FieldsPerSatellite = 4;
// More than any sky holds: a bound for what a wild stream can make the map hold.
constexpr int MostSatellites = 64;
constexpr int MostSystems = 8;

EFixQuality QualityOf(int code)
{
    switch (code)
    {
    case 1:
    case 3:
        return FIX_GNSS;
    case 2:
        return FIX_DIFFERENTIAL;
    case 4:
        return FIX_RTK;
    case 5:
        return FIX_RTK_FLOAT;
    case 6:
        return FIX_ESTIMATED;
    default:
        return FIX_NONE;
    }
}
} // namespace

QVector<TSatellite> TNmeaSource::Satellites() const
{
    QVector<TSatellite> all;
    for (QVector<TSatellite> const& ofSystem : m_Satellites)
        all += ofSystem;
    return all;
}

bool TNmeaSource::parsePosInfoFromNmeaData(char const* data, int size, QGeoPositionInfo* position,
                                           bool* hasFix)
{
    QByteArray sentence = QByteArray(data, size).trimmed();
    sentence.truncate(qMax(0, sentence.lastIndexOf('*')));
    QList<QByteArray> const fields = sentence.split(',');
    QByteArray const type = fields.constFirst().right(3);
    if (type == "GGA")
        TakeFixData(fields);
    else if (type == "GSV")
        TakeSatellitesInView(fields);
    return QNmeaPositionInfoSource::parsePosInfoFromNmeaData(data, size, position, hasFix);
}

void TNmeaSource::TakeFixData(QList<QByteArray> const& fields)
{
    m_Quality = QualityOf(fields.value(QualityField).toInt());
    m_SatellitesUsed = qBound(0, fields.value(UsedField).toInt(), MostSatellites);
    m_Dilution = qMax(0.0, fields.value(DilutionField).toDouble());
}

void TNmeaSource::TakeSatellitesInView(QList<QByteArray> const& fields)
{
    QByteArray const talker = fields.constFirst().mid(1, TalkerLength);
    if (!m_Satellites.contains(talker) && m_Satellites.size() >= MostSystems)
        return;
    QVector<TSatellite>& satellites = m_Satellites[talker];
    if (fields.value(MessageNumberField).toInt() == 1)
        satellites.clear();
    for (int i = FirstSatelliteField; i + FieldsPerSatellite <= fields.size(); i += FieldsPerSatellite)
    {
        if (fields[i].isEmpty() || satellites.size() >= MostSatellites)
            continue;
        TSatellite satellite;
        satellite.id = fields[i].toInt();
        satellite.elevation = qBound(0, fields[i + 1].toInt(), 90);
        satellite.azimuth = qBound(0, fields[i + 2].toInt(), 359);
        satellite.strength = fields[i + 3].isEmpty() ? -1 : qBound(0, fields[i + 3].toInt(), 99);
        satellites.append(satellite);
    }
}
