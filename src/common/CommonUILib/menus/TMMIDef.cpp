#include "TMMIDef.h"

#include <QStringList>

TMMIDef::TMMIDef(QString const& first, QString const& second, bool flag)
    : m_Data{{first, second}}
    , m_Flag(flag)
{
}

TMMIDef TMMIDef::operator+(TMMIDef const& other) const
{
    TMMIDef sum;
    sum.m_Data = m_Data + other.m_Data;
    sum.m_Flag = m_Flag && other.m_Flag;
    return sum;
}

QString TMMIDef::ToPath(bool useFirst, QChar const& separator) const
{
    QStringList names;
    names.reserve(m_Data.size());
    for (Data const& step : m_Data)
        names << (useFirst ? step.first : step.second);
    return names.join(separator);
}
