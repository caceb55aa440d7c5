#pragma once

#include "UtilityLibExport.h"

#include <QString>

#include <memory>

/// The operator's log: short lines about what went wrong, kept for the service technician. Thread-safe.
class UTILITYLIB_EXPORT IUserLogAccessor
{
public:
    virtual ~IUserLogAccessor();

    /// Adds one entry, which becomes one line: line ends, other controls and the backslash are written as in
    /// C, and what goes beyond 1000 characters is left out. The time is added by the log. Never throws, never
    /// blocks longer than one small file write.
    virtual void AddEntry(QString const& text) = 0;
};

using UserLogAccessorPtr = std::shared_ptr<IUserLogAccessor>;

/// The log in use, never null. Until a host sets one, entries go to the warning stream.
UTILITYLIB_EXPORT UserLogAccessorPtr GetUserLog();

/// Sets the log; null brings the default back. Answers the one that was set before.
UTILITYLIB_EXPORT UserLogAccessorPtr SetUserLog(UserLogAccessorPtr log);

/// A log that appends lines "yyyy-MM-ddThh:mm:ss text" to a UTF-8 file and starts afresh, keeping one old
/// generation beside it ("PATH.1"), before the file would pass \a maxBytes. Missing folders are made. A file
/// that cannot be written loses the entry with one warning, and with no further one until an entry was
/// written again.
UTILITYLIB_EXPORT UserLogAccessorPtr MakeFileUserLog(QString const& path, qint64 maxBytes = 1 << 20);
