#pragma once

#include "library/TavikNetworks.h"
#include "simulator/bench/Clock.h"
#include "simulator/bench/Description.h"
#include "simulator/bench/Gate.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace TavikSimulator {

class SimulatedNetwork;

/// Something on the bench that goes on by itself while time passes, such as a collection of readings.
class Ongoing {
public:
    /// Lets happen what is due up to a bench time in seconds. Whatever changes on the bench does so after this has
    /// been told of the moment of the change.
    virtual void ProgressTo(double seconds) = 0;

protected:
    ~Ongoing() = default;
};

/// Everything that a TavikServer finds: networks, modules, time, and the gate before it all.
class Bench final : private Gate::Settler {
public:
    explicit Bench(const BenchDescription& description);
    ~Bench();
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    Clock clock;
    Gate gate;
    std::atomic<std::uint64_t> callsOnRemovedModules{0};

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
    void Settle() override;
    /// From now on this is told of the time; until it is forgotten again. Not to be called from ProgressTo.
    void Follow(Ongoing& ongoing);
    void Forget(Ongoing& ongoing);

    /// A server begins or ends; with the last one all objects of the library end.
    void Attach();
    void Detach();
    TavikLibrary::TavikNetworks* NetworksObject() { return networksObject.get(); }

private:
    struct Event {
        double at;
        SimulatedNetwork* network;
        EventDescription description;
    };
    void Schedule(const Event& event);
    void Happen(const Event& event);
    void ProgressTo(double seconds);

    std::uint64_t seed;
    std::vector<std::unique_ptr<SimulatedNetwork>> networks;
    std::vector<Event> events; ///< the next one last
    std::vector<Ongoing*> followed;
    int servers = 0;
    std::unique_ptr<TavikLibrary::TavikNetworks> networksObject;
};

/// The bench of this process; makes one if there is none. Throws TavikException when that fails.
std::shared_ptr<Bench> CurrentBench();
/// Puts a fresh bench in the place of the current one.
void ReplaceCurrentBench(const BenchDescription& description);

} // namespace TavikSimulator
