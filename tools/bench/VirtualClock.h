#pragma once

/// The time of the program's own thread, independent of how busy the computer is: the clock of the C library, and with
/// it every clock and timer of Qt and of the standard library, returns this time, and the program's sleeps return at
/// once. It advances by those sleeps and by Pass(), and the clock of the bench with it. Each query of the date advances
/// the date by 200 ms, so that a loop that counts readings against the date always counts the same. Other threads keep
/// the computer's time.
///
/// VirtualClock.cpp defines clock_gettime and nanosleep, which the linker prefers to those of the libraries.
namespace VirtualClock {

/// Starts the virtual time of the calling thread.
void Begin();
/// Starts only the virtual date; timers and sleeps of the calling thread keep the computer's time.
void BeginDate();
/// Advances to the next full second, without the bench: a session that begins then is the same after any other.
void RoundUp();
/// Advances this clock and that of the current bench; returns when the other threads have seen it and wait again.
void Pass(double seconds);

} // namespace VirtualClock
