// The program's own functions stand before those of the C library for all libraries of the process,
// since it exports them.

#include "systemclock.h"

#include <atomic>
#include <dlfcn.h>
#include <sys/time.h>
#include <time.h>

static std::atomic<bool> isVirtual{false};
static std::atomic<qint64> timeOfDay{0}; // both in milliseconds
static std::atomic<qint64> duration{0};
static qint64 firstDuration = 0;

static int readClock(clockid_t clock, timespec *time)
{
    using Function = int (*)(clockid_t, timespec *);
    static const auto function = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "clock_gettime"));
    return function(clock, time);
}

void setSystemClock(qint64 start, qint64 elapsed)
{
    if (!isVirtual) {
        timespec now;
        readClock(CLOCK_MONOTONIC, &now);
        firstDuration = qint64(now.tv_sec) * 1000 + now.tv_nsec / 1000000;
    }
    timeOfDay = start + elapsed;
    duration = firstDuration + elapsed;
    isVirtual = true;
}

static const std::atomic<qint64> *virtualClock(clockid_t clock)
{
    switch (clock) {
    case CLOCK_REALTIME:
    case CLOCK_REALTIME_COARSE:
        return &timeOfDay;
    case CLOCK_MONOTONIC:
    case CLOCK_MONOTONIC_COARSE:
    case CLOCK_MONOTONIC_RAW:
    case CLOCK_BOOTTIME:
        return &duration;
    default:
        return nullptr;
    }
}

#define EXPORTED extern "C" __attribute__((visibility("default")))

EXPORTED int clock_gettime(clockid_t clock, timespec *time) noexcept
{
    const std::atomic<qint64> *now = isVirtual ? virtualClock(clock) : nullptr;
    if (!now)
        return readClock(clock, time);
    time->tv_sec = time_t(*now / 1000);
    time->tv_nsec = long(*now % 1000) * 1000000;
    return 0;
}

EXPORTED int gettimeofday(timeval *time, void *) noexcept
{
    timespec now;
    const int result = clock_gettime(CLOCK_REALTIME, &now);
    time->tv_sec = now.tv_sec;
    time->tv_usec = now.tv_nsec / 1000;
    return result;
}

EXPORTED time_t time(time_t *result) noexcept
{
    timespec now;
    clock_gettime(CLOCK_REALTIME, &now);
    if (result)
        *result = now.tv_sec;
    return now.tv_sec;
}
