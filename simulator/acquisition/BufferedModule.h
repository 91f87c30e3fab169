#pragma once

#include "library/TavikBuffered.h"
#include "simulator/signals/Nanoseconds.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace TavikSimulator {

constexpr Nanoseconds TimingUnit{102400};

/// What a module is set to in buffered mode, and the readings in its buffer. The setters throw TavikException,
/// and change nothing, for a value that the module cannot be set to.
class BufferedModule {
public:
    BufferedModule(std::string moduleIdentity, bool bufferedCapable, int bufferDepth);

    TavikLibrary::eBufferedMode Mode() const { return mode; }
    void SetMode(TavikLibrary::eBufferedMode mode);
    bool Enabled() const { return enabled; }
    void SetEnabled(bool enable);
    /// As it was asked for, in microseconds.
    int Interval() const { return interval; }
    void SetInterval(int microseconds);
    /// The achievable interval: in timing units, and less the one asked for in microseconds.
    int Units() const;
    int IntervalError() const;

    /// Empties the buffer for another run.
    void Begin();
    /// Whether the buffer takes readings in this run.
    bool Takes() const { return taking; }
    /// Stores a reading; when there is no room for it, the newest one tells of the overrun and the buffer takes no
    /// more.
    void Store(const TavikLibrary::TavikReading& reading);
    /// The module is not there any more: a last entry without a value tells so.
    void StopResponding();
    int Length() const { return static_cast<int>(readings.size()); }
    /// Throws TavikException for an index without a reading.
    const TavikLibrary::TavikReading& At(int index) const;

private:
    bool IsFull() const { return readings.size() == depth; }

    const std::string identity;
    const bool capable;
    const std::size_t depth;
    TavikLibrary::eBufferedMode mode = TavikLibrary::eBufferedMode::None;
    bool enabled = false;
    int interval;
    bool taking = false;
    std::vector<TavikLibrary::TavikReading> readings;
};

} // namespace TavikSimulator
