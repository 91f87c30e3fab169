#pragma once

#include "simulator/acquisition/AcquiringNetwork.h"
#include "simulator/acquisition/DifferenceTally.h"

#include <map>
#include <memory>

namespace TavikSimulator {

/// State of a listed module in difference mode.
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

    /// State of a listed module. Shared with the library's object of the module, which outlasts its place in the list.
    std::shared_ptr<DifferenceModule> Of(const ModuleHardware& module);
    /// Enables or disables a module. Throws TavikException, and changes nothing, during a collection and for a module
    /// without difference mode.
    void SetEnabled(const ModuleHardware& module, bool enabled);
    /// Discards the state of a module that leaves the list.
    void Forget(const ModuleHardware& module) { modules.erase(&module); }
    /// Discards the states of all modules.
    void Reset() { modules.clear(); }

    /// How many modules of the list are enabled.
    int EnabledCount();
    /// Number of modules in the run, until Stop; 0 without a run.
    int TakingPart() const;
    /// Starts a run. Throws TavikException, and starts nothing, when a module does not answer or another collection is
    /// running.
    void Start();
    /// Ends the run and fetches the accumulated values. Does nothing without a run.
    void Stop();
    /// Discards the run because the network is disconnected.
    void Abandon();
    /// Takes the readings that are due until a bench time.
    void CollectUntil(Nanoseconds time);
    /// Fetches the values that a module has accumulated so far. Throws TavikException when it does not answer. Does
    /// nothing for a module outside the run.
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
