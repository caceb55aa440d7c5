#pragma once

#include <QtGlobal>

/// How many keys the tests with random ones press.
namespace KeySteps
{
constexpr int Usual = 20000;

/// As many as COMMONUI_KEY_STEPS says, for a longer run, or Usual.
inline int Wanted()
{
    bool isNumber = false;
    int const wanted = qEnvironmentVariableIntValue("COMMONUI_KEY_STEPS", &isNumber);
    return isNumber ? qMax(1, wanted) : Usual;
}
} // namespace KeySteps
