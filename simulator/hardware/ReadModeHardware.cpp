#include "simulator/hardware/ReadModeHardware.h"

#include "simulator/hardware/ErrorTexts.h"

#include <cmath>
#include <string>

namespace TavikSimulator {

using TavikLibrary::eHvxReadMode;
using TavikLibrary::eTavikErrors;

namespace {

/// Readings per second of a module that reads continuously.
constexpr double ReadingsPerSecond = 10.0;

} // namespace

ReadModeHardware::ReadModeHardware(const ModuleDescription& description)
    : ModuleHardware(description), mode(description.readMode.mode) {}

Reading ReadModeHardware::ReadAt(double seconds) const {
    const std::optional<double> taken = TakenAt(seconds);
    if (!taken) {
        return {static_cast<int>(eTavikErrors::ReadingNotAvailable), 0, 0.0};
    }
    return ModuleHardware::ReadAt(*taken);
}

void ReadModeHardware::RequireReadMode(eHvxReadMode newMode) const {
    switch (newMode) {
    case eHvxReadMode::ReadContinuous:
    case eHvxReadMode::ReadOnSwitch:
    case eHvxReadMode::ReadOnSample:
        break;
    default:
        Refuse(eTavikErrors::InvalidArgument,
               "Module " + Identity() + " has no read mode " + std::to_string(static_cast<int>(newMode)) + ".");
    }
}

void ReadModeHardware::SetReadMode(eHvxReadMode newMode, double seconds) {
    RequireReadMode(newMode);
    mode = newMode;
    modeSince = seconds;
    sampledAt.reset();
}

std::vector<KeptSetting> ReadModeHardware::KeptSettings(double seconds) {
    return {KeptNumber<eHvxReadMode>(
        "read-mode", [this] { return mode; }, [this](eHvxReadMode wanted) { RequireReadMode(wanted); },
        [this, seconds](eHvxReadMode wanted) { SetReadMode(wanted, seconds); })};
}

void ReadModeHardware::Sample(double seconds) {
    if (mode != eHvxReadMode::ReadOnSample) {
        Refuse(eTavikErrors::NotSupported, "Module " + Identity() + " takes samples in the mode \"" +
                                               eHvxReadMode_ToString(eHvxReadMode::ReadOnSample) + "\" only.");
    }
    sampledAt = seconds;
    reported.reset();
}

bool ReadModeHardware::TakeNewReadingReady(double seconds) {
    const std::optional<double> taken = TakenAt(seconds);
    const bool isNew = taken && taken != reported;
    reported = taken;
    return isNew;
}

void ReadModeHardware::UpdateInformation(double seconds) {
    const auto& change = Description().readMode.change;
    if (!change || seconds < change->at) {
        return;
    }
    ModuleDescription& information = Information();
    information.deviceType = change->deviceType.value_or(information.deviceType);
    information.softwareVersion = change->softwareVersion.value_or(information.softwareVersion);
    if (change->probeIdentity) {
        information.probeIdentity = change->probeIdentity;
    }
}

std::optional<double> ReadModeHardware::TakenAt(double seconds) const {
    switch (mode) {
    case eHvxReadMode::ReadOnSwitch:
        return LastPress(seconds);
    case eHvxReadMode::ReadOnSample:
        return sampledAt;
    default:
        return std::floor(seconds * ReadingsPerSecond) / ReadingsPerSecond;
    }
}

std::optional<double> ReadModeHardware::LastPress(double seconds) const {
    const double every = Description().readMode.switchEvery;
    if (every == 0.0) {
        return std::nullopt;
    }
    const double press = std::floor(seconds / every) * every;
    return press > modeSince ? std::optional(press) : std::nullopt;
}

} // namespace TavikSimulator
