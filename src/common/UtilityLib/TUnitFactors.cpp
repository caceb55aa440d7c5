#include "TUnitFactors.h"

#include "UnitTable.h"
#include "UserLog.h"

#include <QStringList>

#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <locale.h>
#include <memory>
#include <udunits2.h>

namespace
{
// Large beside every offset, so that taking it away again costs the slope no digit; a power of two, so that a
// slope without an offset comes back to the last bit.
constexpr double FAR_OUT = 1099511627776.0;
constexpr int MAX_MESSAGE_BYTES = 512;

template<auto Free>
struct TFree
{
    template<typename T>
    void operator()(T* object) const
    {
        Free(object);
    }
};

using TSystemPtr = std::unique_ptr<ut_system, TFree<ut_free_system>>;
using TUnitPtr = std::unique_ptr<ut_unit, TFree<ut_free>>;
using TConverterPtr = std::unique_ptr<cv_converter, TFree<cv_free>>;

// The library reads numbers by the locale of the thread; with a decimal comma in force a foot would be 0 m.
class TPlainNumbers
{
public:
    TPlainNumbers()
        : m_Plain(newlocale(LC_ALL_MASK, "C", nullptr))
        , m_Before(uselocale(m_Plain))
    {
    }
    ~TPlainNumbers()
    {
        uselocale(m_Before);
        freelocale(m_Plain);
    }
    TPlainNumbers(TPlainNumbers const&) = delete;
    TPlainNumbers& operator=(TPlainNumbers const&) = delete;

private:
    locale_t m_Plain;
    locale_t m_Before;
};

// Collects what the library would write to the error stream.
class TMessages
{
public:
    TMessages()
        : m_Before(ut_set_error_message_handler(&TMessages::Take))
    {
        s_Messages = &m_Messages;
    }
    ~TMessages()
    {
        ut_set_error_message_handler(m_Before);
        s_Messages = nullptr;
    }
    TMessages(TMessages const&) = delete;
    TMessages& operator=(TMessages const&) = delete;

    QString Text() const { return m_Messages.join(QStringLiteral("; ")); }

private:
    static int Take(char const* format, va_list arguments)
    {
        char text[MAX_MESSAGE_BYTES] = "";
        int const length = std::vsnprintf(text, sizeof text, format, arguments);
        if (s_Messages != nullptr)
            *s_Messages += QString::fromLocal8Bit(text).trimmed();
        return length;
    }

    // The handler gets no argument of its own, and is that of all threads: others that use the library may
    // fail while it is in force, or keep it for longer.
    static thread_local QStringList* s_Messages;

    QStringList m_Messages;
    ut_error_message_handler m_Before;
};

thread_local QStringList* TMessages::s_Messages = nullptr;

TUnitPtr Parse(ut_system* system, EUnitsType unit)
{
    char const* const expression = UnitRow(unit).expression;
    return TUnitPtr(expression != nullptr ? ut_parse(system, expression, UT_ASCII) : nullptr);
}

TUnitFactors::TFactor FactorOf(ut_system* system, EUnitsType unit)
{
    TUnitPtr const from = Parse(system, unit);
    TUnitPtr const to = Parse(system, UnitRow(UnitRow(unit).quantity).defaultUnit);
    TConverterPtr const converter(from && to ? ut_get_converter(from.get(), to.get()) : nullptr);
    if (!converter)
        return {};
    double const offset = cv_convert_double(converter.get(), 0.0);
    double const slope = (cv_convert_double(converter.get(), FAR_OUT) - offset) / FAR_OUT;
    bool const isUsable = std::isfinite(slope) && std::isfinite(offset) && slope > 0.0;
    return isUsable ? TUnitFactors::TFactor{slope, offset} : TUnitFactors::TFactor{};
}

// UDUNITS-2 knows no seeds: what is counted becomes a dimension of its own there, so that seeds for each
// hectare are no reciprocal area.
void AddItem(ut_system* system)
{
    TUnitPtr const item(ut_new_base_unit(system));
    if (item)
        ut_map_name_to_unit("item", UT_ASCII, item.get());
}
} // namespace

TUnitFactors const& TUnitFactors::Instance()
{
    // Never destroyed: threads may convert values while the program ends.
    static auto* const factors = new TUnitFactors;
    factors->ReportFaults();
    return *factors;
}

// The log may itself show values, so nothing goes there while the factors are still in the making.
void TUnitFactors::ReportFaults()
{
    if (!m_Faults.isEmpty() && !m_AreFaultsReported.exchange(true))
        GetUserLog()->AddEntry(m_Faults);
}

TUnitFactors::TUnitFactors()
{
    TPlainNumbers const plainNumbers;
    TMessages const messages;
    TSystemPtr const system(ut_read_xml(nullptr));
    if (!system)
    {
        m_Faults = QStringLiteral("The units database cannot be read, so values stay in the units "
                                  "that they are stored in: %1")
                       .arg(messages.Text());
        return;
    }
    AddItem(system.get());
    QStringList missing;
    for (int number = UNIT_NONE + 1; number < UNIT_NUMBER_END; ++number)
    {
        auto const unit = static_cast<EUnitsType>(number);
        if (UnitRow(unit).expression == nullptr)
            continue;
        m_Factors[unit] = FactorOf(system.get(), unit);
        if (m_Factors[unit].slope == 0.0)
            missing += QString::fromUtf8(UnitRow(unit).expression);
    }
    if (!missing.isEmpty())
        m_Faults = QStringLiteral("The units database does not know: %1 (%2)")
                       .arg(missing.join(QStringLiteral(", ")), messages.Text());
}
