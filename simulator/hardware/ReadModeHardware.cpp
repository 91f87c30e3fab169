#include "simulator/hardware/ReadModeHardware.h"

#include "simulator/hardware/ErrorTexts.h"

#include <string>

namespace TavikSimulator {

using TavikLibrary::eHvxReadMode;
using TavikLibrary::eTavikErrors;

namespace {

/// Interval between readings in continuous mode.
constexpr std::chrono::milliseconds ContinuousPeriod{100};

} // namespace

ReadModeHardware::ReadModeHardware(const ModuleDescription& description)
    : ModuleHardware(description), mode(description.readMode.mode) {}

Reading ReadModeHardware::ReadAt(Nanoseconds time) const {
    const std::optional<Nanoseconds> taken = TakenAt(time);
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
        Reject(eTavikErrors::InvalidArgument,
               "Module " + Identity() + " has no read mode " + std::to_string(static_cast<int>(newMode)) + ".");
    }
}

void ReadModeHardware::SetReadMode(eHvxReadMode newMode, Nanoseconds time) {
    RequireReadMode(newMode);
    mode = newMode;
    modeSince = time;
    sampledAt.reset();
}

std::vector<KeptSetting> ReadModeHardware::KeptSettings(Nanoseconds time) {
    return {KeptNumber<eHvxReadMode>(
        "read-mode", [this] { return mode; }, [this](eHvxReadMode wanted) { RequireReadMode(wanted); },
        [this, time](eHvxReadMode wanted) { SetReadMode(wanted, time); })};
}

void ReadModeHardware::Sample(Nanoseconds time) {
    if (mode != eHvxReadMode::ReadOnSample) {
        Reject(eTavikErrors::NotSupported, "Module " + Identity() + " takes samples in the mode \"" +
                                               eHvxReadMode_ToString(eHvxReadMode::ReadOnSample) + "\" only.");
    }
    sampledAt = time;
    reported.reset();
}

bool ReadModeHardware::TakeNewReadingReady(Nanoseconds time) {
    const std::optional<Nanoseconds> taken = TakenAt(time);
    const bool isNew = taken && taken != reported;
    reported = taken;
    return isNew;
}

void ReadModeHardware::UpdateInformation(Nanoseconds time) {
    const auto& change = Description().readMode.change;
    if (!change || time < change->at) {
        return;
    }
    ModuleDescription& information = Information();
    information.deviceType = change->deviceType.value_or(information.deviceType);
    information.softwareVersion = change->softwareVersion.value_or(information.softwareVersion);
    if (change->probeIdentity) {
        information.probeIdentity = change->probeIdentity;
    }
}

std::optional<Nanoseconds> ReadModeHardware::TakenAt(Nanoseconds time) const {
    switch (mode) {
    case eHvxReadMode::ReadOnSwitch:
        return LastPress(time);
    case eHvxReadMode::ReadOnSample:
        return sampledAt;
    default:
        return time - WithinPeriod(time, ContinuousPeriod);
    }
}

std::optional<Nanoseconds> ReadModeHardware::LastPress(Nanoseconds time) const {
    const Nanoseconds every = Description().readMode.switchEvery;
    if (every == Nanoseconds::zero()) {
        return std::nullopt;
    }
    const Nanoseconds press = time - WithinPeriod(time, every);
    return press > modeSince ? std::optional(press) : std::nullopt;
}

} // namespace TavikSimulator
