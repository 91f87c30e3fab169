#pragma once

#include "library/TavikModule.h"
#include "simulator/hardware/ModuleHardware.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace TavikSimulator {

/// A module in a network's list, and what the library keeps of it there. Settings are kept by the hardware, which
/// outlasts this. Guarded by the bench's lock.
struct ListedModule {
    explicit ListedModule(std::shared_ptr<ModuleHardware> module) : hardware(std::move(module)) {}

    /// Takes the reading of a bench time, in seconds, as the last one. A module that gives none leaves its result code
    /// there.
    void KeepReadingOf(Nanoseconds time);
    /// Throws TavikException when the module does not answer, and keeps that as the last result code.
    void RequireAnswer(Nanoseconds time, const std::string& networkName);
    /// Destroys the library's object and what the library keeps.
    void EndObject();

    const std::shared_ptr<ModuleHardware> hardware;
    std::string connector; ///< the identity that its T-connector remembers
    bool removed = false;
    /// The list position that SetPosition asked for, until ApplyRemap.
    std::optional<int> position;
    Reading last;
    /// Made by the boundary for the first call that returns it.
    std::unique_ptr<TavikLibrary::TavikModule> object;
};

} // namespace TavikSimulator
