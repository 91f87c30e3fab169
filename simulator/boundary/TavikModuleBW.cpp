#include "library/TavikModuleLaser.h"
#include "simulator/boundary/ModuleImplementation.h"
#include "simulator/hardware/LaserHardware.h"

namespace TavikLibrary {

using TavikSimulator::LaserHardware;

TavikModuleBW::TavikModuleBW(Implementation* module) : TavikModuleKX(module) {}

TavikModuleBW::~TavikModuleBW() = default;

bool TavikModuleBW::BeamOn() {
    return implementation->Known("BeamOn", [this] { return implementation->As<LaserHardware>().BeamOn(); });
}

void TavikModuleBW::setBeamOn(bool on) {
    implementation->OnBus(
        "setBeamOn", [&] { implementation->As<LaserHardware>().SetBeamOn(on); }, on);
}

} // namespace TavikLibrary
