#include "library/TavikModuleRLK.h"

#include "simulator/boundary/ModuleImplementation.h"
#include "simulator/boundary/WirelessObjects.h"

#include <mutex>

namespace TavikLibrary {

using TavikSimulator::WirelessHardware;
using TavikSimulator::WirelessObjects;

TavikModuleRLK::TavikModuleRLK(Implementation* module) : TavikModule(module) {
    implementation->extras = std::make_unique<WirelessObjects>(*implementation);
}

TavikModuleRLK::~TavikModuleRLK() = default;

RLK_Devices* TavikModuleRLK::Devices() {
    return implementation->Local("Devices",
                                 [this] { return static_cast<WirelessObjects&>(*implementation->extras).Devices(); });
}

void TavikModuleRLK::Restart() {
    auto& wireless = implementation->As<WirelessHardware>();
    const auto now = [this] { return implementation->bench.clock.Now(); };
    const auto wait = [&] {
        {
            const std::lock_guard lock(implementation->bench.gate.mutex);
            wireless.GoDown(now());
        }
        implementation->bench.clock.Wait(wireless.RestartTime());
        const std::lock_guard lock(implementation->bench.gate.mutex);
        wireless.ComeUp();
    };
    implementation->Asking(implementation->name, "Restart", wait, [&] { wireless.Reconnect(now()); });
}

} // namespace TavikLibrary
