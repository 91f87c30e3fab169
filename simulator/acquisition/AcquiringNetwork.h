#pragma once

#include "simulator/signals/Nanoseconds.h"

#include <string>
#include <vector>

namespace TavikSimulator {

class ModuleHardware;

/// Acquisition modes and trigger sources that a network's controller offers.
struct NetworkCapabilities {
    bool buffered = true;
    bool bufferedExternal = true;
    bool readBurst = true;
    bool dynamic = true;
    bool dynamic2 = true;
    bool dynamicExternal = true;
};

/// The network that acquisition modes collect from. Guarded by the bench's lock. Functions that begin with Require
/// throw TavikException, and change nothing.
class AcquiringNetwork {
public:
    virtual const std::string& Name() const = 0;
    virtual const NetworkCapabilities& Capabilities() const = 0;
    virtual Nanoseconds Now() const = 0;
    /// The modules in the list, in order.
    virtual std::vector<ModuleHardware*> Listed() = 0;
    /// Whether a notify run is going on.
    virtual bool Notifying() = 0;
    virtual void RequireConnected() const = 0;
    /// Throws while any acquisition mode runs.
    virtual void RequireNotCollecting() const = 0;
    /// Throws while the list of modules cannot be changed.
    virtual void RequireChangeable() = 0;
    /// Throws for a list position without a module.
    virtual void RequireIndex(int index) = 0;
    /// Throws when a listed module does not answer, and stores that as its last result code.
    virtual void RequireAnswer(const ModuleHardware& module) = 0;

protected:
    ~AcquiringNetwork() = default;
};

} // namespace TavikSimulator
