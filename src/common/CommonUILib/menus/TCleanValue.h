#pragma once

/// A value beside the copy of it that was last reported: as long as they differ there is a change to report.
template<typename T>
struct TCleanValue
{
    explicit TCleanValue(T const& value)
        : current(value)
        , clean(value)
    {
    }

    bool IsDirty() const { return current != clean; }
    void Clean() { clean = current; }

    T current;
    T clean;
};
