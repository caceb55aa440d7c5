#pragma once

#include "EUnitsType.h"

#include <QString>

#include <array>
#include <atomic>

/// How each concrete unit relates to the default unit of its quantity, as UDUNITS-2 has it. Its database is
/// read once, at the first use in the process; that may come from any thread.
class TUnitFactors
{
public:
    struct TFactor
    {
        double slope = 0.0; ///< default unit for one of this unit; 0 if it is not known
        double offset = 0.0;
    };

    /// Reads the database if nobody has yet. What it does not hold is said once in the operator's log, which
    /// may already use the factors.
    static TUnitFactors const& Instance();

    TFactor const& Of(EUnitsType unit) const { return m_Factors[unit]; }

private:
    TUnitFactors();

    void ReportFaults();

    std::array<TFactor, UNIT_NUMBER_END> m_Factors;
    QString m_Faults;
    std::atomic<bool> m_AreFaultsReported{false};
};
