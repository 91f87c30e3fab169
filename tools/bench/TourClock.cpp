#include "tools/bench/TourClock.h"

#include "simulator/control/BenchControl.h"

#include <chrono>
#include <thread>

namespace {

double clockSpeed = 0.0;

} // namespace

void SetTourClockSpeed(double speed) {
    clockSpeed = speed;
}

void LetTimePass(double seconds) {
    if (clockSpeed > 0.0) {
        std::this_thread::sleep_for(std::chrono::duration<double>(seconds / clockSpeed));
    } else {
        TavikSimulator::AdvanceClock(seconds);
    }
}
