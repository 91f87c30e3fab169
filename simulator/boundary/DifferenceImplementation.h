#pragma once

#include "library/TavikDifference.h"
#include "simulator/bench/SimulatedNetwork.h"
#include "simulator/boundary/ModuleImplementation.h"

#include <memory>
#include <string>

/// Difference mode of a network.
class TavikLibrary::NetworkDifference::Implementation {
public:
    Implementation(TavikSimulator::Bench& owner, TavikSimulator::SimulatedNetwork& simulated)
        : bench(owner), network(simulated), name("difference " + simulated.Name()) {}

    TavikSimulator::DifferenceMode& Mode() const { return network.acquisition.difference; }
    /// Waits for the results of all modules of the run; called without the lock.
    void SpendFetching();

    TavikSimulator::Bench& bench;
    TavikSimulator::SimulatedNetwork& network;
    const std::string name; ///< in the journal
};

/// Difference mode of one module.
class TavikLibrary::ModuleDifference::Implementation {
public:
    explicit Implementation(TavikModule::Implementation& owner)
        : module(owner),
          part(owner.network.acquisition.difference.Of(*owner.hardware)),
          name("difference " + owner.hardware->Identity()) {}

    /// A call that the library answers by itself.
    template <class Body, class... Args>
    auto Local(const char* operation, Body body, const Args&... args) {
        return module.LocalOf(name, operation, body, args...);
    }

    /// One of the values fetched last.
    template <class Value>
    Value Fetched(const char* operation, Value TavikSimulator::DifferenceValues::*value) {
        return Local(operation, [&] { return part->values.*value; });
    }

    TavikModule::Implementation& module;
    const std::shared_ptr<TavikSimulator::DifferenceModule> part;
    const std::string name; ///< in the journal
};
