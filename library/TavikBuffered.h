#pragma once

#include "library/TavikReading.h"

#include <string>

namespace TavikLibrary {

/// When a module stores a reading in its buffer.
enum class eBufferedMode : int {
    None = 0,
    Sync = 1,   ///< at a fixed interval
    Sample = 2, ///< each time the network samples
};

std::string eBufferedMode_ToString(eBufferedMode mode);

/// Buffered mode of one module.
class ModuleBuffered {
public:
    class Implementation;
    explicit ModuleBuffered(Implementation* implementation);
    ~ModuleBuffered();
    ModuleBuffered(const ModuleBuffered&) = delete;
    ModuleBuffered& operator=(const ModuleBuffered&) = delete;

    eBufferedMode Mode();
    void setMode(eBufferedMode mode);
    bool Enabled();
    void setEnabled(bool enabled);
    /// In microseconds.
    int ReadingInterval();
    void setReadingInterval(int microseconds);
    /// The achievable interval less the one asked for, in microseconds.
    int ReadingIntervalErrorUs();
    /// The interval in timing units of 102.4 us.
    int TTUs();
    int BufferedDataLength();
    /// The reading at an index, 0 to BufferedDataLength() - 1. Throws TavikException beyond.
    TavikReading GetBufferedItem(int index);

private:
    Implementation* implementation;
};

/// Buffered mode of a whole network.
class NetworkBuffered {
public:
    class Implementation;
    explicit NetworkBuffered(Implementation* implementation);
    ~NetworkBuffered();
    NetworkBuffered(const NetworkBuffered&) = delete;
    NetworkBuffered& operator=(const NetworkBuffered&) = delete;

    int EnabledCount();
    /// 0 idle, 1 running, 2 stopped with data.
    int Status();
    /// List position of the module that triggers samples; -1 for the controller.
    int MasterIndex();
    void setMasterIndex(int index);
    void Start();
    void Sample();
    void Stop();

private:
    Implementation* implementation;
};

} // namespace TavikLibrary
