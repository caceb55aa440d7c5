#include "TSprayerJudge.h"

#include <QCoreApplication>

#include <algorithm>

namespace
{
QString Translate(char const* text)
{
    return QCoreApplication::translate("TSprayerJudge", text);
}

// In the colours of map and window. The switch counts at once; what flows is known with the next fix.
int ControlOfSection(bool isOn, bool isFlowing)
{
    if (!isOn)
        return MENU_CONTROL_BAD;
    return isFlowing ? MENU_CONTROL_GOOD : MENU_CONTROL_FAIR;
}
} // namespace

bool TSprayerState::operator==(TSprayerState const& other) const
{
    return isMasterOn == other.isMasterOn && isOn == other.isOn && isFlowing == other.isFlowing &&
           isTankLow == other.isTankLow && isTankEmpty == other.isTankEmpty && isTankFull == other.isTankFull;
}

void TSprayerJudge::Take(TSprayerState const& state) const
{
    TElementLook const master{state.isMasterOn ? MENU_CONTROL_GOOD : MENU_CONTROL_BAD, true,
                              state.isMasterOn ? Translate("Sprayer is on") : Translate("Sprayer is off")};
    m_Elements.master.Show(master);
    m_Elements.masterShortcut.Show(master);
    ShowSections(state);
    ShowTank(state);
}

void TSprayerJudge::ShowSections(TSprayerState const& state) const
{
    for (size_t i = 0; i < state.isOn.size(); ++i)
        m_Elements.section[i].Show({ControlOfSection(state.isOn[i], state.isFlowing[i])});
    auto const onCount = std::count(state.isOn.begin(), state.isOn.end(), true);
    bool const areAllOn = onCount == TBoom::SectionCount;
    m_Elements.sections.Show({areAllOn ? MENU_CONTROL_PLAIN : MENU_CONTROL_FAIR, true,
                              Translate("Sections: %1 of %2 on").arg(onCount).arg(TBoom::SectionCount)});
    m_Elements.allSections.Show({MENU_CONTROL_PLAIN, !areAllOn});
}

void TSprayerJudge::ShowTank(TSprayerState const& state) const
{
    int const whileNotEmpty = state.isTankLow ? MENU_CONTROL_FAIR : MENU_CONTROL_PLAIN;
    m_Elements.tank.Show({state.isTankEmpty ? MENU_CONTROL_BAD : whileNotEmpty});
    m_Elements.fill.Show({MENU_CONTROL_PLAIN, !state.isTankFull});
    m_Elements.drain.Show({MENU_CONTROL_PLAIN, !state.isTankEmpty});
}
