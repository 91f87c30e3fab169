#pragma once

#include "library/TavikReading.h"

#include <cstddef>
#include <deque>

namespace TavikSimulator {

/// Readings of a dynamic collection, sync by sync, in a ring buffer: when it is full, the oldest sync is overwritten.
class DynamicReadings {
public:
    /// Capacity in readings over all modules; 16 bytes each.
    static constexpr int Most = 4000000;

    /// Empties the buffer for readings of this many modules (1 or more) per sync.
    void Begin(int modules);

    int Modules() const { return modules; }
    /// How many syncs are kept.
    int Syncs() const { return syncs; }
    /// Capacity in syncs.
    int Room() const;
    /// Whether a sync was overwritten.
    bool Overwritten() const { return overwritten; }

    /// Begins a sync. Its readings are appended then, one of each module in order.
    void BeginSync();
    void Append(const TavikLibrary::TavikReading& reading) { readings.push_back(reading); }

    /// Sync 0 is the oldest kept one.
    const TavikLibrary::TavikReading& At(int module, int sync) const;

private:
    int modules = 0;
    int syncs = 0;
    bool overwritten = false;
    std::deque<TavikLibrary::TavikReading> readings;
};

} // namespace TavikSimulator
