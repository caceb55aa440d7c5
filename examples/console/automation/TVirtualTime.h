#pragma once

#include <QtGlobal>

#include <functional>

/// Time for a run without an operator: it passes only when it is told to, and then with everything that
/// happens in it. In place of the event loop; one at a time.
class TVirtualTime
{
public:
    TVirtualTime();
    ~TVirtualTime();
    TVirtualTime(TVirtualTime const&) = delete;
    TVirtualTime& operator=(TVirtualTime const&) = delete;

    /// Other threads work in the time of the machine: \a wait comes back when they have done what they were
    /// given, so that every run shows the same. It may be called as long as time passes.
    void SetWaitForOthers(std::function<void()> const& wait);

    /// Lets \a ms pass, a frame at a time. 0 handles what is waiting.
    void Pass(int ms);

private:
    void HandleFrame() const;

    std::function<void()> m_WaitForOthers;
};
