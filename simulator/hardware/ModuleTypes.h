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
    /// Values of attributes that a bench file leaves out.
    ModuleDescription (*defaults)();
    std::shared_ptr<ModuleHardware> (*makeHardware)(const ModuleDescription& description);
};

const std::vector<ModuleTypeInfo>& ModuleTypes();
/// Throws TavikException for a type that no module has.
const ModuleTypeInfo& TypeInfoOf(TavikLibrary::eModuleType type);

} // namespace TavikSimulator
