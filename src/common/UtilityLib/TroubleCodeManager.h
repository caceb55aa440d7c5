#pragma once

#include "UtilityLibExport.h"

#include <QString>

/// Where the console's troubles go: one entry for each, with a category by which the service sorts them. The
/// default writes them to the operator's log; a vendor with a service system of its own installs another.
/// GUI thread only.
class UTILITYLIB_EXPORT TroubleCodeManager
{
public:
    virtual ~TroubleCodeManager();

    /// Adds one entry. \a category is a short code, "E" for an error; it may be empty. The default writes
    /// "CATEGORY LINE" to GetUserLog().
    virtual void Report(QString const& category, QString const& line);

    /// The installed manager; never null.
    static TroubleCodeManager* Instance();

    /// Installs \a manager, which stays the caller's and must outlive its use; null brings the default back.
    /// Answers what was installed before, null for the default.
    static TroubleCodeManager* Install(TroubleCodeManager* manager);
};
