#include "simulator/hardware/DigitalIOHardware.h"

#include "simulator/hardware/ErrorTexts.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

namespace TavikSimulator {

using TavikLibrary::eTavikErrors;

namespace {

constexpr int DebounceTimes[] = {0, 5, 10, 15, 25, 50};

} // namespace

DigitalIOHardware::DigitalIOHardware(const ModuleDescription& description, int pinCount, int outputs)
    : ModuleHardware(description),
      pins(static_cast<std::size_t>(pinCount)),
      debounceTime(description.pins.debounceTime) {
    for (int pin = 0; pin < pinCount; ++pin) {
        At(pin).input = ((outputs >> pin) & 1) == 0;
    }
    for (const WireDescription& ends : description.pins.wires) {
        wires.push_back({ends, InputLine()});
    }
}

DigitalIOHardware::Pin& DigitalIOHardware::At(int pin) {
    return const_cast<Pin&>(std::as_const(*this).At(pin));
}

const DigitalIOHardware::Pin& DigitalIOHardware::At(int pin) const {
    const int count = static_cast<int>(pins.size());
    if (pin < 0 || pin >= count) {
        Refuse(eTavikErrors::InvalidArgument, "Module " + Identity() + " has the pins 0 to " +
                                                  std::to_string(count - 1) + ", but no pin " + std::to_string(pin) +
                                                  ".");
    }
    return pins[static_cast<std::size_t>(pin)];
}

Reading DigitalIOHardware::ReadAt(double seconds) const {
    int bits = 0;
    for (int pin = 0; pin < static_cast<int>(pins.size()); ++pin) {
        bits |= ReadingBit(pin, seconds) << pin;
    }
    return {static_cast<int>(eTavikErrors::NoError), bits, static_cast<double>(bits)};
}

void DigitalIOHardware::PowerOn(double seconds) {
    for (Pin& pin : pins) {
        pin.state = 0;
    }
    DriveWires(seconds);
}

bool DigitalIOHardware::IsInput(int pin) const {
    return At(pin).input;
}

void DigitalIOHardware::SetInput(int pin, bool input, double seconds) {
    At(pin).input = input;
    DriveWires(seconds);
}

int DigitalIOHardware::InputState(int pin, double seconds) const {
    const Pin& asked = At(pin);
    return asked.input ? LevelOfInput(pin, seconds) : DrivenLevel(pin, asked.state, PullOf(pin));
}

int DigitalIOHardware::OutputState(int pin) const {
    return At(pin).state;
}

void DigitalIOHardware::SetOutputState(int pin, int state, double seconds) {
    if (At(pin).input) {
        Refuse(eTavikErrors::NotSupported,
               "Pin " + std::to_string(pin) + " of module " + Identity() + " is an input and cannot be driven.");
    }
    if (state != 0 && state != 1) {
        Refuse(eTavikErrors::InvalidArgument, "A pin can be driven to 0 or 1, not to " + std::to_string(state) + ".");
    }
    At(pin).state = state;
    DriveWires(seconds);
}

void DigitalIOHardware::RequireDebounceTime(int milliseconds) const {
    if (std::find(std::begin(DebounceTimes), std::end(DebounceTimes), milliseconds) == std::end(DebounceTimes)) {
        Refuse(eTavikErrors::InvalidArgument, "Module " + Identity() + " has no debounce time of " +
                                                  std::to_string(milliseconds) +
                                                  " ms; it has 0, 5, 10, 15, 25 and 50 ms.");
    }
}

void DigitalIOHardware::SetDebounceTime(int milliseconds, double seconds) {
    RequireDebounceTime(milliseconds);
    std::vector<std::int64_t> before;
    for (int pin = 0; pin < static_cast<int>(pins.size()); ++pin) {
        before.push_back(RisesOfInput(pin, seconds));
    }
    for (Wire& wire : wires) {
        wire.line.Settle(seconds, DebounceSeconds());
    }
    debounceTime = milliseconds;
    for (int pin = 0; pin < static_cast<int>(pins.size()); ++pin) {
        At(pin).risesMissed = before[static_cast<std::size_t>(pin)] - SeenRises(pin, seconds);
    }
}

KeptSetting DigitalIOHardware::KeptDebounceTime(double seconds) {
    return KeptNumber<int>(
        "debounce-time", [this] { return debounceTime; },
        [this](int milliseconds) { RequireDebounceTime(milliseconds); },
        [this, seconds](int milliseconds) { SetDebounceTime(milliseconds, seconds); });
}

std::vector<KeptSetting> DigitalIOHardware::KeptSettings(double seconds) {
    std::vector<KeptSetting> kept = {KeptDebounceTime(seconds)};
    for (int pin = 0; pin < static_cast<int>(pins.size()); ++pin) {
        kept.push_back(KeptSwitch(
            "input-" + std::to_string(pin), [this, pin] { return IsInput(pin); },
            [this, pin, seconds](bool input) { SetInput(pin, input, seconds); }));
    }
    return kept;
}

int DigitalIOHardware::DrivenLevel(int, int state, int) const {
    return state;
}

int DigitalIOHardware::ReadingBit(int pin, double seconds) const {
    return InputState(pin, seconds);
}

void DigitalIOHardware::DriveWires(double seconds) {
    for (Wire& wire : wires) {
        const Pin& driver = At(wire.ends.from);
        const int pull = PullOf(wire.ends.to);
        wire.line.Take(driver.input ? pull : DrivenLevel(wire.ends.from, driver.state, pull), seconds,
                       DebounceSeconds());
    }
}

int DigitalIOHardware::PullOf(int pin) const {
    return (Description().pins.pullUps >> pin) & 1;
}

int DigitalIOHardware::LevelOfInput(int pin, double seconds) const {
    for (const Wire& wire : wires) {
        if (wire.ends.to == pin) {
            return wire.line.LevelAt(seconds, DebounceSeconds());
        }
    }
    for (const PulsesDescription& pulses : Description().pins.pulses) {
        if (pulses.pin == pin) {
            return LevelOf(pulses, seconds, DebounceSeconds());
        }
    }
    return (Description().pins.inputs >> pin) & 1;
}

std::int64_t DigitalIOHardware::RisesOfInput(int pin, double seconds) const {
    return SeenRises(pin, seconds) + At(pin).risesMissed;
}

std::int64_t DigitalIOHardware::SeenRises(int pin, double seconds) const {
    for (const Wire& wire : wires) {
        if (wire.ends.to == pin) {
            return wire.line.RisesUntil(seconds, DebounceSeconds());
        }
    }
    for (const PulsesDescription& pulses : Description().pins.pulses) {
        if (pulses.pin == pin) {
            return RisesOf(pulses, seconds, DebounceSeconds());
        }
    }
    return 0;
}

} // namespace TavikSimulator
