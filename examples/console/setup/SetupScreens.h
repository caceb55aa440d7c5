#pragma once

class TSetupMenu;

namespace SetupScreens
{
constexpr char const* Steering = "vehicle/steering";
constexpr char const* Receiver = "vehicle/receiver";
constexpr char const* Equipment = "implement/equipment";
constexpr char const* Tank = "implement/tank";
constexpr char const* Sections = "implement/boom/sections";
constexpr char const* Nozzles = "implement/boom/nozzles";
constexpr char const* LightBar = "guidance/lightbar";
constexpr char const* Job = "job/details";
constexpr char const* Buttons = "display/buttons";
constexpr char const* Sound = "system/sound";
constexpr char const* Units = "system/units";
constexpr char const* Language = "system/language";
constexpr char const* Clock = "system/clock";
constexpr char const* About = "system/about";

/// Fills an empty menu with every screen that a console of this family may have. Which of them this one has
/// is for TSetupMenu::SetScreenAvailable() to say.
void AddTo(TSetupMenu* menu);
} // namespace SetupScreens
