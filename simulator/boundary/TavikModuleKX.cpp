#include "library/TavikModuleKX.h"

#include "simulator/boundary/EnumTexts.h"
#include "simulator/boundary/ModuleImplementation.h"
#include "simulator/hardware/ProbeHardware.h"

namespace TavikLibrary {

using TavikSimulator::ProbeHardware;

namespace {

const TavikSimulator::EnumText<eResolution> Resolutions[] = {
    {eResolution::Bits14, "14 bits"}, {eResolution::Bits15, "15 bits"}, {eResolution::Bits16, "16 bits"},
    {eResolution::Bits17, "17 bits"}, {eResolution::Bits18, "18 bits"},
};

const TavikSimulator::EnumText<eAveraging> Averagings[] = {
    {eAveraging::Off, "Off"},
    {eAveraging::Samples2, "2 samples"},
    {eAveraging::Samples4, "4 samples"},
    {eAveraging::Samples8, "8 samples"},
    {eAveraging::Samples16, "16 samples"},
    {eAveraging::Samples32, "32 samples"},
    {eAveraging::Samples64, "64 samples"},
    {eAveraging::Samples128, "128 samples"},
    {eAveraging::Samples256, "256 samples"},
};

} // namespace

std::string eResolution_ToString(eResolution resolution) {
    return TavikSimulator::TextOf(resolution, Resolutions, "resolution");
}

eResolution eResolution_FromString(std::string text) {
    return TavikSimulator::ValueOf(text, Resolutions, "resolution");
}

std::string eAveraging_ToString(eAveraging averaging) {
    return TavikSimulator::TextOf(averaging, Averagings, "averaging");
}

eAveraging eAveraging_FromString(std::string text) {
    return TavikSimulator::ValueOf(text, Averagings, "averaging");
}

TavikModuleKX::TavikModuleKX(Implementation* module) : TavikModule(module) {}

TavikModuleKX::~TavikModuleKX() = default;

std::vector<eAveraging> TavikModuleKX::AvailableAveragings() {
    return implementation->Known("AvailableAveragings",
                                 [this] { return implementation->hardware->Description().averagings; });
}

std::vector<eResolution> TavikModuleKX::AvailableResolutions() {
    return implementation->Known("AvailableResolutions",
                                 [this] { return implementation->hardware->Description().resolutions; });
}

eResolution TavikModuleKX::Resolution() {
    return implementation->Known("Resolution", [this] { return implementation->As<ProbeHardware>().Resolution(); });
}

void TavikModuleKX::setResolution(eResolution resolution) {
    implementation->OnBus(
        "setResolution",
        [&] { implementation->As<ProbeHardware>().SetResolution(resolution, implementation->bench.clock.Now()); },
        resolution);
}

eAveraging TavikModuleKX::Averaging() {
    return implementation->Known("Averaging", [this] { return implementation->As<ProbeHardware>().Averaging(); });
}

void TavikModuleKX::setAveraging(eAveraging averaging) {
    implementation->OnBus(
        "setAveraging",
        [&] { implementation->As<ProbeHardware>().SetAveraging(averaging, implementation->bench.clock.Now()); },
        averaging);
}

} // namespace TavikLibrary
