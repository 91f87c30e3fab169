#include "library/TavikModule.h"

#include "simulator/boundary/ModuleImplementation.h"
#include "simulator/hardware/ErrorTexts.h"

namespace TavikLibrary {

TavikModule::TavikModule(Implementation* module) : implementation(module) {}

TavikModule::~TavikModule() {
    delete implementation;
}

bool TavikModule::BufferedCapable() {
    return implementation->Known("BufferedCapable",
                                 [this] { return implementation->hardware->Description().capabilities.buffered; });
}

bool TavikModule::BufferedMasterCapable() {
    return implementation->Known("BufferedMasterCapable", [this] {
        return implementation->hardware->Description().capabilities.bufferedMaster;
    });
}

double TavikModule::CountsPerUnitOfMeasure() {
    return implementation->Known("CountsPerUnitOfMeasure",
                                 [this] { return implementation->hardware->CountsPerUnit(); });
}

std::string TavikModule::DeviceType() {
    return implementation->Known("DeviceType", [this] { return implementation->hardware->Description().deviceType; });
}

bool TavikModule::DifferenceCapable() {
    return implementation->Known("DifferenceCapable",
                                 [this] { return implementation->hardware->Description().capabilities.difference; });
}

bool TavikModule::DynamicCapable() {
    return implementation->Known("DynamicCapable",
                                 [this] { return implementation->hardware->Description().capabilities.dynamic; });
}

bool TavikModule::Dynamic2Capable() {
    return implementation->Known("Dynamic2Capable",
                                 [this] { return implementation->hardware->Description().capabilities.dynamic2; });
}

bool TavikModule::DynamicMasterCapable() {
    return implementation->Known("DynamicMasterCapable",
                                 [this] { return implementation->hardware->Description().capabilities.dynamicMaster; });
}

bool TavikModule::HotSwappable() {
    return implementation->Known("HotSwappable",
                                 [this] { return implementation->hardware->Description().hotSwappable; });
}

std::string TavikModule::ProbeIdentity() {
    return implementation->Known("ProbeIdentity", [this] {
        const auto& probe = implementation->hardware->Description().probeIdentity;
        if (!probe) {
            TavikSimulator::Reject(eTavikErrors::NotAvailable,
                                   "Module " + implementation->hardware->Identity() + " has no probe identity.");
        }
        return *probe;
    });
}

std::string TavikModule::Identity() {
    return implementation->Known("Identity", [this] { return implementation->hardware->Identity(); });
}

TavikModuleStatus* TavikModule::Status() {
    return implementation->Local("Status", [this] { return implementation->status.get(); });
}

eModuleType TavikModule::ModuleType() {
    return implementation->Known("ModuleType", [this] { return implementation->hardware->Description().type; });
}

double TavikModule::Offset() {
    return implementation->Known("Offset", [this] { return implementation->hardware->Offset(); });
}

bool TavikModule::ReadBurstCapable() {
    return implementation->Known("ReadBurstCapable",
                                 [this] { return implementation->hardware->Description().capabilities.readBurst; });
}

int TavikModule::ReadInCounts() {
    return implementation->OnBus("ReadInCounts",
                                 [this](std::optional<int> code) { return implementation->Read(code).counts; });
}

double TavikModule::ReadInUnits() {
    return implementation->OnBus("ReadInUnits",
                                 [this](std::optional<int> code) { return implementation->Read(code).units; });
}

void TavikModule::SetPosition(int position) {
    implementation->Known(
        "SetPosition",
        [&] {
            implementation->network.Modules().RequirePosition(position);
            implementation->listed.position = position;
        },
        position);
}

bool TavikModule::SpeedAvailable(eNetSpeed speed) {
    return implementation->Known(
        "SpeedAvailable", [&] { return implementation->hardware->CanWorkAt(speed); }, speed);
}

double TavikModule::Stroke() {
    return implementation->Known("Stroke", [this] { return implementation->hardware->Stroke(); });
}

std::string TavikModule::SoftwareVersion() {
    return implementation->Known("SoftwareVersion",
                                 [this] { return implementation->hardware->Description().softwareVersion; });
}

std::string TavikModule::UnitsOfMeasure() {
    return implementation->Known("UnitsOfMeasure", [this] { return implementation->hardware->Unit(); });
}

ModuleBuffered* TavikModule::Buffered() {
    return implementation->Local("Buffered", [this] { return implementation->buffered.get(); });
}

ModuleDifference* TavikModule::Difference() {
    return implementation->Local("Difference", [this] { return implementation->difference.get(); });
}

int TavikModule::LastResultCode() {
    return implementation->Local("LastResultCode", [this] { return implementation->listed.last.code; });
}

int TavikModule::LastReadingInCounts() {
    return implementation->Local("LastReadingInCounts", [this] { return implementation->listed.last.counts; });
}

double TavikModule::LastReadingInUnits() {
    return implementation->Local("LastReadingInUnits", [this] { return implementation->listed.last.units; });
}

} // namespace TavikLibrary
