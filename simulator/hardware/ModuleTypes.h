#pragma once

#include "simulator/hardware/ModuleDescription.h"

#include <memory>
#include <string>
#include <vector>

namespace TavikSimulator {

class ModuleHardware;

/// One type of module: its defaults and its behaviour on the bus.
struct ModuleTypeInfo {
    TavikLibrary::eModuleType type;
    const char* name;
    /// What a bench file need not say.
    ModuleDescription (*defaults)();
    std::shared_ptr<ModuleHardware> (*makeHardware)(const ModuleDescription& description);
};

const std::vector<ModuleTypeInfo>& ModuleTypes();
/// The kind of a type. Throws TavikException for a type that is no module's.
const ModuleTypeInfo& TypeInfoOf(TavikLibrary::eModuleType type);

} // namespace TavikSimulator
