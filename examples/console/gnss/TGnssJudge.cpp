#include "TGnssJudge.h"

#include "FixRows.h"

#include <QCoreApplication>
#include <QVector>

#include <algorithm>

namespace
{
constexpr int Ten = 10;

QString Translate(char const* text)
{
    return QCoreApplication::translate("TGnssJudge", text);
}

int ControlOf(EFixQuality quality)
{
    if (quality == FIX_RTK)
        return MENU_CONTROL_GOOD;
    return quality >= FIX_DIFFERENTIAL ? MENU_CONTROL_FAIR : MENU_CONTROL_BAD;
}
} // namespace

void TGnssJudge::Take(TGnssState const& state)
{
    bool const isFix = state.quality > FIX_NONE && state.quality <= FIX_RTK;
    // What was before a loss counts no more.
    if (!isFix)
        m_Fixes.clear();
    else
        m_Fixes.push_back(static_cast<EFixQuality>(state.quality));
    if (m_Fixes.size() > Window)
        m_Fixes.pop_front();
    EFixQuality const quality = Judged();
    int const control = ControlOf(quality);
    m_Elements.position.Show({control, true, Translate("Position: %1").arg(QualityText(quality))});
    m_Elements.quality.Show({control, true, ShortQualityText(quality)});
    m_Elements.satellites.Show({MENU_CONTROL_PLAIN, true,
                                Translate("Satellites: %1").arg(isFix ? qMax(0, state.satellitesUsed) : 0)});
}

EFixQuality TGnssJudge::Judged() const
{
    if (m_Fixes.empty())
        return FIX_NONE;
    QVector<EFixQuality> fixes(m_Fixes.begin(), m_Fixes.end());
    std::sort(fixes.begin(), fixes.end());
    return fixes.at(fixes.size() * StrayPerTen / Ten);
}
