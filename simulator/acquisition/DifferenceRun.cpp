#include "simulator/acquisition/DifferenceRun.h"

#include "simulator/acquisition/AcquisitionState.h"
#include "simulator/bench/Bench.h"
#include "simulator/bench/ErrorTexts.h"
#include "simulator/bench/SimulatedNetwork.h"
#include "simulator/modules/ModuleHardware.h"
#include "simulator/modules/ModuleImplementation.h"

#include <algorithm>
#include <cmath>

namespace TavikSimulator {

using TavikLibrary::eTavikErrors;
using Module = TavikLibrary::TavikModule::Implementation;

namespace {

/// The most readings of one module that are worked out at once. When nobody has looked at the bench for longer than
/// these cover, each stands for as many as there are between it and the next.
constexpr std::int64_t MostAtOnce = 2000;

/// A module that takes part, and what it has accumulated.
struct Participant {
    Module* module;
    DifferenceTally tally;
};

/// Accumulates a module's own readings after one bench time, up to another.
void Accumulate(Participant& participant, double after, double until) {
    const ModuleHardware& hardware = *participant.module->hardware;
    const double period = hardware.ReadingPeriod();
    const auto before = static_cast<std::int64_t>(std::floor(after / period));
    const std::int64_t due = static_cast<std::int64_t>(std::floor(until / period)) - before;
    const std::int64_t workedOut = std::min(due, MostAtOnce);
    std::int64_t done = 0;
    for (std::int64_t i = 1; i <= workedOut; ++i) {
        const std::int64_t upTo = due * i / workedOut;
        const Reading reading = hardware.ReadAt(static_cast<double>(before + upTo) * period);
        participant.tally.Add(reading, upTo - done);
        done = upTo;
    }
}

} // namespace

/// The modules that take part in a run, and how far it has gone.
class DifferenceRun::Collection {
public:
    Collection(SimulatedNetwork& owner, double now) : network(owner), progressedTo(now) {}

    void Add(Module& module) { participants.push_back({&module, DifferenceTally()}); }

    std::vector<Participant>& Participants() { return participants; }

    Participant* Find(const Module& module) {
        const auto found = std::find_if(participants.begin(), participants.end(),
                                        [&](const Participant& participant) { return participant.module == &module; });
        return found == participants.end() ? nullptr : &*found;
    }

    void ProgressTo(double seconds) {
        if (network.acquisition.difference != AcquisitionState::DifferenceRunning) {
            return;
        }
        if (!AllAnswer(seconds)) {
            network.acquisition.difference = AcquisitionState::DifferenceEnded;
            return;
        }
        if (seconds > progressedTo) {
            for (Participant& participant : participants) {
                Accumulate(participant, progressedTo, seconds);
            }
            progressedTo = seconds;
        }
    }

private:
    bool AllAnswer(double seconds) const {
        return std::all_of(participants.begin(), participants.end(), [seconds](const Participant& participant) {
            return participant.module->hardware->Answers(seconds);
        });
    }

    SimulatedNetwork& network;
    std::vector<Participant> participants;
    double progressedTo; ///< seconds of bench time
};

DifferenceRun::DifferenceRun(Bench& ownerBench, SimulatedNetwork& ownerNetwork)
    : bench(ownerBench), network(ownerNetwork) {}

DifferenceRun::~DifferenceRun() = default;

int DifferenceRun::EnabledCount() const {
    ModuleList& modules = network.Modules();
    int enabled = 0;
    for (int i = 0; i < modules.Count(); ++i) {
        enabled += modules.ImplementationAt(i).differenceEnabled ? 1 : 0;
    }
    return enabled;
}

int DifferenceRun::TakingPart() const {
    return collection ? static_cast<int>(collection->Participants().size()) : 0;
}

void DifferenceRun::RequireStartable() const {
    const std::string name = "etwork \"" + network.Name() + "\"";
    if (network.Modules().Notifying()) {
        Refuse(eTavikErrors::NotifyRunning, "A notify run is going on on n" + name + "; stop it first.");
    }
    network.RequireNotCollecting();
    if (collection) {
        Refuse(eTavikErrors::StopAwaited, "The last run of n" + name + " has ended by itself; stop it first.");
    }
    if (EnabledCount() == 0) {
        Refuse(eTavikErrors::NoModuleEnabled, "N" + name + " has no module that is enabled for difference mode.");
    }
}

void DifferenceRun::Start() {
    network.RequireConnected();
    RequireStartable();
    const double now = bench.clock.Now();
    auto started = std::make_unique<Collection>(network, now);
    ModuleList& modules = network.Modules();
    for (int i = 0; i < modules.Count(); ++i) {
        Module& module = modules.ImplementationAt(i);
        if (module.differenceEnabled) {
            module.RequireAnswer();
            started->Add(module);
        }
    }
    for (const Participant& participant : started->Participants()) {
        participant.module->differenceValues = participant.tally.Values();
    }
    collection = std::move(started);
    network.acquisition.difference = AcquisitionState::DifferenceRunning;
}

void DifferenceRun::Stop() {
    if (!collection) {
        return;
    }
    const double now = bench.clock.Now();
    for (Participant& participant : collection->Participants()) {
        if (participant.module->hardware->Answers(now)) {
            participant.module->differenceValues = participant.tally.Values();
        } else {
            participant.module->differenceValues.code = static_cast<int>(eTavikErrors::ModuleNotResponding);
        }
    }
    collection.reset();
    network.acquisition.difference = AcquisitionState::DifferenceFinished;
}

void DifferenceRun::Abandon() {
    if (collection) {
        collection.reset();
        network.acquisition.difference = AcquisitionState::DifferenceIdle;
    }
}

void DifferenceRun::ProgressTo(double seconds) {
    if (collection) {
        collection->ProgressTo(seconds);
    }
}

void DifferenceRun::Fetch(Module& module) {
    const Participant* participant = collection ? collection->Find(module) : nullptr;
    if (participant != nullptr) {
        module.RequireAnswer();
        module.differenceValues = participant->tally.Values();
    }
}

} // namespace TavikSimulator
