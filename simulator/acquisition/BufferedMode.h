#pragma once

#include "simulator/acquisition/AcquiringNetwork.h"
#include "simulator/acquisition/BufferedCollection.h"
#include "simulator/acquisition/BufferedModule.h"

#include <map>
#include <optional>
#include <string>

namespace TavikSimulator {

/// Buffered mode of one network: its trigger master, its run, and the settings and buffers of its modules, which
/// outlast the modules' places in the list. Operations throw TavikException, and change nothing, for what cannot be
/// done. Guarded by the bench's lock.
class BufferedMode {
public:
    enum class State { Idle = 0, Running = 1, Stopped = 2 };

    explicit BufferedMode(AcquiringNetwork& owner) : network(owner) {}

    State CurrentState() const { return state; }
    bool Running() const { return state == State::Running; }
    /// Throws TavikException while buffered mode runs.
    void RequireNotRunning() const;

    /// Settings and buffer of a module of the network.
    BufferedModule& Of(const ModuleHardware& module);
    /// How many modules of the list are enabled.
    int EnabledCount();
    /// List position of the module that triggers samples; -1 for the controller.
    int MasterIndex();
    void SetMaster(int index);

    void Start();
    /// Triggers one reading of each module in sample mode.
    void Sample();
    /// Does nothing when buffered mode does not run.
    void Stop();
    /// Takes the readings that are due until a bench time.
    void CollectUntil(Nanoseconds time);

private:
    AcquiringNetwork& network;
    State state = State::Idle;
    std::string master; ///< identity; empty for the controller
    std::optional<BufferedCollection> run;
    std::map<const ModuleHardware*, BufferedModule> modules;
};

} // namespace TavikSimulator
