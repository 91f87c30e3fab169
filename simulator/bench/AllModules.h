#pragma once

#include "library/TavikEnums.h"
#include "simulator/hardware/ModuleDescription.h"

#include <memory>
#include <string>
#include <vector>

namespace TavikSimulator {

class Bench;
class ModuleHardware;
class SimulatedNetwork;

/// All modules that belong to one network: in its list or not, plugged in or not. Guarded by the bench's lock.
class AllModules {
public:
    AllModules(Bench& bench, const SimulatedNetwork& network, const std::vector<ModuleDescription>& descriptions);

    auto begin() const { return modules.begin(); }
    auto end() const { return modules.end(); }
    /// Returns null when there is no module of this identity.
    std::shared_ptr<ModuleHardware> Find(const std::string& identity) const;
    /// Throws TavikException when there is no module of this identity.
    ModuleHardware& At(const std::string& identity) const;
    /// Returns the module that is plugged into the T-connector of another one; null when there is none.
    std::shared_ptr<ModuleHardware> ReplacementOf(const std::string& identity) const;

    /// Plugs a module in or unplugs it, at a bench time.
    void SetPresent(const std::string& identity, bool present, Nanoseconds now);
    /// Plugs a new module into the T-connector of a listed one, which is unplugged. Unknown stands for the same type.
    /// Throws TavikException, and changes nothing, for an identity that is malformed or in use.
    void Replace(const std::string& oldIdentity, const std::string& newIdentity, TavikLibrary::eModuleType type);

private:
    Bench& bench;
    const SimulatedNetwork& network;
    std::vector<std::shared_ptr<ModuleHardware>> modules;
};

} // namespace TavikSimulator
