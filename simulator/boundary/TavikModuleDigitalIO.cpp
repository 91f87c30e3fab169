#include "library/TavikModuleDigitalIO.h"

#include "simulator/boundary/ModuleImplementation.h"
#include "simulator/hardware/DigitalIOHardware.h"
#include "simulator/hardware/ErrorTexts.h"

#include <string>

namespace TavikLibrary {

using TavikSimulator::DigitalIOHardware;

namespace {

constexpr int Input = 1;
constexpr int Output = 0;

} // namespace

TavikModuleDigitalIO::TavikModuleDigitalIO(Implementation* module) : TavikModule(module) {}

TavikModuleDigitalIO::~TavikModuleDigitalIO() = default;

int TavikModuleDigitalIO::PinConfiguration(int pin) {
    return implementation->Known(
        "PinConfiguration", [&] { return implementation->As<DigitalIOHardware>().IsInput(pin) ? Input : Output; }, pin);
}

int TavikModuleDigitalIO::InputState(int pin) {
    return implementation->OnBus(
        "InputState",
        [&] { return implementation->As<DigitalIOHardware>().InputState(pin, implementation->bench.clock.Now()); },
        pin);
}

int TavikModuleDigitalIO::OutputState(int pin) {
    return implementation->Known(
        "OutputState", [&] { return implementation->As<DigitalIOHardware>().OutputState(pin); }, pin);
}

void TavikModuleDigitalIO::setOutputState(int pin, int state) {
    implementation->OnBus(
        "setOutputState",
        [&] { implementation->As<DigitalIOHardware>().SetOutputState(pin, state, implementation->bench.clock.Now()); },
        pin, state);
}

void TavikModuleDigitalIO::ReservedInputOutput1() {
    implementation->Known("ReservedInputOutput1", [] {});
}

int TavikModuleDigitalIO::DebounceTime() {
    return implementation->Known("DebounceTime",
                                 [this] { return implementation->As<DigitalIOHardware>().DebounceTime(); });
}

void TavikModuleDigitalIO::setDebounceTime(int milliseconds) {
    implementation->OnBus(
        "setDebounceTime",
        [&] {
            implementation->As<DigitalIOHardware>().SetDebounceTime(milliseconds, implementation->bench.clock.Now());
        },
        milliseconds);
}

void TavikModuleDigitalIO::ReservedInputOutput2() {
    implementation->Known("ReservedInputOutput2", [] {});
}

void TavikModuleDigitalIO::setPinConfiguration(int pin, int configuration) {
    implementation->OnBus(
        "setPinConfiguration",
        [&] {
            if (configuration != Input && configuration != Output) {
                TavikSimulator::Reject(eTavikErrors::InvalidArgument,
                                       "A pin is configured as 1 (input) or 0 (output), not as " +
                                           std::to_string(configuration) + ".");
            }
            implementation->As<DigitalIOHardware>().SetInput(pin, configuration == Input,
                                                             implementation->bench.clock.Now());
        },
        pin, configuration);
}

} // namespace TavikLibrary
