#include "simulator/hardware/ModuleHardware.h"

#include "simulator/hardware/ErrorTexts.h"

#include <algorithm>
#include <cmath>

namespace TavikSimulator {

ModuleHardware::ModuleHardware(const ModuleDescription& moduleDescription)
    : present(moduleDescription.plugState != PlugState::Absent),
      announcesAfter(moduleDescription.announcesAfter),
      description(moduleDescription),
      signal(moduleDescription.signal) {
    range.offset = description.offset;
    range.stroke = description.stroke;
    range.fullScale = static_cast<int>(std::lround(description.stroke * description.countsPerUnit));
}

bool ModuleHardware::CanWorkAt(TavikLibrary::eNetSpeed speed) const {
    const auto& speeds = description.speeds;
    return std::find(speeds.begin(), speeds.end(), speed) != speeds.end();
}

Reading ModuleHardware::ReadAt(Nanoseconds time) const {
    return Digitise(signal.At(time), range);
}

Nanoseconds ModuleHardware::ReadingPeriod() const {
    return std::chrono::milliseconds(1);
}

double ModuleHardware::CountsPerUnit() const {
    return description.countsPerUnit;
}

double ModuleHardware::Offset() const {
    return description.offset;
}

double ModuleHardware::Stroke() const {
    return description.stroke;
}

std::string ModuleHardware::Unit() const {
    return description.unit;
}

void ModuleHardware::RequireReadable() const {}

bool ModuleHardware::Answers(Nanoseconds) const {
    return present;
}

void ModuleHardware::RequireAnswer(Nanoseconds time, const std::string& networkName) const {
    if (!Answers(time)) {
        Reject(TavikLibrary::eTavikErrors::ModuleNotResponding,
               "Module " + Identity() + " on network \"" + networkName + "\" does not answer.");
    }
}

MasterSettings* ModuleHardware::Master() {
    return nullptr;
}

std::int64_t ModuleHardware::TriggerCountAt(Nanoseconds) const {
    return 0;
}

void ModuleHardware::PowerOn(Nanoseconds) {}

void ModuleHardware::Hold(double position) {
    SignalDescription still;
    still.base = position;
    signal = Signal(still);
    UseSignal(still);
}

void ModuleHardware::Release() {
    signal = Signal(description.signal);
    UseSignal(description.signal);
}

void ModuleHardware::UseSignal(const SignalDescription&) {}

std::vector<KeptSetting> ModuleHardware::KeptSettings(Nanoseconds) {
    return {};
}

StoredSettings ModuleHardware::Settings(Nanoseconds time) {
    StoredSettings settings;
    for (const KeptSetting& kept : KeptSettings(time)) {
        settings.emplace(kept.name, kept.text());
    }
    return settings;
}

void ModuleHardware::RequireSettings(const StoredSettings& settings, Nanoseconds time) {
    StoredSettings others = settings;
    for (const KeptSetting& kept : KeptSettings(time)) {
        if (const auto stored = others.extract(kept.name)) {
            kept.require(stored.mapped());
        }
    }
    if (!others.empty()) {
        Reject(TavikLibrary::eTavikErrors::InvalidArgument,
               "Module " + Identity() + " has no setting \"" + others.begin()->first + "\".");
    }
}

void ModuleHardware::UseSettings(const StoredSettings& settings, Nanoseconds time) {
    for (const KeptSetting& kept : KeptSettings(time)) {
        const auto stored = settings.find(kept.name);
        if (stored != settings.end() && stored->second != kept.text()) {
            kept.use(stored->second);
        }
    }
}

} // namespace TavikSimulator
