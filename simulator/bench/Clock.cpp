#include "simulator/bench/Clock.h"

#include <algorithm>
#include <thread>

namespace TavikSimulator {

namespace {

// A sleeping thread is woken some 60 us late. The last stretch of a wait is spent awake, so that a read
// of 0.2 ms takes 0.2 ms. Whoever gave the processor away meanwhile would get it back milliseconds later
// on a busy machine.
constexpr std::chrono::microseconds AwakeStretch{100};

using Seconds = std::chrono::duration<double>;

} // namespace

double Bus::Reserve(double now, double seconds) {
    const std::lock_guard lock(mutex);
    freeAt = std::max(freeAt, now) + seconds;
    return freeAt;
}

Clock::Clock(double clockSpeed, bool byHand) : manual(byHand), speed(clockSpeed), started(SteadyClock::now()) {}

double Clock::Now() const {
    const std::lock_guard lock(mutex);
    return NowLocked();
}

double Clock::NowLocked() const {
    return manual ? origin : origin + Seconds(SteadyClock::now() - started).count() * speed;
}

void Clock::RunReal(double clockSpeed) {
    const std::lock_guard lock(mutex);
    origin = NowLocked();
    started = SteadyClock::now();
    speed = clockSpeed;
    manual = false;
}

void Clock::Stop() {
    const std::lock_guard lock(mutex);
    origin = NowLocked();
    manual = true;
}

bool Clock::IsManual() const {
    const std::lock_guard lock(mutex);
    return manual;
}

void Clock::Advance(double seconds) {
    AdvancedByHand(seconds);
}

bool Clock::AdvancedByHand(double seconds) {
    const std::lock_guard lock(mutex);
    if (manual) {
        origin += seconds;
    }
    return manual;
}

Clock::SteadyClock::time_point Clock::TimePointOf(double benchTime) const {
    const std::lock_guard lock(mutex);
    return started + std::chrono::duration_cast<SteadyClock::duration>(Seconds((benchTime - origin) / speed));
}

void Clock::Wait(double seconds) {
    if (seconds > 0.0 && !AdvancedByHand(seconds)) {
        SleepUntil(TimePointOf(Now() + seconds));
    }
}

void Clock::WaitOn(Bus& bus, double seconds) {
    if (seconds > 0.0 && !AdvancedByHand(seconds)) {
        SleepUntil(TimePointOf(bus.Reserve(Now(), seconds)));
    }
}

void Clock::SleepUntil(SteadyClock::time_point end) {
    if (SteadyClock::now() < end - AwakeStretch) {
        std::this_thread::sleep_until(end - AwakeStretch);
    }
    SteadyClock::time_point now;
    do {
        now = SteadyClock::now();
    } while (now < end);
}

} // namespace TavikSimulator
