#include "simulator/acquisition/BufferedCollection.h"

#include "library/TavikException.h"
#include "simulator/hardware/MasterSettings.h"
#include "simulator/hardware/ModuleHardware.h"

#include <algorithm>

namespace TavikSimulator {

using TavikLibrary::eBufferedMode;
using TavikLibrary::TavikReading;

namespace {

/// For how long a module that triggers can look back, with room to spare.
constexpr std::int64_t LongestStretch = 400000000;

TavikReading ReadingOf(const ModuleHardware& hardware, double seconds) {
    try {
        hardware.RequireReadable();
    } catch (const TavikLibrary::TavikException& refusal) {
        return {refusal.ErrorCode(), 0, 0.0};
    }
    const Reading reading = hardware.ReadAt(seconds);
    return {reading.code, reading.counts, reading.units};
}

void Store(const BufferedCollection::Participant& module, std::int64_t instant) {
    if (!module.buffer->Takes()) {
        return;
    }
    const double seconds = static_cast<double>(instant) / 1e9;
    if (module.hardware->Answers(seconds)) {
        module.buffer->Store(ReadingOf(*module.hardware, seconds));
    } else {
        module.buffer->DropOut();
    }
}

} // namespace

BufferedCollection::BufferedCollection(const std::vector<Participant>& modules, int master, std::int64_t start)
    : collected(start) {
    for (int index = 0; index < static_cast<int>(modules.size()); ++index) {
        const Participant& module = modules[static_cast<std::size_t>(index)];
        module.buffer->Begin();
        if (!module.buffer->Enabled()) {
            continue;
        }
        if (module.buffer->Mode() == eBufferedMode::Sync) {
            const std::int64_t period = module.buffer->Units() * TimingUnit;
            syncs.push_back({module, period, start + period});
        } else if (master < 0 || index < master) {
            samples.push_back(module);
        }
    }
    if (master >= 0) {
        ModuleHardware* hardware = modules[static_cast<std::size_t>(master)].hardware;
        triggers.emplace(*hardware, hardware->Master()->TxSample(), start);
    }
}

void BufferedCollection::CollectUntil(std::int64_t instant) {
    while (collected < instant) {
        collected = triggers ? std::min(instant, collected + LongestStretch) : instant;
        CollectStretch(collected);
    }
}

void BufferedCollection::CollectStretch(std::int64_t until) {
    for (SyncModule& sync : syncs) {
        while (sync.next <= until && sync.module.buffer->Takes()) {
            Store(sync.module, sync.next);
            sync.next += sync.period;
        }
    }
    if (triggers) {
        FollowTriggers(until);
    }
}

// A module that triggers and drops out triggers no more in this run.
void BufferedCollection::FollowTriggers(std::int64_t until) {
    if (!triggers->Master().Answers(static_cast<double>(until) / 1e9)) {
        triggers.reset();
        return;
    }
    for (const std::int64_t instant : triggers->Until(until)) {
        for (const Participant& module : samples) {
            Store(module, instant);
        }
    }
}

void BufferedCollection::Sample(std::int64_t instant) {
    for (const Participant& module : samples) {
        Store(module, instant);
    }
}

} // namespace TavikSimulator
