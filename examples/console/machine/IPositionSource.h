#pragma once

#include "TField.h"
#include "TFix.h"
#include "TLocalPlane.h"

#include <QObject>
#include <QString>
#include <QVector>

/// Whatever tells the console where the machine is: the simulation or a receiver.
class IPositionSource : public QObject
{
    Q_OBJECT

public:
    /// Begins to emit FixChanged(). Once.
    virtual void Start() = 0;
    /// The satellites in view; empty while none is known.
    virtual QVector<TSatellite> Satellites() const = 0;
    /// What the source is, and how it is doing, in one line for the operator.
    virtual QString Description() const = 0;
    /// The field that belongs to the source, if it knows one; the plane is invalid otherwise.
    virtual TField KnownField() const { return {}; }
    virtual TLocalPlane KnownPlane() const { return {}; }

Q_SIGNALS:
    /// A new fix, or an invalid one when there is none any more.
    void FixChanged(TFix const& fix);
};
