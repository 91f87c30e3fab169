#pragma once

#include "library/TavikBuffered.h"
#include "simulator/bench/SimulatedNetwork.h"
#include "simulator/boundary/ModuleImplementation.h"

#include <string>

/// Buffered mode of a network.
class TavikLibrary::NetworkBuffered::Implementation {
public:
    explicit Implementation(TavikSimulator::SimulatedNetwork& owner)
        : network(owner), name("buffered " + owner.Name()) {}

    TavikSimulator::BufferedMode& Mode() const { return network.acquisition.buffered; }

    TavikSimulator::SimulatedNetwork& network;
    const std::string name; ///< in the journal
};

/// Buffered mode of one module.
class TavikLibrary::ModuleBuffered::Implementation {
public:
    explicit Implementation(TavikModule::Implementation& owner)
        : module(owner),
          settings(owner.network.acquisition.buffered.Of(*owner.hardware)),
          name("buffered " + owner.hardware->Identity()) {}

    /// A call that changes how the module samples; rejected while it takes part in a run.
    template <class Body, class... Args>
    void SetSampling(const char* operation, Body body, const Args&... args) {
        Set(
            operation, [this] { return settings.Enabled(); }, body, args...);
    }

    /// A call that changes whether the module takes part; rejected during a run.
    template <class Body, class... Args>
    void SetPart(const char* operation, Body body, const Args&... args) {
        Set(
            operation, [] { return true; }, body, args...);
    }

    TavikModule::Implementation& module;
    TavikSimulator::BufferedModule& settings;
    const std::string name; ///< in the journal

private:
    template <class Matters, class Body, class... Args>
    void Set(const char* operation, Matters matters, Body body, const Args&... args) {
        module.LocalOf(
            name, operation,
            [&] {
                module.network.RequireConnected();
                if (matters()) {
                    module.network.acquisition.buffered.RequireNotRunning();
                }
                body();
            },
            args...);
    }
};
