#pragma once

/// What the lights of the light bar stand for: for the bar itself and for all that is coloured as it is.
namespace LightBarScale
{
constexpr int LightsPerSide = 7;
constexpr int GreenLights = 2;  ///< so many from the middle
constexpr int YellowLights = 4; ///< up to here; the others are red

/// What the operator may choose between: metres that one light stands for.
constexpr double Steps[] = {0.02, 0.05, 0.1};
constexpr int StepCount = sizeof(Steps) / sizeof(Steps[0]);
constexpr int StandardStep = 1;
/// The same in centimetres. \a step is an index into Steps.
constexpr int Centimetres(int step)
{
    constexpr double CentimetresPerMetre = 100.0;
    constexpr double Half = 0.5; // to the next whole number
    return static_cast<int>(Steps[step] * CentimetresPerMetre + Half);
}

/// How many lights are lit with the machine \a centimetres beside its line, to whichever side, and
/// \a centimetresPerLight for each: the next one from half its way on.
constexpr int LitLights(int centimetres, int centimetresPerLight)
{
    int const aside = centimetres < 0 ? -centimetres : centimetres;
    int const lit = (aside + centimetresPerLight / 2) / centimetresPerLight;
    return lit < LightsPerSide ? lit : LightsPerSide;
}
} // namespace LightBarScale
