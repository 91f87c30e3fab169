#pragma once

#include "library/TavikNetwork.h"
#include "simulator/bench/Bench.h"
#include "simulator/bench/SimulatedNetwork.h"
#include "simulator/boundary/BufferedImplementation.h"
#include "simulator/boundary/DifferenceImplementation.h"
#include "simulator/boundary/DynamicImplementation.h"

#include <mutex>
#include <string>

/// Library object of a network.
class TavikLibrary::TavikNetwork::Implementation {
public:
    Implementation(TavikSimulator::Bench& owner, TavikSimulator::SimulatedNetwork& simulated)
        : bench(owner),
          network(simulated),
          name("network " + simulated.Name()),
          buffered(new NetworkBuffered::Implementation(simulated)),
          difference(new NetworkDifference::Implementation(owner, simulated)),
          dynamic(new TavikDynamic::Implementation(simulated)) {}

    /// A call that is answered connected or not.
    template <class Body, class... Args>
    auto Always(const char* operation, Body body, const Args&... args) {
        return bench.gate.Call(name, operation, TavikSimulator::NoWait{}, body, args...);
    }

    /// A call that requires a connected network.
    template <class Body, class... Args>
    auto Connected(const char* operation, Body body, const Args&... args) {
        return ConnectedAfter(operation, TavikSimulator::NoWait{}, body, args...);
    }

    /// A call that requires a connected network and waits.
    template <class Wait, class Body, class... Args>
    auto ConnectedAfter(const char* operation, Wait wait, Body body, const Args&... args) {
        return bench.gate.Call(
            name, operation, wait,
            [&] {
                network.RequireConnected();
                return body();
            },
            args...);
    }

    /// Waits for a transaction with every module of the list; called without the lock.
    void SpendTransactionPerModule() {
        int modules = 0;
        {
            const std::lock_guard lock(bench.gate.mutex);
            modules = network.Modules().Count();
        }
        network.SpendTransactions(modules);
    }

    /// Waits for a read burst; called without the lock.
    void SpendReadBurst() {
        int modules = 0;
        {
            const std::lock_guard lock(bench.gate.mutex);
            modules = network.ReadBurstCapableCount();
        }
        network.SpendReadBurst(modules);
    }

    /// Library object at a list position; the same one as long as the module stays in the list.
    TavikModule* ModuleObject(unsigned int index);

    TavikSimulator::Bench& bench;
    TavikSimulator::SimulatedNetwork& network;
    const std::string name; ///< in the journal
    NetworkBuffered buffered;
    NetworkDifference difference;
    TavikDynamic dynamic;
};
