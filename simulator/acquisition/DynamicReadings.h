#pragma once

#include "library/TavikReading.h"

#include <cstddef>
#include <deque>

namespace TavikSimulator {

/// The readings of a dynamic collection, sync by sync, in bounded memory: when it is full, the oldest sync makes
/// room for the next.
class DynamicReadings {
public:
    /// The most readings kept, over all modules; 16 bytes each.
    static constexpr int Most = 4000000;

    /// Begins anew, with room for readings of this many modules (1 or more) per sync.
    void Begin(int modules);

    int Modules() const { return modules; }
    /// How many syncs are kept.
    int Syncs() const { return syncs; }
    /// How many syncs can be kept.
    int Room() const;
    /// Whether a sync had to make room.
    bool Overwritten() const { return overwritten; }

    /// Makes room for a sync. Its readings are appended then, one of each module in order.
    void BeginSync();
    void Append(const TavikLibrary::TavikReading& reading) { readings.push_back(reading); }

    /// Sync 0 is the oldest one that is kept.
    const TavikLibrary::TavikReading& At(int module, int sync) const;

private:
    int modules = 0;
    int syncs = 0;
    bool overwritten = false;
    std::deque<TavikLibrary::TavikReading> readings;
};

} // namespace TavikSimulator
