#include "simulator/modules/ModuleHardware.h"

#include "simulator/bench/ErrorTexts.h"

#include <algorithm>
#include <cmath>

namespace TavikSimulator {

ModuleHardware::ModuleHardware(const ModuleDescription& moduleDescription)
    : buffered(moduleDescription.identity, moduleDescription.capabilities.buffered, moduleDescription.bufferDepth),
      present(moduleDescription.place != Place::Absent),
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

Reading ModuleHardware::ReadAt(double seconds) const {
    return Digitise(signal.At(seconds), range);
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

bool ModuleHardware::Answers(double) const {
    return present;
}

MasterSettings* ModuleHardware::Master() {
    return nullptr;
}

std::int64_t ModuleHardware::TriggerCountAt(double) const {
    return 0;
}

void ModuleHardware::PowerOn(double) {}

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

StoredSettings ModuleHardware::Settings() const {
    return {};
}

void ModuleHardware::RequireSettings(const StoredSettings& settings) const {
    if (!settings.empty()) {
        Refuse(TavikLibrary::eTavikErrors::InvalidArgument,
               "Module " + Identity() + " has no setting \"" + settings.begin()->first + "\".");
    }
}

void ModuleHardware::UseSettings(const StoredSettings&, double) {}

} // namespace TavikSimulator
