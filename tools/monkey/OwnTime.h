#pragma once

/// The time of the program's own thread. It stands still but for what the program sleeps and what is passed here, and
/// the bench's clock goes with it, so that a run does not depend on how busy the computer is: the C library's clock,
/// and with it every clock and timer of Qt and the standard library, answers this time, and the program's sleeps come
/// back at once. Other threads keep the computer's time.
///
/// This program has its own clock_gettime and SleepMicroseconds for it, which the linker prefers to those of the
/// libraries.
namespace OwnTime {

/// From now on the calling thread's time is its own.
void Begin();
/// To the next full second, without the bench: what begins then is the same whatever was before.
void RoundUp();
/// Lets time go by, on the current bench too. Other threads are given the time to see it.
void Pass(double seconds);

} // namespace OwnTime
