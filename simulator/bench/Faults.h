#pragma once

#include "simulator/bench/Fault.h"
#include "simulator/bench/JournalEntry.h"
#include "simulator/signals/Nanoseconds.h"

#include <atomic>
#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace TavikSimulator {

/// Whether a text matches a pattern in which "*" stands for any run of characters.
bool Matches(const std::string& pattern, const std::string& text);

/// Throws TavikException for a fault that can never take effect.
void RequirePossible(const Fault& fault);

/// Effect of the injected faults on one call.
struct FaultInjection {
    bool injected = false;
    Nanoseconds delay{};
    std::optional<int> result;
    std::optional<Fault> failure; ///< the fault by which the call is to throw
};

/// The faults of a bench. Safe from any thread.
class Faults {
public:
    /// Whether any fault is set; read before every call without a lock.
    bool Armed() const { return armed.load(std::memory_order_relaxed); }

    /// Returns the fault's number. Throws TavikException on a fault that can never take effect.
    int Add(const Fault& fault, Nanoseconds now);
    void Remove(int number);
    void Clear();
    void FailCall(std::uint64_t k, bool everyCallAfter, const Fault& fault);

    /// Matches a call that is about to begin against every fault, up to the first that throws.
    FaultInjection Ask(const JournalEntry& call, bool canReturnResult);

    std::uint64_t Triggered() const;
    std::uint64_t Triggered(int number) const;
    JournalEntry LastFaulted() const;

private:
    struct Active {
        int number = 0;
        Fault fault;
        Nanoseconds setAt{};
        std::uint64_t matched = 0;
        std::uint64_t drawn = 0;
    };
    struct Countdown {
        std::uint64_t left = 0;
        bool everyCallAfter = false;
        Fault fault;
    };
    static bool Triggers(Active& active, Nanoseconds now);
    bool CountdownEnds();
    void Rearm();

    mutable std::mutex mutex;
    std::atomic<bool> armed{false};
    int lastNumber = 0;
    std::vector<Active> active;
    std::optional<Countdown> countdown;
    std::uint64_t triggered = 0;
    std::map<int, std::uint64_t> triggeredBy;
    JournalEntry lastFaulted;
};

/// Throws the exception of the fault.
[[noreturn]] void ThrowFault(const Fault& fault);

} // namespace TavikSimulator
