#pragma once

#include "library/TavikNetworks.h"
#include "simulator/bench/Bench.h"

#include <mutex>
#include <vector>

/// Library object of the networks of this computer.
class TavikLibrary::TavikNetworks::Implementation {
public:
    explicit Implementation(TavikSimulator::Bench& owner) : bench(owner) {}

    template <class Wait, class Body, class... Args>
    auto Call(const char* operation, Wait wait, Body body, const Args&... args) {
        return bench.gate.Call("networks", operation, wait, body, args...);
    }

    /// Networks found; called without the lock.
    std::vector<TavikSimulator::SimulatedNetwork*> Found() {
        const std::lock_guard lock(bench.gate.mutex);
        return found;
    }

    /// Library object of a network; the same one as long as there is a server.
    TavikNetwork* NetworkObject(TavikSimulator::SimulatedNetwork& network);

    TavikSimulator::Bench& bench;
    std::vector<TavikSimulator::SimulatedNetwork*> found; ///< in the order in which they were found
};
