#pragma once

#include "library/TavikModule.h"
#include "simulator/bench/Description.h"

#include <memory>
#include <string>
#include <vector>

namespace TavikSimulator {

class ModuleHardware;

/// One kind of module: what it is by default, how it behaves on the wire, and the class by which the
/// library hands it out.
struct ModuleKind {
    TavikLibrary::eModuleType type;
    const char* name;
    /// What a bench file need not say.
    ModuleDescription (*defaults)();
    std::shared_ptr<ModuleHardware> (*makeHardware)(const ModuleDescription& description);
    std::unique_ptr<TavikLibrary::TavikModule> (*makeModule)(TavikLibrary::TavikModule::Implementation*);
};

const std::vector<ModuleKind>& ModuleKinds();
/// The kind of a type. Throws TavikException for a type that is no module's.
const ModuleKind& KindOf(TavikLibrary::eModuleType type);

} // namespace TavikSimulator
