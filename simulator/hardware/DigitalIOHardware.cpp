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
        Reject(eTavikErrors::InvalidArgument, "Module " + Identity() + " has the pins 0 to " +
                                                  std::to_string(count - 1) + ", but no pin " + std::to_string(pin) +
                                                  ".");
    }
    return pins[static_cast<std::size_t>(pin)];
}

Reading DigitalIOHardware::ReadAt(Nanoseconds time) const {
    int bits = 0;
    for (int pin = 0; pin < static_cast<int>(pins.size()); ++pin) {
        bits |= ReadingBit(pin, time) << pin;
    }
    return {static_cast<int>(eTavikErrors::NoError), bits, static_cast<double>(bits)};
}

void DigitalIOHardware::PowerOn(Nanoseconds time) {
    for (Pin& pin : pins) {
        pin.state = 0;
    }
    DriveWires(time);
}

bool DigitalIOHardware::IsInput(int pin) const {
    return At(pin).input;
}

void DigitalIOHardware::SetInput(int pin, bool input, Nanoseconds time) {
    At(pin).input = input;
    DriveWires(time);
}

int DigitalIOHardware::InputState(int pin, Nanoseconds time) const {
    const Pin& asked = At(pin);
    return asked.input ? LevelOfInput(pin, time) : DrivenLevel(pin, asked.state, PullOf(pin));
}

int DigitalIOHardware::OutputState(int pin) const {
    return At(pin).state;
}

void DigitalIOHardware::SetOutputState(int pin, int state, Nanoseconds time) {
    if (At(pin).input) {
        Reject(eTavikErrors::NotSupported,
               "Pin " + std::to_string(pin) + " of module " + Identity() + " is an input and cannot be driven.");
    }
    if (state != 0 && state != 1) {
        Reject(eTavikErrors::InvalidArgument, "A pin can be driven to 0 or 1, not to " + std::to_string(state) + ".");
    }
    At(pin).state = state;
    DriveWires(time);
}

void DigitalIOHardware::RequireDebounceTime(int milliseconds) const {
    if (std::find(std::begin(DebounceTimes), std::end(DebounceTimes), milliseconds) == std::end(DebounceTimes)) {
        Reject(eTavikErrors::InvalidArgument, "Module " + Identity() + " has no debounce time of " +
                                                  std::to_string(milliseconds) +
                                                  " ms; it has 0, 5, 10, 15, 25 and 50 ms.");
    }
}

void DigitalIOHardware::SetDebounceTime(int milliseconds, Nanoseconds time) {
    RequireDebounceTime(milliseconds);
    std::vector<std::int64_t> before;
    for (int pin = 0; pin < static_cast<int>(pins.size()); ++pin) {
        before.push_back(RisesOfInput(pin, time));
    }
    for (Wire& wire : wires) {
        wire.line.LatchLevel(time, DebounceSpan());
    }
    debounceTime = milliseconds;
    for (int pin = 0; pin < static_cast<int>(pins.size()); ++pin) {
        At(pin).risesMissed = before[static_cast<std::size_t>(pin)] - SeenRises(pin, time);
    }
}

KeptSetting DigitalIOHardware::KeptDebounceTime(Nanoseconds time) {
    return KeptNumber<int>(
        "debounce-time", [this] { return debounceTime; },
        [this](int milliseconds) { RequireDebounceTime(milliseconds); },
        [this, time](int milliseconds) { SetDebounceTime(milliseconds, time); });
}

std::vector<KeptSetting> DigitalIOHardware::KeptSettings(Nanoseconds time) {
    std::vector<KeptSetting> kept = {KeptDebounceTime(time)};
    for (int pin = 0; pin < static_cast<int>(pins.size()); ++pin) {
        kept.push_back(KeptSwitch(
            "input-" + std::to_string(pin), [this, pin] { return IsInput(pin); },
            [this, pin, time](bool input) { SetInput(pin, input, time); }));
    }
    return kept;
}

int DigitalIOHardware::DrivenLevel(int, int state, int) const {
    return state;
}

int DigitalIOHardware::ReadingBit(int pin, Nanoseconds time) const {
    return InputState(pin, time);
}

void DigitalIOHardware::DriveWires(Nanoseconds time) {
    for (Wire& wire : wires) {
        const Pin& driver = At(wire.ends.from);
        const int pull = PullOf(wire.ends.to);
        wire.line.Take(driver.input ? pull : DrivenLevel(wire.ends.from, driver.state, pull), time, DebounceSpan());
    }
}

int DigitalIOHardware::PullOf(int pin) const {
    return (Description().pins.pullUps >> pin) & 1;
}

int DigitalIOHardware::LevelOfInput(int pin, Nanoseconds time) const {
    for (const Wire& wire : wires) {
        if (wire.ends.to == pin) {
            return wire.line.LevelAt(time, DebounceSpan());
        }
    }
    for (const PulsesDescription& pulses : Description().pins.pulses) {
        if (pulses.pin == pin) {
            return LevelOf(pulses, time, DebounceSpan());
        }
    }
    return (Description().pins.inputs >> pin) & 1;
}

std::int64_t DigitalIOHardware::RisesOfInput(int pin, Nanoseconds time) const {
    return SeenRises(pin, time) + At(pin).risesMissed;
}

std::int64_t DigitalIOHardware::SeenRises(int pin, Nanoseconds time) const {
    for (const Wire& wire : wires) {
        if (wire.ends.to == pin) {
            return wire.line.RisesUntil(time, DebounceSpan());
        }
    }
    for (const PulsesDescription& pulses : Description().pins.pulses) {
        if (pulses.pin == pin) {
            return RisesOf(pulses, time, DebounceSpan());
        }
    }
    return 0;
}

} // namespace TavikSimulator
