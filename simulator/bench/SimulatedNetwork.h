#pragma once

#include "library/TavikNetwork.h"
#include "simulator/acquisition/Acquisition.h"
#include "simulator/bench/Bench.h"
#include "simulator/bench/BenchDescription.h"
#include "simulator/bench/Clock.h"
#include "simulator/bench/ModuleList.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace TavikSimulator {

/// Duration of one transaction: a question to a module and its answer.
Nanoseconds TransactionTime(TavikLibrary::eNetSpeed speed);
/// Duration of a read burst of so many modules: one command to all of them, and their answers one after another.
Nanoseconds ReadBurstTime(TavikLibrary::eNetSpeed speed, int modules);

/// A controller and its modules. Guarded by the bench's lock unless stated otherwise.
class SimulatedNetwork final : public AcquiringNetwork {
public:
    SimulatedNetwork(Bench& bench, const NetworkDescription& description);
    ~SimulatedNetwork();
    SimulatedNetwork(const SimulatedNetwork&) = delete;
    SimulatedNetwork& operator=(const SimulatedNetwork&) = delete;

    /// Executes a call, on one of the network's objects, that the library answers by itself.
    template <class Body, class... Args>
    auto Call(const std::string& object, const char* operation, Body body, const Args&... args) {
        return CallAfter(object, operation, NoWait{}, body, args...);
    }

    /// Executes a call that waits.
    template <class Wait, class Body, class... Args>
    auto CallAfter(const std::string& object, const char* operation, Wait wait, Body body, const Args&... args) {
        return bench.gate.Call(object, operation, wait, body, args...);
    }

    /// Executes a call that waits for some transactions; `count` is called under the lock and returns their number.
    template <class Count, class Body, class... Args>
    auto CallTaking(const std::string& object, const char* operation, Count count, Body body, const Args&... args) {
        const auto wait = [&] {
            std::unique_lock lock(bench.gate.mutex);
            const int transactions = count();
            lock.unlock();
            SpendTransactions(transactions);
        };
        return bench.gate.Call(object, operation, wait, body, args...);
    }

    /// Needs no lock.
    Nanoseconds Now() const override { return bench.clock.Now(); }

    /// Never changes; needs no lock.
    const std::string& Name() const override { return description.name; }
    const NetworkDescription& Description() const { return description; }
    std::string ControllerID() const { return controllerID; }
    std::string Text() const { return text; }

    bool IsConnected() const { return connected; }
    bool IsPresent() const { return present; }
    void RequireConnected() const override;
    /// Throws TavikException while an acquisition mode runs.
    void RequireNotCollecting() const override;
    /// Duration of Connect; needs no lock.
    Nanoseconds ConnectTime() const { return connected ? Nanoseconds::zero() : description.connectTime; }
    void Connect();
    void Disconnect();
    void SetPresent(bool present);

    /// Needs no lock.
    TavikLibrary::eNetSpeed Speed() const { return speed; }
    bool ControllerCanWorkAt(TavikLibrary::eNetSpeed speed) const;
    void SetSpeed(TavikLibrary::eNetSpeed speed);
    /// Contents of a network file for this network.
    StoredNetwork Stored();
    /// Restores the network from a network file. Throws TavikException with the file's name, and changes nothing, when
    /// the file is of another network or something in it is not available.
    void Restore(const StoredNetwork& stored, const std::string& file);

    /// Waits for so many transactions on the bus; called without the lock.
    void SpendTransactions(int count);
    /// Waits for a read burst of so many modules; called without the lock.
    void SpendReadBurst(int modules);

    /// The list, after modules whose announcements are due have been appended.
    ModuleList& Modules();
    int ReadBurstCapableCount();
    /// Reads the modules that take part in a read burst. Returns a result code; sets `count` on success only.
    int ReadBurst(int& count);

    /// Takes the readings of running collections that are due until a bench time.
    void CollectUntil(Nanoseconds time) { acquisition.CollectUntil(time); }

    // Interface for the acquisition modes.
    const NetworkCapabilities& Capabilities() const override { return description.capabilities; }
    std::vector<ModuleHardware*> Listed() override { return Modules().Listed(); }
    bool Notifying() override { return Modules().Notifying(); }
    void RequireChangeable() override { Modules().RequireChangeable(); }
    void RequireIndex(int index) override { Modules().RequireIndex(index); }
    void RequireAnswer(const ModuleHardware& module) override { Modules().RequireAnswer(module); }

    /// Destroys the library's objects of this network and its modules, and its state of them.
    void EndObjects();

    Acquisition acquisition{*this};
    bool known = false; ///< found by FindNetworks
    /// Created by the boundary at the first call that returns it.
    std::unique_ptr<TavikLibrary::TavikNetwork> object;

private:
    Bench& bench;
    const NetworkDescription description;
    std::string controllerID;
    std::string text;
    std::atomic<bool> connected{false};
    std::atomic<TavikLibrary::eNetSpeed> speed;
    bool present;
    int failedTriesLeft;
    Bus bus;
    ModuleList modules;
};

} // namespace TavikSimulator
