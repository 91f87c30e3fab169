#include "simulator/acquisition/BufferedCollection.h"

#include "library/TavikException.h"
#include "simulator/hardware/MasterSettings.h"
#include "simulator/hardware/ModuleHardware.h"

#include <algorithm>

namespace TavikSimulator {

using TavikLibrary::eBufferedMode;
using TavikLibrary::TavikReading;

namespace {

/// Longest stretch in one step: a trigger master keeps at least the last second of its travel.
constexpr std::chrono::milliseconds LongestStretch{400};

TavikReading ReadingOf(const ModuleHardware& hardware, Nanoseconds time) {
    try {
        hardware.RequireReadable();
    } catch (const TavikLibrary::TavikException& refusal) {
        return {refusal.errorCode, 0, 0.0};
    }
    const Reading reading = hardware.ReadAt(time);
    return {reading.code, reading.counts, reading.units};
}

void Store(const BufferedCollection::Participant& module, Nanoseconds instant) {
    if (!module.buffer->Takes()) {
        return;
    }
    if (module.hardware->Answers(instant)) {
        module.buffer->Store(ReadingOf(*module.hardware, instant));
    } else {
        module.buffer->StopResponding();
    }
}

} // namespace

BufferedCollection::BufferedCollection(const std::vector<Participant>& modules, int master, Nanoseconds start)
    : collected(start) {
    for (int index = 0; index < static_cast<int>(modules.size()); ++index) {
        const Participant& module = modules[static_cast<std::size_t>(index)];
        module.buffer->Begin();
        if (!module.buffer->Enabled()) {
            continue;
        }
        if (module.buffer->Mode() == eBufferedMode::Sync) {
            const Nanoseconds period = module.buffer->Units() * TimingUnit;
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

void BufferedCollection::CollectUntil(Nanoseconds instant) {
    while (collected < instant) {
        collected = triggers ? std::min<Nanoseconds>(instant, collected + LongestStretch) : instant;
        CollectStretch(collected);
    }
}

void BufferedCollection::CollectStretch(Nanoseconds until) {
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

// A trigger master that stops responding triggers no more in this run.
void BufferedCollection::FollowTriggers(Nanoseconds until) {
    if (!triggers->Master().Answers(until)) {
        triggers.reset();
        return;
    }
    for (const Nanoseconds instant : triggers->Until(until)) {
        for (const Participant& module : samples) {
            Store(module, instant);
        }
    }
}

void BufferedCollection::Sample(Nanoseconds instant) {
    for (const Participant& module : samples) {
        Store(module, instant);
    }
}

} // namespace TavikSimulator
