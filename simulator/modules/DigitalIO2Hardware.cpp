#include "simulator/modules/DigitalIO2Hardware.h"

#include "simulator/bench/ErrorTexts.h"

#include <string>

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
    DriveWires(0.0);
}

void DigitalIO2Hardware::SetInput(int pin, bool input, double) {
    if (IsInput(pin) != input) {
        Refuse(eTavikErrors::NotSupported, "Pin " + std::to_string(pin) + " of module " + Identity() +
                                               (input ? " is always an output." : " is always an input."));
    }
}

void DigitalIO2Hardware::SetOutPolarityMask(unsigned short mask, double seconds) {
    outPolarity = mask;
    DriveWires(seconds);
}

void DigitalIO2Hardware::SetOutputMode(eDIOOutputMode mode, double seconds) {
    switch (mode) {
    case eDIOOutputMode::NPN:
    case eDIOOutputMode::PNP:
    case eDIOOutputMode::TTL:
        break;
    default:
        Refuse(eTavikErrors::InvalidArgument,
               "Module " + Identity() + " has no output mode " + std::to_string(static_cast<int>(mode)) + ".");
    }
    outputMode = mode;
    DriveWires(seconds);
}

// An NPN output can pull its line low only, a PNP output high only; a TTL output does both.
int DigitalIO2Hardware::DrivenLevel(int pin, int state, int pull) const {
    const int wanted = state == BitOf(outPolarity, pin) ? 1 : 0;
    const bool letsGo =
        (outputMode == eDIOOutputMode::NPN && wanted == 1) || (outputMode == eDIOOutputMode::PNP && wanted == 0);
    return letsGo ? pull : wanted;
}

std::int64_t DigitalIO2Hardware::TriggerCountAt(double seconds) const {
    return RisesOfInput(FirstInput, seconds);
}

int DigitalIO2Hardware::ReadingBit(int pin, double seconds) const {
    if (!IsInput(pin)) {
        return OutputState(pin);
    }
    return InputState(pin, seconds) == BitOf(inPolarity, pin - FirstInput) ? 1 : 0;
}

} // namespace TavikSimulator
