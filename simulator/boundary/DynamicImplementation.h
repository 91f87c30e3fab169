#pragma once

#include "library/TavikDynamic.h"
#include "simulator/bench/SimulatedNetwork.h"

#include <string>

/// The readings of a network's dynamic collection.
class TavikLibrary::TavikDynamicData::Implementation {
public:
    explicit Implementation(TavikSimulator::SimulatedNetwork& owner)
        : network(owner), name("dynamic data " + owner.Name()) {}

    /// A call that the library answers by itself, connected or not.
    template <class Body, class... Args>
    auto Call(const char* operation, Body body, const Args&... args) {
        return network.Call(name, operation, body, args...);
    }
    const TavikSimulator::DynamicMode& Mode() const { return network.acquisition.dynamic; }

private:
    TavikSimulator::SimulatedNetwork& network;
    const std::string name; ///< in the journal
};

/// Dynamic mode of a network.
class TavikLibrary::TavikDynamic::Implementation {
public:
    explicit Implementation(TavikSimulator::SimulatedNetwork& owner)
        : network(owner), name("dynamic " + owner.Name()), data(new TavikDynamicData::Implementation(owner)) {}

    /// A query or a setting that the library answers by itself, connected or not.
    template <class Body, class... Args>
    auto Call(const char* operation, Body body, const Args&... args) {
        return network.Call(name, operation, body, args...);
    }

    /// A call that is sent to every collected module.
    template <class Body, class... Args>
    auto Telling(const char* operation, Body body, const Args&... args) {
        return network.CallTaking(
            name, operation, [this] { return Mode().Settings().NumberOfModules(); }, body, args...);
    }

    TavikSimulator::DynamicMode& Mode() { return network.acquisition.dynamic; }

    TavikSimulator::SimulatedNetwork& network;
    const std::string name; ///< in the journal
    TavikDynamicData data;
};
