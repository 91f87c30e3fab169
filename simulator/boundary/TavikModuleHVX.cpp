#include "library/TavikModuleHVX.h"

#include "simulator/boundary/EnumTexts.h"
#include "simulator/boundary/ModuleImplementation.h"
#include "simulator/hardware/ReadModeHardware.h"

namespace TavikLibrary {

using TavikSimulator::ReadModeHardware;

namespace {

const TavikSimulator::EnumText<eHvxReadMode> ReadModes[] = {
    {eHvxReadMode::ReadContinuous, "Continuous"},
    {eHvxReadMode::ReadOnSwitch, "On switch"},
    {eHvxReadMode::ReadOnSample, "On sample"},
};

} // namespace

std::string eHvxReadMode_ToString(eHvxReadMode mode) {
    return TavikSimulator::TextOf(mode, ReadModes, "read mode");
}

TavikModuleHVX::TavikModuleHVX(Implementation* module) : TavikModule(module) {}

TavikModuleHVX::~TavikModuleHVX() = default;

eHvxReadMode TavikModuleHVX::ReadMode() {
    return implementation->Known("ReadMode", [this] { return implementation->As<ReadModeHardware>().ReadMode(); });
}

void TavikModuleHVX::setReadMode(eHvxReadMode mode) {
    implementation->OnBus(
        "setReadMode",
        [&] { implementation->As<ReadModeHardware>().SetReadMode(mode, implementation->bench.clock.Now()); }, mode);
}

void TavikModuleHVX::UpdateInfo() {
    implementation->OnBus("UpdateInfo", [this] {
        implementation->As<ReadModeHardware>().UpdateInformation(implementation->bench.clock.Now());
    });
}

void TavikModuleHVX::SampleReading() {
    implementation->OnBus("SampleReading",
                          [this] { implementation->As<ReadModeHardware>().Sample(implementation->bench.clock.Now()); });
}

bool TavikModuleHVX::NewReadingReady() {
    return implementation->OnBus("NewReadingReady", [this] {
        return implementation->As<ReadModeHardware>().TakeNewReadingReady(implementation->bench.clock.Now());
    });
}

} // namespace TavikLibrary
