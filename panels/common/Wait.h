#pragma once

/// Blocks the calling thread. Events are not processed meanwhile.
void SleepMicroseconds(unsigned int microseconds);
