#pragma once

#include "simulator/signals/Nanoseconds.h"

#include <chrono>
#include <mutex>

namespace TavikSimulator {

/// A network's bus: it carries one transaction at a time, so calls from several threads queue up.
class Bus {
public:
    /// Reserves the bus for a transaction; returns the bench time of its end.
    Nanoseconds Reserve(Nanoseconds now, Nanoseconds duration);

private:
    std::mutex mutex;
    Nanoseconds freeAt{};
};

/// The bench's time. It runs with the computer's clock, at a chosen speed, or is stopped; then Advance and the waits of
/// calls advance it. It ends at LatestTime. Safe from any thread.
class Clock {
public:
    /// Starts at bench time 0.
    Clock(double speed, bool manual);

    Nanoseconds Now() const;
    /// Runs on from the present bench time at this speed (bench seconds per second, above 0).
    void RunReal(double speed);
    /// Stops at the present bench time.
    void Stop();
    bool IsManual() const;
    /// Advances a stopped clock; does nothing to a running one.
    void Advance(Nanoseconds duration);

    /// Waits for the duration of a call; a stopped clock is advanced by it at once.
    void Wait(Nanoseconds duration);
    /// Waits for the end of a transaction on a bus that may be busy with others.
    void WaitOn(Bus& bus, Nanoseconds duration);

private:
    using SteadyClock = std::chrono::steady_clock;
    static void SleepUntil(SteadyClock::time_point end);
    Nanoseconds NowLocked() const;
    bool AdvancedByHand(Nanoseconds duration);
    SteadyClock::time_point TimePointOf(Nanoseconds benchTime) const;

    mutable std::mutex mutex;
    bool manual;
    double speed;
    Nanoseconds origin{}; ///< bench time when the clock was last set
    SteadyClock::time_point started;
};

} // namespace TavikSimulator
