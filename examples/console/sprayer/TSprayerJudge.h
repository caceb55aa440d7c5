#pragma once

#include "TBoom.h"
#include "TMenuElement.h"

#include <array>

/// What the sprayer's menus have to know of the machine, at one moment.
struct TSprayerState
{
    using TSections = std::array<bool, TBoom::SectionCount>;

    bool isMasterOn = false;
    TSections isOn = {};
    TSections isFlowing = {};
    bool isTankLow = false;
    bool isTankEmpty = false;
    bool isTankFull = false;

    bool operator==(TSprayerState const& other) const;
    bool operator!=(TSprayerState const& other) const { return !(*this == other); }
};

/// The elements of the sprayer's menus that change.
struct TSprayerElements
{
    TMenuElement master;
    TMenuElement masterShortcut;
    TMenuElement sections;
    std::array<TMenuElement, TBoom::SectionCount> section;
    TMenuElement allSections;
    TMenuElement tank;
    TMenuElement fill;
    TMenuElement drain;
};

/// Decides how they look. For one thread.
class TSprayerJudge
{
public:
    void SetElements(TSprayerElements const& elements) { m_Elements = elements; }
    void Take(TSprayerState const& state) const;

private:
    void ShowSections(TSprayerState const& state) const;
    void ShowTank(TSprayerState const& state) const;

    TSprayerElements m_Elements;
};
