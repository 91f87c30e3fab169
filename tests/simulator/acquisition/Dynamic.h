#pragma once

#include "library/TavikDynamic.h"
#include "library/TavikModuleDigitalIO.h"
#include "library/TavikModuleQTA.h"
#include "tests/simulator/Bench.h"
#include "tools/driver/WaitTimeout.h"

#include <atomic>
#include <cmath>
#include <functional>
#include <future>
#include <memory>
#include <thread>

/// What the library tells of the ends of collections.
class Ends {
public:
    static void Reset() {
        count = 0;
        inside = nullptr;
    }
    /// The callback that is handed to the library.
    static void Tell() {
        onThread = std::this_thread::get_id();
        if (inside) {
            inside();
        }
        ++count;
    }
    static int Count() { return count; }
    static bool OnThisThread() { return onThread == std::this_thread::get_id(); }
    /// Something that happens inside the callback; to be set while nothing runs.
    static inline std::function<void()> inside;

private:
    static inline std::atomic<int> count{0};
    static inline std::atomic<std::thread::id> onThread;
};

/// Keeps the library's thread inside the callback until it is released.
class InsideTheCallback {
public:
    InsideTheCallback() {
        Ends::inside = [this] {
            reached.set_value();
            release.get_future().wait();
        };
    }
    void WaitUntilReached() { reached.get_future().wait(); }
    void Release() { release.set_value(); }

private:
    std::promise<void> reached;
    std::promise<void> release;
};

inline int Code(TavikLibrary::eTavikErrors error) {
    return static_cast<int>(error);
}

/// A module whose counts are the bench time in microseconds.
inline std::string Stopwatch(const std::string& identity, const std::string& attributes = std::string()) {
    return "<module type=\"RN\" identity=\"" + identity +
           "\" stroke=\"1000\" offset=\"0\" counts-per-unit=\"1000000\" " + attributes +
           "><signal base=\"0\" motion=\"ramp\" rate=\"1\" period=\"1000\"/></module>";
}

/// The same, as many as wanted.
inline std::string Stopwatches(int count) {
    return Stopwatch("RN00000001", "count=\"" + std::to_string(count) + "\"");
}

/// A network with dynamic mode, on a bench whose clock is advanced by the test.
class DynamicBench {
public:
    explicit DynamicBench(const std::string& modules, const std::string& attributes = std::string())
        : server((Use(OneNetwork(modules, attributes)), std::make_unique<ConnectedServer>())) {
        Ends::Reset();
    }

    TavikLibrary::TavikDynamic* operator->() const { return server->Network()->Dynamic(); }
    TavikLibrary::TavikNetwork* Network() const { return server->Network(); }
    TavikLibrary::TavikServer& Server() const { return server->server; }
    TavikLibrary::TavikDynamicData* Data() const { return server->Network()->Dynamic()->DynamicData(); }
    TavikLibrary::eDynamicState State() const { return server->Network()->Dynamic()->DynamicState(); }
    template <class Module>
    Module* As(unsigned int index) const {
        return dynamic_cast<Module*>(server->Module(index));
    }

    void Prepare() const {
        server->Network()->Dynamic()->setEnabled(true);
        server->Network()->Dynamic()->Prepare();
    }
    void Start() const {
        Prepare();
        Server().StartAllDynamic(Ends::Tell);
    }
    bool IsOver() const { return State() == TavikLibrary::eDynamicState::ResultsAvailable; }
    /// When a sync was taken, in seconds, by a module that is a stopwatch.
    double Instant(int sync, int module = 0) const { return Data()->GetItem(module, sync).counts / 1e6; }

    void EndServer() { server.reset(); }

private:
    std::unique_ptr<ConnectedServer> server;
};
