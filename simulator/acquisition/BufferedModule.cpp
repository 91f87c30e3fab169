#include "simulator/acquisition/BufferedModule.h"

#include "simulator/hardware/ErrorTexts.h"

#include <algorithm>
#include <utility>

namespace TavikSimulator {

using TavikLibrary::eBufferedMode;
using TavikLibrary::eTavikErrors;
using TavikLibrary::TavikReading;

namespace {

constexpr int UnitsPerStep = 40;
constexpr int StepMicroseconds = static_cast<int>((UnitsPerStep * TimingUnit).count() / 1000);

// The nearest whole number of steps, at least 1.
std::int64_t StepsFor(int microseconds) {
    return std::max<std::int64_t>(1, (std::int64_t{microseconds} + StepMicroseconds / 2) / StepMicroseconds);
}

} // namespace

BufferedModule::BufferedModule(std::string moduleIdentity, bool bufferedCapable, int bufferDepth)
    : identity(std::move(moduleIdentity)),
      capable(bufferedCapable),
      depth(static_cast<std::size_t>(bufferDepth)),
      interval(StepMicroseconds) {}

void BufferedModule::SetMode(eBufferedMode newMode) {
    switch (newMode) {
    case eBufferedMode::Sync:
    case eBufferedMode::Sample:
        break;
    case eBufferedMode::None:
        if (enabled) {
            Reject(eTavikErrors::InvalidArgument,
                   "Module " + identity + " needs a buffered sub-mode as long as it is enabled.");
        }
        break;
    default:
        Reject(eTavikErrors::InvalidArgument,
               "Module " + identity + " has no buffered sub-mode " + std::to_string(static_cast<int>(newMode)) + ".");
    }
    mode = newMode;
}

void BufferedModule::SetEnabled(bool enable) {
    if (enable && !capable) {
        Reject(eTavikErrors::NotSupported, "Module " + identity + " has no buffered mode.");
    }
    if (enable && mode == eBufferedMode::None) {
        Reject(eTavikErrors::InvalidArgument,
               "Module " + identity + " must be given a buffered sub-mode before it is enabled.");
    }
    enabled = enable;
}

void BufferedModule::SetInterval(int microseconds) {
    if (microseconds < 1) {
        Reject(eTavikErrors::InvalidArgument, "The reading interval of module " + identity +
                                                  " must be 1 us or more, not " + std::to_string(microseconds) +
                                                  " us.");
    }
    interval = microseconds;
}

int BufferedModule::Units() const {
    return static_cast<int>(StepsFor(interval) * UnitsPerStep);
}

int BufferedModule::IntervalError() const {
    return static_cast<int>(StepsFor(interval) * StepMicroseconds - interval);
}

void BufferedModule::Begin() {
    readings.clear();
    taking = enabled;
}

void BufferedModule::Store(const TavikReading& reading) {
    if (IsFull()) {
        readings.back().resultCode = static_cast<int>(eTavikErrors::BufferOverrun);
        taking = false;
        return;
    }
    readings.push_back(reading);
}

void BufferedModule::StopResponding() {
    if (IsFull()) {
        readings.pop_back();
    }
    readings.push_back({static_cast<int>(eTavikErrors::DroppedOut), 0, 0.0});
    taking = false;
}

const TavikReading& BufferedModule::At(int index) const {
    if (index < 0 || index >= Length()) {
        Reject(eTavikErrors::NoSuchReading, "The buffer of module " + identity + " holds " + std::to_string(Length()) +
                                                " readings; there is none at index " + std::to_string(index) + ".");
    }
    return readings[static_cast<std::size_t>(index)];
}

} // namespace TavikSimulator
