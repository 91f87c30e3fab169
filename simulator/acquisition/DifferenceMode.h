#pragma once

#include "simulator/acquisition/AcquiringNetwork.h"
#include "simulator/acquisition/DifferenceTally.h"

#include <map>
#include <memory>

namespace TavikSimulator {

/// A listed module's part in difference mode.
struct DifferenceModule {
    bool enabled = false;
    DifferenceValues values; ///< as fetched last
};

/// Difference mode of one network. Each module that takes part accumulates its readings by itself, at a rate of its
/// own, from Start to Stop. The run ends by itself when one of them stops responding; Stop is needed then as well.
/// Guarded by the bench's lock.
class DifferenceMode {
public:
    enum class State { Idle = 0, Running = 2, Finished = 3, Ended = 5 };

    explicit DifferenceMode(AcquiringNetwork& network);
    ~DifferenceMode();
    DifferenceMode(const DifferenceMode&) = delete;
    DifferenceMode& operator=(const DifferenceMode&) = delete;

    State CurrentState() const { return state; }
    bool Running() const { return state == State::Running; }

    /// A listed module's part. Shared with the library's object of the module, which outlasts its place in the list.
    std::shared_ptr<DifferenceModule> Of(const ModuleHardware& module);
    /// Enables or disables a module. Throws TavikException, and changes nothing, when that cannot be.
    void SetEnabled(const ModuleHardware& module, bool enabled);
    /// A module leaves the list; it comes back disabled and without values.
    void Forget(const ModuleHardware& module) { modules.erase(&module); }
    /// Forgets all modules.
    void Reset() { modules.clear(); }

    /// How many modules of the list are enabled.
    int EnabledCount();
    /// How many modules take part in the run that is on, or is still to be stopped; 0 without one.
    int TakingPart() const;
    /// Throws TavikException, and starts nothing, when it cannot start.
    void Start();
    /// Ends the run, and fetches what its modules have accumulated. Does nothing when there is none.
    void Stop();
    /// The network is disconnected; values not fetched yet are lost.
    void Abandon();
    /// Takes the readings that are due until a bench time, in seconds.
    void CollectUntil(Nanoseconds time);
    /// Fetches what a module has accumulated so far. Throws TavikException when it does not answer. Does nothing for
    /// a module that takes no part.
    void Fetch(const ModuleHardware& module);

private:
    class Collection;

    void RequireStartable();

    AcquiringNetwork& network;
    State state = State::Idle;
    std::map<const ModuleHardware*, std::shared_ptr<DifferenceModule>> modules;
    std::unique_ptr<Collection> collection; ///< from Start to Stop
};

} // namespace TavikSimulator
