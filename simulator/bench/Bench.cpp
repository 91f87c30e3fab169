#include "simulator/bench/Bench.h"

#include "simulator/bench/SimulatedNetwork.h"
#include "simulator/hardware/ErrorTexts.h"
#include "simulator/hardware/ModuleHardware.h"
#include "simulator/signals/Noise.h"

#include <algorithm>

namespace TavikSimulator {

using TavikLibrary::eDynamicState;
using TavikLibrary::eTavikErrors;

Bench::Bench(const BenchDescription& description)
    : clock(description.clockSpeed, description.manualClock),
      gate(clock, *this),
      seed(description.seed),
      thread(gate.mutex, [this] { return CollectPendingWork(); }) {
    gate.SetLatency(description.latency);
    for (const NetworkDescription& network : description.networks) {
        networks.push_back(std::make_unique<SimulatedNetwork>(*this, network));
        for (const EventDescription& event : network.events) {
            Schedule({event.at, networks.back().get(), event});
        }
    }
    for (const Fault& fault : description.faults) {
        gate.faults.Add(fault, Nanoseconds::zero());
    }
}

Bench::~Bench() = default;

SimulatedNetwork& Bench::NetworkNamed(const std::string& name) {
    for (const auto& network : networks) {
        if (network->Name() == name) {
            return *network;
        }
    }
    Reject(eTavikErrors::InvalidArgument, "The bench has no network \"" + name + "\".");
}

bool Bench::HasModule(const std::string& identity) {
    return std::any_of(networks.begin(), networks.end(),
                       [&](const auto& network) { return network->Modules().All().Find(identity) != nullptr; });
}

std::uint64_t Bench::SeedOf(const std::string& identity) const {
    return SeedFor(seed, identity);
}

void Bench::Schedule(const Event& event) {
    // Of two events at the same time, the one that was scheduled first comes first.
    const auto place = std::lower_bound(events.begin(), events.end(), event,
                                        [](const Event& a, const Event& b) { return a.at > b.at; });
    events.insert(place, event);
}

void Bench::AdvanceToNow() {
    if (events.empty() && !Collecting()) {
        return;
    }
    const Nanoseconds now = clock.Now();
    while (!events.empty() && events.back().at <= now) {
        Event event = events.back();
        events.pop_back();
        CollectUntil(event.at);
        Apply(event);
        if (event.description.every > Nanoseconds::zero()) {
            event.at += event.description.every;
            Schedule(event);
        }
    }
    CollectUntil(now);
}

bool Bench::Collecting() const {
    return std::any_of(networks.begin(), networks.end(),
                       [](const auto& network) { return network->acquisition.Running(); });
}

void Bench::CollectUntil(Nanoseconds time) {
    for (const auto& network : networks) {
        network->CollectUntil(time);
    }
}

void Bench::Apply(const Event& event) {
    const EventDescription& what = event.description;
    switch (what.kind) {
    case EventKind::ModuleLeaves:
        event.network->Modules().All().SetPresent(what.module, false, event.at);
        break;
    case EventKind::ModuleReturns:
        event.network->Modules().All().SetPresent(what.module, true, event.at);
        break;
    case EventKind::ModuleReplaced:
        event.network->Modules().All().Replace(what.module, what.replacement, what.replacementType);
        break;
    case EventKind::ControllerLeaves:
        event.network->SetPresent(false);
        break;
    case EventKind::ControllerReturns:
        event.network->SetPresent(true);
        break;
    }
}

void Bench::Detach() {
    if (--servers > 0) {
        return;
    }
    for (const auto& network : networks) {
        network->Disconnect();
        network->known = false;
        network->EndObjects();
    }
    object.reset();
}

void Bench::StartDynamic(void (*collectionFinished)()) {
    std::vector<SimulatedNetwork*> prepared;
    for (const auto& network : networks) {
        if (network->acquisition.dynamic.State() == eDynamicState::Prepared) {
            network->RequireNotCollecting();
            prepared.push_back(network.get());
        }
    }
    if (prepared.empty()) {
        Reject(eTavikErrors::DynamicNotReady, "No network is prepared for a dynamic collection.");
    }
    for (SimulatedNetwork* network : prepared) {
        network->acquisition.dynamic.Start(collectionFinished);
    }
}

void Bench::StopDynamic() {
    for (const auto& network : networks) {
        network->acquisition.dynamic.Stop();
    }
}

void Bench::EndThreadIfUnused() {
    thread.EndUnless([this] {
        const std::lock_guard lock(gate.mutex);
        return servers > 0;
    });
}

LibraryThread::PendingWork Bench::CollectPendingWork() {
    AdvanceToNow();
    LibraryThread::PendingWork work;
    for (const auto& network : networks) {
        if (const auto call = network->acquisition.dynamic.Announce()) {
            work.calls.push_back(call);
        }
    }
    work.watching = std::any_of(networks.begin(), networks.end(), [](const auto& network) {
        return network->acquisition.dynamic.State() == eDynamicState::Running;
    });
    return work;
}

} // namespace TavikSimulator
