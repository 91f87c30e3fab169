#pragma once

#include "library/TavikBuffered.h"
#include "library/TavikModuleQTA.h"
#include "tests/simulator/Bench.h"

#include <memory>
#include <string>
#include <vector>

/// A network with these modules, connected, its clock standing still.
class BufferedNetwork {
public:
    explicit BufferedNetwork(const std::string& modules, const std::string& attributes = std::string())
        : server(Prepared(modules, attributes)) {}

    TavikLibrary::NetworkBuffered* operator->() const { return server->Network()->Buffered(); }
    TavikLibrary::TavikNetwork* Network() const { return server->Network(); }
    TavikLibrary::TavikModule* Module(unsigned int index) const { return server->Module(index); }
    TavikLibrary::ModuleBuffered* At(unsigned int index) const { return server->Module(index)->Buffered(); }

    void Enable(unsigned int index, TavikLibrary::eBufferedMode mode, int interval = 4096) const {
        At(index)->setMode(mode);
        At(index)->setReadingInterval(interval);
        At(index)->setEnabled(true);
    }

    /// What is in a module's buffer.
    std::vector<TavikLibrary::TavikReading> Readings(unsigned int index) const {
        std::vector<TavikLibrary::TavikReading> readings;
        const int length = At(index)->BufferedDataLength();
        for (int i = 0; i < length; ++i) {
            readings.push_back(At(index)->GetBufferedItem(i));
        }
        return readings;
    }
    std::vector<int> Counts(unsigned int index) const {
        return Each(index, [](const TavikLibrary::TavikReading& reading) { return reading.counts; });
    }
    std::vector<int> Codes(unsigned int index) const {
        return Each(index, [](const TavikLibrary::TavikReading& reading) { return reading.resultCode; });
    }

private:
    static std::unique_ptr<ConnectedServer> Prepared(const std::string& modules, const std::string& attributes) {
        Use(OneNetwork(modules, attributes));
        return std::make_unique<ConnectedServer>();
    }
    template <class Value>
    std::vector<int> Each(unsigned int index, Value value) const {
        std::vector<int> values;
        for (const TavikLibrary::TavikReading& reading : Readings(index)) {
            values.push_back(value(reading));
        }
        return values;
    }

    std::unique_ptr<ConnectedServer> server;
};

/// An encoder interface that tells the bench time of each of its readings: it counts microseconds.
inline std::string ClockModule(const std::string& identity, const std::string& attributes = std::string()) {
    return "<module type=\"QTA\" identity=\"" + identity + "\" " + attributes +
           "><signal motion=\"ramp\" rate=\"250000\" period=\"0\"/></module>";
}

constexpr TavikLibrary::eBufferedMode SyncMode = TavikLibrary::eBufferedMode::Sync;
constexpr TavikLibrary::eBufferedMode SampleMode = TavikLibrary::eBufferedMode::Sample;
