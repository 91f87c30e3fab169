#pragma once

// The time that the tour's steps wait for on the bench.

/// From now on the steps find a bench whose time runs with the computer's clock, this many times as fast; 0 (as at the
/// start) for one whose clock stands still.
void SetTourClockSpeed(double speed);

/// Lets so many seconds pass on the bench: at once where the clock stands still, and by waiting where it runs.
void LetTimePass(double seconds);
