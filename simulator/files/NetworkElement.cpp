#include "simulator/files/NetworkElement.h"

#include "simulator/files/ModuleElement.h"

#include <algorithm>

namespace TavikSimulator {

using TavikLibrary::eModuleType;
using TavikLibrary::eNetSpeed;
using TavikLibrary::eNetworkType;

namespace {

constexpr double LongestConnect = 60.0; // seconds
constexpr double LatestEvent = 1e9;     // seconds
constexpr int MostTries = 1000;

void ReadCapabilities(BenchElement& element, NetworkDescription& network) {
    if (!element.Has("capabilities")) {
        return;
    }
    using Member = bool NetworkCapabilities::*;
    static const std::vector<std::pair<std::string, Member>> words = {
        {"buffered", &NetworkCapabilities::buffered},   {"buffered-external", &NetworkCapabilities::bufferedExternal},
        {"readburst", &NetworkCapabilities::readBurst}, {"dynamic", &NetworkCapabilities::dynamic},
        {"dynamic2", &NetworkCapabilities::dynamic2},   {"dynamic-external", &NetworkCapabilities::dynamicExternal},
    };
    network.capabilities = {false, false, false, false, false, false};
    for (const std::string& word : element.Words("capabilities")) {
        network.capabilities.*element.Meaning("capabilities", word, words) = true;
    }
}

void ReadConnecting(BenchElement& element, NetworkDescription& network) {
    network.present = element.Flag("present", true);
    network.connects = element.Flag("connects", true);
    network.failedTries = static_cast<int>(element.Whole("failed-tries", 0, 0, MostTries));
    network.connectTime = element.Time("connect-time", network.connectTime, 0.0, LongestConnect);
    network.connectedController = element.Text("connected-controller");
    network.connectedDescription = element.Text("connected-description");
}

void ReadSpeed(BenchElement& element, NetworkDescription& network) {
    network.speeds =
        ReadSpeeds(element, "speeds", {eNetSpeed::Low, eNetSpeed::Medium, eNetSpeed::High, eNetSpeed::UltraHigh});
    const auto offered = [&](eNetSpeed speed) {
        return std::find(network.speeds.begin(), network.speeds.end(), speed) != network.speeds.end();
    };
    network.speed =
        element.OneOf("speed", offered(eNetSpeed::High) ? eNetSpeed::High : network.speeds.front(), SpeedWords());
    if (!offered(network.speed)) {
        element.Fail("The network's speed is not among its speeds.");
    }
}

void RequireOwnIdentity(BenchElement& element, const std::string& identity, std::set<std::string>& identities) {
    if (!identities.insert(identity).second) {
        element.Fail("There are two modules with the identity " + identity + ".");
    }
}

void ReadAllModules(BenchElement& element, NetworkDescription& network, std::uint64_t seed,
                    std::set<std::string>& identities) {
    for (BenchElement& child : element.Children("module")) {
        for (const ModuleDescription& module : ReadModules(child, seed)) {
            RequireOwnIdentity(child, module.identity, identities);
            const auto& speeds = module.speeds;
            if (module.plugState == PlugState::Listed &&
                std::find(speeds.begin(), speeds.end(), network.speed) == speeds.end()) {
                child.Fail("Module " + module.identity + " cannot work at the speed of its network.");
            }
            network.modules.push_back(module);
        }
    }
    const auto listed = std::count_if(network.modules.begin(), network.modules.end(),
                                      [](const auto& module) { return module.plugState == PlugState::Listed; });
    if (listed > MostModules) {
        element.Fail("A network lists " + std::to_string(MostModules) + " modules at most.");
    }
}

void RequireModule(BenchElement& element, const NetworkDescription& network, const EventDescription& event) {
    const auto& modules = network.modules;
    if (std::none_of(modules.begin(), modules.end(),
                     [&](const auto& module) { return module.identity == event.module; })) {
        element.Fail("The network has no module " + event.module + ".");
    }
}

EventDescription ReadEvent(BenchElement& element, const NetworkDescription& network,
                           std::set<std::string>& identities) {
    EventDescription event;
    element.Required("what");
    event.kind = element.OneOf<EventKind>("what", event.kind,
                                          {{"module-leaves", EventKind::ModuleLeaves},
                                           {"module-returns", EventKind::ModuleReturns},
                                           {"module-replaced", EventKind::ModuleReplaced},
                                           {"controller-leaves", EventKind::ControllerLeaves},
                                           {"controller-returns", EventKind::ControllerReturns}});
    event.at = element.Time("at", Nanoseconds::zero(), 0.0, LatestEvent);
    if (event.kind == EventKind::ModuleReplaced) {
        event.replacement = ReadIdentity(element, "by");
        event.replacementType = element.OneOf<eModuleType>("type", eModuleType::Unknown, TypeWords());
        RequireOwnIdentity(element, event.replacement, identities);
    } else {
        event.every = element.Time("every", Nanoseconds::zero(), 0.0, LatestEvent);
        if (event.every > Nanoseconds::zero() && event.every < std::chrono::seconds(1)) {
            element.Fail("An event repeats every second at most.");
        }
    }
    if (event.kind != EventKind::ControllerLeaves && event.kind != EventKind::ControllerReturns) {
        event.module = ReadIdentity(element, "module");
        RequireModule(element, network, event);
    }
    element.Finish();
    return event;
}

} // namespace

NetworkDescription ReadNetwork(BenchElement& element, std::uint64_t seed, std::set<std::string>& identities) {
    NetworkDescription network;
    network.name = element.Required("name");
    network.controller = element.Text("controller", std::string());
    network.description = element.Text("description", "Simulated network");
    network.type = element.OneOf<eNetworkType>(
        "type", eNetworkType::Usb,
        {{"usb", eNetworkType::Usb}, {"ethernet", eNetworkType::Ethernet}, {"serial", eNetworkType::Serial}});
    ReadCapabilities(element, network);
    ReadConnecting(element, network);
    ReadSpeed(element, network);
    ReadAllModules(element, network, seed, identities);
    for (BenchElement& child : element.Children("event")) {
        network.events.push_back(ReadEvent(child, network, identities));
    }
    element.Finish();
    return network;
}

} // namespace TavikSimulator
