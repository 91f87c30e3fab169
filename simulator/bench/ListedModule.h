#pragma once

#include "library/TavikModule.h"
#include "simulator/hardware/ModuleHardware.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace TavikSimulator {

/// A module in a network's list, with the library's state of it. Settings belong to the hardware, which outlasts it.
/// Guarded by the bench's lock.
struct ListedModule {
    explicit ListedModule(std::shared_ptr<ModuleHardware> module) : hardware(std::move(module)) {}

    /// Stores the reading of a bench time as the last one; for a module without a reading only its result code.
    void KeepReadingOf(Nanoseconds time);
    /// Throws TavikException when the module does not answer, and stores that as the last result code.
    void RequireAnswer(Nanoseconds time, const std::string& networkName);
    /// Destroys the library's object and state.
    void EndObject();

    const std::shared_ptr<ModuleHardware> hardware;
    std::string connector; ///< identity stored in its T-connector
    bool removed = false;
    /// List position of SetPosition, until ApplyRemap.
    std::optional<int> position;
    Reading last;
    /// Created by the boundary at the first call that returns it.
    std::unique_ptr<TavikLibrary::TavikModule> object;
};

} // namespace TavikSimulator
