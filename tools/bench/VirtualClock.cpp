#include "tools/bench/VirtualClock.h"

#include "simulator/control/BenchControl.h"
#include "tools/bench/OtherThreads.h"

#include <ctime>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

constexpr long nanosecondsPerSecond = 1000000000;

/// How much each query of the date advances it; a loop that counts readings against the date ends by that.
constexpr long nanosecondsPerQuery = 200000000;

// Qt's timers go off at rounded times, so a run begins at the same time as every other.
constexpr long long steadyAtBegin = 1000 * static_cast<long long>(nanosecondsPerSecond);
constexpr long long dateAtBegin = 1750000000 * static_cast<long long>(nanosecondsPerSecond);

bool begun = false;
thread_local bool ownSteady = false;
thread_local bool ownDate = false;
// Touched by the thread whose time it is only.
long long sinceBegin = 0;
long long ofQueries = 0;

} // namespace

/// The one that all libraries of this process use.
extern "C" int clock_gettime(clockid_t clock, timespec* time) noexcept {
    const bool steady = clock == CLOCK_MONOTONIC || clock == CLOCK_MONOTONIC_COARSE || clock == CLOCK_MONOTONIC_RAW;
    const bool date = clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE;
    if (!begun || !((steady && ownSteady) || (date && ownDate))) {
        return static_cast<int>(syscall(SYS_clock_gettime, clock, time));
    }
    long long now = sinceBegin + (steady ? steadyAtBegin : dateAtBegin);
    if (date) {
        ofQueries += nanosecondsPerQuery;
        now += ofQueries;
    }
    time->tv_sec = static_cast<time_t>(now / nanosecondsPerSecond);
    time->tv_nsec = static_cast<long>(now % nanosecondsPerSecond);
    return 0;
}

/// The program's sleeps.
extern "C" int nanosleep(const timespec* duration, timespec* remaining) {
    if (ownSteady) {
        VirtualClock::Pass(static_cast<double>(duration->tv_sec) +
                           static_cast<double>(duration->tv_nsec) / static_cast<double>(nanosecondsPerSecond));
        return 0;
    }
    return static_cast<int>(syscall(SYS_nanosleep, duration, remaining));
}

void VirtualClock::Begin() {
    ownSteady = true;
    BeginDate();
}

void VirtualClock::BeginDate() {
    ownDate = true;
    begun = true;
}

void VirtualClock::RoundUp() {
    sinceBegin += nanosecondsPerSecond - sinceBegin % nanosecondsPerSecond;
}

void VirtualClock::Pass(double seconds) {
    sinceBegin += static_cast<long long>(seconds * static_cast<double>(nanosecondsPerSecond));
    TavikSimulator::AdvanceClock(seconds);
    OtherThreads::LetThemRest();
}
