#pragma once

#include "library/TavikEnums.h"
#include "simulator/acquisition/AcquiringNetwork.h"
#include "simulator/bench/Fault.h"
#include "simulator/hardware/ModuleDescription.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

// Contents of a bench file as plain data.
namespace TavikSimulator {

enum class EventKind { ModuleLeaves, ModuleReturns, ModuleReplaced, ControllerLeaves, ControllerReturns };

/// An event that the bench executes at a bench time.
struct EventDescription {
    EventKind kind = EventKind::ModuleLeaves;
    Nanoseconds at{};
    Nanoseconds every{}; ///< between repetitions; 0 for none
    std::string module;
    std::string replacement; ///< identity of the module that takes its place
    TavikLibrary::eModuleType replacementType = TavikLibrary::eModuleType::Unknown;
};

struct NetworkDescription {
    std::string name;
    std::string controller;
    std::string description;
    std::optional<std::string> connectedController;
    std::optional<std::string> connectedDescription;
    TavikLibrary::eNetworkType type = TavikLibrary::eNetworkType::Usb;
    std::vector<TavikLibrary::eNetSpeed> speeds;
    TavikLibrary::eNetSpeed speed = TavikLibrary::eNetSpeed::High;
    NetworkCapabilities capabilities;
    bool connects = true;
    int failedTries = 0; ///< tries that fail before one succeeds
    Nanoseconds connectTime = std::chrono::milliseconds(200);
    bool present = true;
    std::vector<ModuleDescription> modules;
    std::vector<EventDescription> events;
};

struct BenchDescription {
    std::uint64_t seed = 1;
    bool manualClock = false;
    double clockSpeed = 1.0;
    bool latency = true;
    std::vector<NetworkDescription> networks;
    std::vector<Fault> faults;
};

/// Largest number of modules in a network.
constexpr int MostModules = 150;

} // namespace TavikSimulator
