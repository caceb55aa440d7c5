#pragma once

struct TConsoleOptions;

/// Runs the console without an operator, as \a options ask for it, in time that passes at once. Answers the
/// exit code of the program; what went wrong has been printed.
int RunAutomatically(TConsoleOptions const& options);
