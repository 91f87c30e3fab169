#include "panels/common/Wait.h"

#include <chrono>
#include <thread>

void SleepMicroseconds(unsigned int microseconds) {
    std::this_thread::sleep_for(std::chrono::microseconds(microseconds));
}
