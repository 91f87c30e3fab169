#pragma once

#include "library/TavikBuffered.h"
#include "library/TavikDifference.h"
#include "library/TavikModule.h"
#include "simulator/bench/Bench.h"
#include "simulator/bench/ListedModule.h"
#include "simulator/bench/SimulatedNetwork.h"
#include "simulator/hardware/ModuleHardware.h"

#include <memory>
#include <optional>
#include <string>
#include <type_traits>

namespace TavikSimulator {

/// State of modules of some types only.
struct ModuleExtras {
    virtual ~ModuleExtras() = default;
};

} // namespace TavikSimulator

/// Library object of a listed module. Settings belong to the hardware, which outlasts it.
class TavikLibrary::TavikModule::Implementation {
public:
    Implementation(TavikSimulator::Bench& bench, TavikSimulator::SimulatedNetwork& network,
                   TavikSimulator::ListedModule& listed);
    ~Implementation();
    Implementation(const Implementation&) = delete;
    Implementation& operator=(const Implementation&) = delete;

    /// A call that the library answers by itself, connected or not.
    template <class Body, class... Args>
    auto Local(const char* operation, Body body, const Args&... args) {
        return LocalOf(name, operation, body, args...);
    }

    /// The same for one of the objects that belong to the module, under its own name in the journal.
    template <class Body, class... Args>
    auto LocalOf(const std::string& object, const char* operation, Body body, const Args&... args) {
        return Checked(
            object, operation, TavikSimulator::NoWait{}, [this] { RequireListed(); }, body, args...);
    }

    /// A call that the library answers from data that it has read at the connect.
    template <class Body, class... Args>
    auto Known(const char* operation, Body body, const Args&... args) {
        return Local(
            operation,
            [&] {
                network.RequireConnected();
                return body();
            },
            args...);
    }

    /// A call that asks the module over the bus.
    template <class Body, class... Args>
    auto OnBus(const char* operation, Body body, const Args&... args) {
        return OnBusOf(name, operation, body, args...);
    }

    template <class Body, class... Args>
    auto OnBusOf(const std::string& object, const char* operation, Body body, const Args&... args) {
        return Asking(
            object, operation, [this] { network.SpendTransactions(1); }, body, args...);
    }

    /// A call that asks the module and waits as given.
    template <class Wait, class Body, class... Args>
    auto Asking(const std::string& object, const char* operation, Wait wait, Body body, const Args&... args) {
        return Checked(
            object, operation, wait, [this] { RequireAnswer(); }, body, args...);
    }

    /// The hardware as its type.
    template <class Hardware>
    Hardware& As() {
        return static_cast<Hardware&>(*hardware);
    }

    /// Takes a reading and stores it as the last one; `code` replaces its result code. Throws TavikException when the
    /// module has no reading.
    const TavikSimulator::Reading& Read(std::optional<int> code);

    void RequireListed();
    void RequireAnswer();

    TavikSimulator::Bench& bench;
    TavikSimulator::SimulatedNetwork& network;
    TavikSimulator::ListedModule& listed;
    const std::shared_ptr<TavikSimulator::ModuleHardware> hardware;
    const std::string name; ///< in the journal

    std::unique_ptr<TavikModuleStatus> status;
    std::unique_ptr<ModuleBuffered> buffered;
    std::unique_ptr<ModuleDifference> difference;
    std::unique_ptr<TavikSimulator::ModuleExtras> extras;

private:
    template <class Wait, class Check, class Body, class... Args>
    auto Checked(const std::string& object, const char* operation, Wait wait, Check check, Body body,
                 const Args&... args) {
        if constexpr (std::is_invocable_v<Body, std::optional<int>>) {
            return bench.gate.Call(
                object, operation, wait,
                [&](std::optional<int> code) {
                    check();
                    return body(code);
                },
                args...);
        } else {
            return bench.gate.Call(
                object, operation, wait,
                [&] {
                    check();
                    return body();
                },
                args...);
        }
    }
};
