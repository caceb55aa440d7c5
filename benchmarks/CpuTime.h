#pragma once

#include <sys/resource.h>

/// Milliseconds of processor time, user and system, that this process has used.
inline double CpuMilliseconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    auto const ms = [](timeval const& time)
    { return double(time.tv_sec) * 1000.0 + double(time.tv_usec) / 1000.0; };
    return ms(usage.ru_utime) + ms(usage.ru_stime);
}
