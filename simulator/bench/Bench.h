#pragma once

#include "library/TavikNetworks.h"
#include "simulator/bench/BenchDescription.h"
#include "simulator/bench/Clock.h"
#include "simulator/bench/Gate.h"
#include "simulator/bench/LibraryThread.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace TavikSimulator {

class SimulatedNetwork;

/// The simulated bench: networks, modules, time, and the gate of all library calls.
class Bench final : private Gate::Updater {
public:
    explicit Bench(const BenchDescription& description);
    ~Bench();
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    Clock clock;
    Gate gate;
    std::atomic<std::uint64_t> callsOnRemovedModules{0};

    /// Called without the lock of the gate, as the functions of LibraryThread.
    void WakeThread() { thread.Wake(); }
    void EndThreadIfUnused();

    // Guarded by the lock of the gate from here on.

    /// All networks, in the order of the bench file.
    const std::vector<std::unique_ptr<SimulatedNetwork>>& Networks() const { return networks; }
    /// The network of a name. Throws TavikException when there is none.
    SimulatedNetwork& NetworkNamed(const std::string& name);
    /// Whether any network has a module of this identity, listed or not.
    bool HasModule(const std::string& identity);
    /// Seed of the noise of the module with this identity.
    std::uint64_t SeedOf(const std::string& identity) const;
    /// Executes the events and takes the readings that are due by now.
    void AdvanceToNow() override;

    /// Counts a server; the last Detach destroys all objects of the library.
    void Attach() { ++servers; }
    void Detach();
    /// Starts the dynamic collections that are prepared. The library's own thread calls the callback when one of them
    /// has ended. Throws TavikException, and starts none, when no network is prepared or one is collecting.
    void StartDynamic(void (*collectionFinished)());
    void StopDynamic();

    /// Created by the boundary for the first server.
    std::unique_ptr<TavikLibrary::TavikNetworks> object;

private:
    struct Event {
        Nanoseconds at;
        SimulatedNetwork* network;
        EventDescription description;
    };
    void Schedule(const Event& event);
    bool Collecting() const;
    void CollectUntil(Nanoseconds time);
    void Apply(const Event& event);
    LibraryThread::PendingWork CollectPendingWork();

    std::uint64_t seed;
    std::vector<std::unique_ptr<SimulatedNetwork>> networks;
    std::vector<Event> events; ///< the next one last
    int servers = 0;
    /// Last member: destroyed before the others.
    LibraryThread thread;
};

} // namespace TavikSimulator
