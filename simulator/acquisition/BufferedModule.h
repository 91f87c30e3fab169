#pragma once

#include "library/TavikBuffered.h"
#include "simulator/signals/Nanoseconds.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace TavikSimulator {

constexpr Nanoseconds TimingUnit{102400};

/// Settings of a module in buffered mode, and the readings in its buffer. The setters throw TavikException, and change
/// nothing, for a value that the module does not support.
class BufferedModule {
public:
    BufferedModule(std::string moduleIdentity, bool bufferedCapable, int bufferDepth);

    TavikLibrary::eBufferedMode Mode() const { return mode; }
    void SetMode(TavikLibrary::eBufferedMode mode);
    bool Enabled() const { return enabled; }
    void SetEnabled(bool enable);
    /// Requested interval in microseconds.
    int Interval() const { return interval; }
    void SetInterval(int microseconds);
    /// Achievable interval in timing units, and its difference from the requested interval in microseconds.
    int Units() const;
    int IntervalError() const;

    /// Empties the buffer for a new run.
    void Begin();
    /// Whether the buffer stores readings in this run.
    bool Takes() const { return taking; }
    /// Stores a reading. When the buffer is full, sets the code of the newest reading to BufferOverrun and ends
    /// storing.
    void Store(const TavikLibrary::TavikReading& reading);
    /// Appends an entry without a value because the module has stopped responding, and ends storing.
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
