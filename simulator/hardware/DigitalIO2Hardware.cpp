#include "simulator/hardware/DigitalIO2Hardware.h"

#include "simulator/hardware/ErrorTexts.h"

#include <limits>
#include <string>
#include <utility>

namespace TavikSimulator {

using TavikLibrary::eDIOOutputMode;
using TavikLibrary::eTavikErrors;

namespace {

constexpr int PinCount = 10;
constexpr int OutputsMask = 0x00F;
constexpr int FirstInput = 4;

int BitOf(unsigned short mask, int bit) {
    return (mask >> bit) & 1;
}

} // namespace

DigitalIO2Hardware::DigitalIO2Hardware(const ModuleDescription& description)
    : DigitalIOHardware(description, PinCount, OutputsMask),
      master(description.identity, false),
      outPolarity(description.pins.outputPolarity),
      inPolarity(description.pins.inputPolarity) {
    DriveWires(Nanoseconds::zero());
}

void DigitalIO2Hardware::SetInput(int pin, bool input, Nanoseconds) {
    if (IsInput(pin) != input) {
        Reject(eTavikErrors::NotSupported, "Pin " + std::to_string(pin) + " of module " + Identity() +
                                               (input ? " is always an output." : " is always an input."));
    }
}

void DigitalIO2Hardware::SetOutPolarityMask(unsigned short mask, Nanoseconds time) {
    outPolarity = mask;
    DriveWires(time);
}

void DigitalIO2Hardware::RequireOutputMode(eDIOOutputMode mode) const {
    switch (mode) {
    case eDIOOutputMode::NPN:
    case eDIOOutputMode::PNP:
    case eDIOOutputMode::TTL:
        break;
    default:
        Reject(eTavikErrors::InvalidArgument,
               "Module " + Identity() + " has no output mode " + std::to_string(static_cast<int>(mode)) + ".");
    }
}

void DigitalIO2Hardware::SetOutputMode(eDIOOutputMode mode, Nanoseconds time) {
    RequireOutputMode(mode);
    outputMode = mode;
    DriveWires(time);
}

std::vector<KeptSetting> DigitalIO2Hardware::KeptSettings(Nanoseconds time) {
    const auto requireMask = [this](int mask) {
        if (mask < 0 || mask > std::numeric_limits<unsigned short>::max()) {
            Reject(eTavikErrors::InvalidArgument,
                   "Module " + Identity() + " has no polarity mask " + std::to_string(mask) + ".");
        }
    };
    std::vector<KeptSetting> kept = {KeptDebounceTime(time)};
    kept.push_back(KeptNumber<int>(
        "output-polarity", [this] { return outPolarity; }, requireMask,
        [this, time](int mask) { SetOutPolarityMask(static_cast<unsigned short>(mask), time); }));
    kept.push_back(KeptNumber<int>(
        "input-polarity", [this] { return inPolarity; }, requireMask,
        [this](int mask) { SetInPolarityMask(static_cast<unsigned short>(mask)); }));
    kept.push_back(KeptNumber<eDIOOutputMode>(
        "output-mode", [this] { return outputMode; }, [this](eDIOOutputMode mode) { RequireOutputMode(mode); },
        [this, time](eDIOOutputMode mode) { SetOutputMode(mode, time); }));
    for (KeptSetting& setting : master.Kept()) {
        kept.push_back(std::move(setting));
    }
    return kept;
}

// An NPN output can pull its line low only, a PNP output high only; a TTL output does both.
int DigitalIO2Hardware::DrivenLevel(int pin, int state, int pull) const {
    const int wanted = state == BitOf(outPolarity, pin) ? 1 : 0;
    const bool letsGo =
        (outputMode == eDIOOutputMode::NPN && wanted == 1) || (outputMode == eDIOOutputMode::PNP && wanted == 0);
    return letsGo ? pull : wanted;
}

std::int64_t DigitalIO2Hardware::TriggerCountAt(Nanoseconds time) const {
    return RisesOfInput(FirstInput, time);
}

int DigitalIO2Hardware::ReadingBit(int pin, Nanoseconds time) const {
    if (!IsInput(pin)) {
        return OutputState(pin);
    }
    return InputState(pin, time) == BitOf(inPolarity, pin - FirstInput) ? 1 : 0;
}

} // namespace TavikSimulator
