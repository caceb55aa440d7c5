#pragma once

#include <QtGlobal>

/// How often this thread has asked for memory since the object was made; new and malloc alike, the toolkit's
/// and Qt's.
class TAllocationCount
{
public:
    TAllocationCount();
    qint64 Value() const;

private:
    qint64 m_Before;
};
