#include "TSprayerMenu.h"

#include "TMachine.h"

TSprayerMenu::TSprayerMenu(TMachine* machine, TConsoleMenu* console)
    : m_Machine(machine)
    , m_Menus(console)
    , m_Worker(console, QStringLiteral("sprayer menu"))
{
    m_Judge.SetElements(Build());
    connect(machine, &TMachine::SwitchesChanged, this, &TSprayerMenu::Look);
    connect(machine, &TMachine::Moved, this, &TSprayerMenu::Look);
    Look();
}

TSprayerElements TSprayerMenu::Build()
{
    TSprayerElements elements;
    auto const sprayer =
        m_Menus.AddToRoot({QStringLiteral("sprayer"), tr("Sprayer"), QStringLiteral("icon-sprayer")}, false);
    TMenuSet::TItem const master{QStringLiteral("master"), tr("Sprayer on or off"),
                                 QStringLiteral("icon-power")};
    elements.master = m_Menus.Add(sprayer.place, master, Call("OnToggleMaster"));
    elements.masterShortcut = m_Menus.AddShortcut(master, Call("OnToggleMaster"));
    auto const sections = m_Menus.AddMenu(
        sprayer.place, {QStringLiteral("sections"), tr("Sections"), QStringLiteral("icon-section-on")});
    elements.sections = sections.opener;
    BuildSections(sections.place, &elements);
    elements.allSections =
        m_Menus.Add(sprayer.place, {QStringLiteral("all-sections"), tr("All on"), {}}, Call("OnSwitchAllOn"));
    auto const tank =
        m_Menus.AddMenu(sprayer.place, {QStringLiteral("tank"), tr("Tank"), QStringLiteral("icon-tank")});
    elements.tank = tank.opener;
    BuildTank(tank.place, &elements);
    return elements;
}

void TSprayerMenu::BuildSections(TMenuSet::TPlace const& sections, TSprayerElements* elements)
{
    for (int section = 0; section < TBoom::SectionCount; ++section)
    {
        QString const number = QString::number(section + 1);
        elements->section[static_cast<size_t>(section)] =
            m_Menus.Add(sections, {QStringLiteral("section-") + number, tr("Section %1").arg(number), {}},
                        Call("OnToggleSection", ELEMENT_HIDE_NONE, section));
    }
}

void TSprayerMenu::BuildTank(TMenuSet::TPlace const& tank, TSprayerElements* elements)
{
    elements->fill = m_Menus.Add(tank, {QStringLiteral("tank-fill"), tr("Filled up"), {}},
                                 Call("OnFill", ELEMENT_HIDE_MENU));
    // The question that comes stands alone.
    elements->drain =
        m_Menus.Add(tank, {QStringLiteral("tank-drain"), tr("Drain"), {}}, Call("OnDrain", ELEMENT_HIDE_ALL));
}

TActivationConfig TSprayerMenu::Call(char const* slot, EElementHideMode hideMode, int argument)
{
    return {this, slot, hideMode, argument};
}

TSprayerState TSprayerMenu::State() const
{
    TSprayerState state;
    state.isMasterOn = m_Machine->IsMasterOn();
    for (int section = 0; section < TBoom::SectionCount; ++section)
    {
        auto const i = static_cast<size_t>(section);
        state.isOn[i] = m_Machine->IsSectionOn(section);
        state.isFlowing[i] = m_Machine->IsFlowing(section);
    }
    state.isTankLow = m_Machine->IsTankLow();
    state.isTankEmpty = m_Machine->TankLitres() <= 0.0;
    state.isTankFull = m_Machine->TankLitres() >= m_Machine->TankSize();
    return state;
}

// The worker sleeps on while nothing changes that it judges.
void TSprayerMenu::Look()
{
    TSprayerState const state = State();
    if (m_Posted == state)
        return;
    m_Posted = state;
    m_Worker.Post([this, state] { m_Judge.Take(state); });
}

void TSprayerMenu::OnToggleMaster()
{
    m_Machine->SetMasterOn(!m_Machine->IsMasterOn());
}

void TSprayerMenu::OnToggleSection(int section)
{
    m_Machine->SetSectionOn(section, !m_Machine->IsSectionOn(section));
}

void TSprayerMenu::OnSwitchAllOn()
{
    for (int section = 0; section < TBoom::SectionCount; ++section)
        m_Machine->SetSectionOn(section, true);
}

void TSprayerMenu::OnFill()
{
    m_Machine->FillTank();
}

void TSprayerMenu::OnDrain()
{
    Q_EMIT DrainRequested();
}
