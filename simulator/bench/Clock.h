#pragma once

#include <chrono>
#include <mutex>

namespace TavikSimulator {

/// A network's wires: they carry one transaction at a time, so calls from several threads queue up.
class Bus {
public:
    /// Books the wires for a transaction; returns the bench time at which it will be over.
    double Reserve(double now, double seconds);

private:
    std::mutex mutex;
    double freeAt = 0.0;
};

/// The bench's time in seconds. It runs with the computer's clock, faster or slower if wanted, or it
/// stands still and is advanced by hand and by the waits of calls. Safe from any thread.
class Clock {
public:
    /// Begins at 0.
    Clock(double speed, bool manual);

    double Now() const;
    /// Goes on from the present bench time at this speed (bench seconds per second).
    void RunReal(double speed);
    /// Stands still at the present bench time.
    void Stop();
    bool IsManual() const;
    /// On a manual clock only: lets time pass.
    void Advance(double seconds);

    /// Lets a call take its time; on a manual clock time passes by that much at once.
    void Wait(double seconds);
    /// The same for a transaction on wires that may be busy with others.
    void WaitOn(Bus& bus, double seconds);

private:
    using SteadyClock = std::chrono::steady_clock;
    static void SleepUntil(SteadyClock::time_point end);
    double NowLocked() const;
    bool AdvancedByHand(double seconds);
    SteadyClock::time_point TimePointOf(double benchTime) const;

    mutable std::mutex mutex;
    bool manual;
    double speed;
    double origin = 0.0; ///< bench time when the clock was last set
    SteadyClock::time_point started;
};

} // namespace TavikSimulator
