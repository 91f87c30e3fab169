#include "simulator/bench/Clock.h"

#include <algorithm>
#include <thread>

namespace TavikSimulator {

namespace {

// A sleeping thread wakes about 60 µs late. The last 100 µs of a wait are a busy wait, so that a read of 0.2 ms takes
// 0.2 ms; yielding the processor can cost milliseconds.
constexpr std::chrono::microseconds AwakeStretch{100};

using Seconds = std::chrono::duration<double>;

} // namespace

Nanoseconds Bus::Reserve(Nanoseconds now, Nanoseconds duration) {
    const std::lock_guard lock(mutex);
    freeAt = std::max(freeAt, now) + duration;
    return freeAt;
}

Clock::Clock(double clockSpeed, bool byHand) : manual(byHand), speed(clockSpeed), started(SteadyClock::now()) {}

Nanoseconds Clock::Now() const {
    const std::lock_guard lock(mutex);
    return NowLocked();
}

Nanoseconds Clock::NowLocked() const {
    if (manual) {
        return origin;
    }
    return std::min(origin + FromSeconds(Seconds(SteadyClock::now() - started).count() * speed), LatestTime);
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

void Clock::Advance(Nanoseconds duration) {
    AdvancedByHand(duration);
}

bool Clock::AdvancedByHand(Nanoseconds duration) {
    const std::lock_guard lock(mutex);
    if (manual) {
        origin = std::min(origin + duration, LatestTime);
    }
    return manual;
}

Clock::SteadyClock::time_point Clock::TimePointOf(Nanoseconds benchTime) const {
    const std::lock_guard lock(mutex);
    return started + std::chrono::duration_cast<SteadyClock::duration>(Seconds(ToSeconds(benchTime - origin) / speed));
}

void Clock::Wait(Nanoseconds duration) {
    if (duration > Nanoseconds::zero() && !AdvancedByHand(duration)) {
        SleepUntil(TimePointOf(Now() + duration));
    }
}

void Clock::WaitOn(Bus& bus, Nanoseconds duration) {
    if (duration > Nanoseconds::zero() && !AdvancedByHand(duration)) {
        SleepUntil(TimePointOf(bus.Reserve(Now(), duration)));
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
