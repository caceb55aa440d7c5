#pragma once

#include "CommonUILibExport.h"

#include <QList>
#include <QString>

/// Where an element of a menu leads in the wheel navigation: a list of steps, each with two names. What they
/// mean is agreed between those who build and those who read them; here they are only joined. A path for the
/// navigator's FollowPath() is ToPath() split at its separator.
class COMMONUILIB_EXPORT TMMIDef
{
public:
    struct Data
    {
        QString first;
        QString second;
    };

    /// No step, and no flag.
    TMMIDef() = default;
    /// One step.
    TMMIDef(QString const& first, QString const& second, bool flag);

    /// The steps of this and, behind them, those of \a other; the flag is set if both have it.
    TMMIDef operator+(TMMIDef const& other) const;

    /// The first names, or without \a useFirst the second, with \a separator between them. Empty without
    /// steps.
    QString ToPath(bool useFirst, QChar const& separator) const;

    QList<Data> const& GetData() const { return m_Data; }
    bool GetFlag() const { return m_Flag; }

private:
    QList<Data> m_Data;
    bool m_Flag = false;
};
