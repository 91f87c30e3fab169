#include "simulator/acquisition/BufferedCollection.h"

#include "library/TavikException.h"
#include "simulator/modules/MasterSettings.h"
#include "simulator/modules/ModuleHardware.h"

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
        return {refusal.errorCode, 0, 0.0};
    }
    const Reading reading = hardware.ReadAt(seconds);
    return {reading.code, reading.counts, reading.units};
}

void Store(ModuleHardware& hardware, std::int64_t instant) {
    if (!hardware.buffered.Takes()) {
        return;
    }
    const double seconds = static_cast<double>(instant) / 1e9;
    if (hardware.Answers(seconds)) {
        hardware.buffered.Store(ReadingOf(hardware, seconds));
    } else {
        hardware.buffered.DropOut();
    }
}

} // namespace

BufferedCollection::BufferedCollection(const std::vector<ModuleHardware*>& modules, int master, std::int64_t start)
    : collected(start) {
    for (int index = 0; index < static_cast<int>(modules.size()); ++index) {
        ModuleHardware* hardware = modules[static_cast<std::size_t>(index)];
        BufferedModule& module = hardware->buffered;
        module.Begin();
        if (!module.Enabled()) {
            continue;
        }
        if (module.Mode() == eBufferedMode::Sync) {
            const std::int64_t period = module.Units() * TimingUnit;
            syncs.push_back({hardware, period, start + period});
        } else if (master < 0 || index < master) {
            samples.push_back(hardware);
        }
    }
    if (master >= 0) {
        ModuleHardware* hardware = modules[static_cast<std::size_t>(master)];
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
        while (sync.next <= until && sync.hardware->buffered.Takes()) {
            Store(*sync.hardware, sync.next);
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
        for (ModuleHardware* hardware : samples) {
            Store(*hardware, instant);
        }
    }
}

void BufferedCollection::Sample(std::int64_t instant) {
    for (ModuleHardware* hardware : samples) {
        Store(*hardware, instant);
    }
}

} // namespace TavikSimulator
