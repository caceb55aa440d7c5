#pragma once

#include <QtGlobal>

/// Time for a run without an operator: it passes only when it is told to, and then with everything that
/// happens in it. In place of the event loop; one at a time.
class TVirtualTime
{
public:
    TVirtualTime();
    ~TVirtualTime();
    TVirtualTime(TVirtualTime const&) = delete;
    TVirtualTime& operator=(TVirtualTime const&) = delete;

    /// Lets \a ms pass, a frame at a time. 0 handles what is waiting.
    void Pass(int ms);
};
