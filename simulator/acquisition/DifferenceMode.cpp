#include "simulator/acquisition/DifferenceMode.h"

#include "simulator/hardware/ErrorTexts.h"
#include "simulator/hardware/ModuleHardware.h"

#include <algorithm>

namespace TavikSimulator {

using TavikLibrary::eTavikErrors;

namespace {

/// Most readings of one module that one update computes. Beyond, each computed reading is weighted by the readings it
/// replaces.
constexpr std::int64_t MostAtOnce = 2000;

} // namespace

/// Modules of a run and the bench time until which they have accumulated readings.
class DifferenceMode::Collection {
public:
    struct Participant {
        const ModuleHardware* hardware;
        std::shared_ptr<DifferenceModule> module;
        DifferenceTally tally;
    };

    explicit Collection(Nanoseconds now) : collectedUntil(now) {}

    bool AllAnswer(Nanoseconds time) const {
        return std::all_of(participants.begin(), participants.end(),
                           [time](const Participant& participant) { return participant.hardware->Answers(time); });
    }

    void CollectUntil(Nanoseconds time) {
        if (time > collectedUntil) {
            for (Participant& participant : participants) {
                Accumulate(participant, time);
            }
            collectedUntil = time;
        }
    }

    std::vector<Participant> participants;

private:
    void Accumulate(Participant& participant, Nanoseconds until) const {
        const Nanoseconds period = participant.hardware->ReadingPeriod();
        const std::int64_t before = PeriodsUntil(collectedUntil, period);
        const std::int64_t due = PeriodsUntil(until, period) - before;
        const std::int64_t computed = std::min(due, MostAtOnce);
        std::int64_t done = 0;
        for (std::int64_t i = 1; i <= computed; ++i) {
            const std::int64_t upTo = due * i / computed;
            const Reading reading = participant.hardware->ReadAt((before + upTo) * period);
            participant.tally.Add(reading, upTo - done);
            done = upTo;
        }
    }

    Nanoseconds collectedUntil;
};

DifferenceMode::DifferenceMode(AcquiringNetwork& owner) : network(owner) {}

DifferenceMode::~DifferenceMode() = default;

std::shared_ptr<DifferenceModule> DifferenceMode::Of(const ModuleHardware& module) {
    std::shared_ptr<DifferenceModule>& part = modules[&module];
    if (!part) {
        part = std::make_shared<DifferenceModule>();
    }
    return part;
}

void DifferenceMode::SetEnabled(const ModuleHardware& module, bool enabled) {
    network.RequireConnected();
    network.RequireNotCollecting();
    if (!module.Description().capabilities.difference) {
        Reject(eTavikErrors::NotSupported, "Module " + module.Identity() + " cannot take part in difference mode.");
    }
    Of(module)->enabled = enabled;
}

int DifferenceMode::EnabledCount() {
    const auto listed = network.Listed();
    return static_cast<int>(std::count_if(listed.begin(), listed.end(),
                                          [this](const ModuleHardware* module) { return Of(*module)->enabled; }));
}

int DifferenceMode::TakingPart() const {
    return collection ? static_cast<int>(collection->participants.size()) : 0;
}

void DifferenceMode::RequireStartable() {
    const std::string name = "etwork \"" + network.Name() + "\"";
    if (network.Notifying()) {
        Reject(eTavikErrors::NotifyRunning, "A notify run is going on on n" + name + "; stop it first.");
    }
    network.RequireNotCollecting();
    if (collection) {
        Reject(eTavikErrors::StopAwaited, "The last run of n" + name + " has ended by itself; stop it first.");
    }
    if (EnabledCount() == 0) {
        Reject(eTavikErrors::NoModuleEnabled, "N" + name + " has no module that is enabled for difference mode.");
    }
}

void DifferenceMode::Start() {
    network.RequireConnected();
    RequireStartable();
    auto started = std::make_unique<Collection>(network.Now());
    for (const ModuleHardware* hardware : network.Listed()) {
        if (Of(*hardware)->enabled) {
            network.RequireAnswer(*hardware);
            started->participants.push_back({hardware, Of(*hardware), DifferenceTally()});
        }
    }
    for (const Collection::Participant& participant : started->participants) {
        participant.module->values = participant.tally.Values();
    }
    collection = std::move(started);
    state = State::Running;
}

void DifferenceMode::Stop() {
    if (!collection) {
        return;
    }
    const Nanoseconds now = network.Now();
    for (const Collection::Participant& participant : collection->participants) {
        if (participant.hardware->Answers(now)) {
            participant.module->values = participant.tally.Values();
        } else {
            participant.module->values.code = static_cast<int>(eTavikErrors::ModuleNotResponding);
        }
    }
    collection.reset();
    state = State::Finished;
}

void DifferenceMode::Abandon() {
    if (collection) {
        collection.reset();
        state = State::Idle;
    }
}

void DifferenceMode::CollectUntil(Nanoseconds time) {
    if (!Running()) {
        return;
    }
    if (collection->AllAnswer(time)) {
        collection->CollectUntil(time);
    } else {
        state = State::Ended;
    }
}

void DifferenceMode::Fetch(const ModuleHardware& module) {
    if (!collection) {
        return;
    }
    for (const Collection::Participant& participant : collection->participants) {
        if (participant.hardware == &module) {
            network.RequireAnswer(module);
            participant.module->values = participant.tally.Values();
        }
    }
}

} // namespace TavikSimulator
