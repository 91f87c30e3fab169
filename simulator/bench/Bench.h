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

/// Everything that a TavikServer finds: networks, modules, time, and the gate before it all.
class Bench final : private Gate::Updater {
public:
    explicit Bench(const BenchDescription& description);
    ~Bench();
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    Clock clock;
    Gate gate;
    std::atomic<std::uint64_t> callsOnRemovedModules{0};

    /// To be called without the lock of the gate, as LibraryThread's functions.
    void WakeThread() { thread.Wake(); }
    void EndThreadIfUnused();

    // From here on guarded by the lock of the gate.

    /// All networks, in the order of the bench file.
    const std::vector<std::unique_ptr<SimulatedNetwork>>& Networks() const { return networks; }
    /// The network of a name. Throws TavikException when there is none.
    SimulatedNetwork& NetworkNamed(const std::string& name);
    /// Whether any network has a module of this identity, on the wire or not.
    bool HasModule(const std::string& identity);
    /// Seed of the noise of the module with this identity.
    std::uint64_t SeedOf(const std::string& identity) const;
    /// Lets what is due by now happen.
    void AdvanceToNow() override;

    /// A server begins or ends; with the last one all objects of the library end.
    void Attach() { ++servers; }
    void Detach();
    /// Starts the dynamic collections that are prepared. The callback is called from the library's own thread when
    /// one of them has ended. Throws TavikException, and starts none, when that cannot be.
    void StartDynamic(void (*collectionFinished)());
    void StopDynamic();

    /// Made by the boundary for the first server.
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
    /// Ends before everything else.
    LibraryThread thread;
};

} // namespace TavikSimulator
