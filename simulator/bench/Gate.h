#pragma once

#include "library/TavikException.h"
#include "simulator/bench/CallJournal.h"
#include "simulator/bench/Clock.h"
#include "simulator/bench/Faults.h"
#include "simulator/bench/JournalText.h"

#include <atomic>
#include <cstdint>
#include <exception>
#include <mutex>
#include <optional>
#include <string>
#include <type_traits>

namespace TavikSimulator {

/// Waits for nothing: a call without latency.
struct NoWait {};

/// The gate of every library call: counts and journals it, injects a matching fault, waits for its latency, and
/// executes it under the bench's lock. The library's implementation never calls library operations, so a call passes
/// the gate once.
class Gate {
public:
    /// Advances the bench to now before a call; called under the lock.
    class Updater {
    public:
        virtual void AdvanceToNow() = 0;

    protected:
        ~Updater() = default;
    };

    Gate(Clock& clock, Updater& updater) : clock(clock), updater(updater) {}

    /// Executes a call. The body returns its result. A body with a parameter of type std::optional<int> receives the
    /// result code of a fault; the result of another body that returns a whole number or an enumeration is replaced by
    /// that code. The wait is NoWait or a callable that waits for the latency.
    template <class Wait, class Body, class... Args>
    auto Call(const std::string& object, const char* operation, Wait wait, Body body, const Args&... args) {
        const std::uint64_t number = numbers.fetch_add(1, std::memory_order_relaxed) + 1;
        if (!journal.IsOn() && !faults.Armed()) {
            SpendTime(wait);
            return Locked(body, std::nullopt);
        }
        return Watched(number, object, operation, true, wait, body, args...);
    }

    /// Executes a call that is journaled but never fails by a fault.
    template <class Body, class... Args>
    auto UnfailingCall(const std::string& object, const char* operation, Body body, const Args&... args) {
        const std::uint64_t number = numbers.fetch_add(1, std::memory_order_relaxed) + 1;
        unfailing.fetch_add(1, std::memory_order_relaxed);
        return Watched(number, object, operation, false, NoWait{}, body, args...);
    }

    std::uint64_t CallCount() const { return numbers.load() - unfailing.load(); }
    void SetLatency(bool on) { latency = on; }

    CallJournal journal;
    Faults faults;
    /// Guards all state of the bench.
    std::mutex mutex;

private:
    template <class Body>
    static constexpr bool TakesCode = std::is_invocable_v<Body, std::optional<int>>;

    /// Whole numbers and enumerations, which a result code can replace.
    template <class Value>
    static constexpr bool
        IsNumber = (std::is_integral_v<Value> && !std::is_same_v<Value, bool>) || std::is_enum_v<Value>;

    template <class Body>
    static auto Run(Body& body, std::optional<int> code) {
        if constexpr (TakesCode<Body>) {
            return body(code);
        } else if constexpr (IsNumber<decltype(body())>) {
            return code ? static_cast<decltype(body())>(*code) : body();
        } else {
            return body();
        }
    }

    template <class Body>
    static constexpr bool CanReturnResult() {
        if constexpr (TakesCode<Body>) {
            return true;
        } else {
            return IsNumber<std::invoke_result_t<Body>>;
        }
    }

    template <class Body>
    auto Locked(Body& body, std::optional<int> code) {
        const std::lock_guard lock(mutex);
        updater.AdvanceToNow();
        return Run(body, code);
    }

    template <class Wait>
    void SpendTime(Wait& wait) {
        if constexpr (!std::is_same_v<Wait, NoWait>) {
            if (latency.load(std::memory_order_relaxed)) {
                wait();
            }
        }
    }

    template <class Wait, class Body, class... Args>
    auto Watched(std::uint64_t number, const std::string& object, const char* operation, bool canFail, Wait wait,
                 Body& body, const Args&... args) {
        JournalEntry entry = Begin(number, object, operation);
        entry.arguments = ArgumentsText(args...);
        entry.takesCode = canFail && CanReturnResult<Body>();
        try {
            const std::optional<int> code = canFail ? InjectFault(entry, entry.takesCode) : std::nullopt;
            SpendTime(wait);
            if constexpr (std::is_void_v<decltype(Run(body, code))>) {
                Locked(body, code);
                End(entry);
            } else {
                auto result = Locked(body, code);
                entry.result = JournalText(result);
                End(entry);
                return result;
            }
        } catch (const TavikLibrary::TavikException& exception) {
            EndFailed(entry, exception.errorCode, exception.what());
            throw;
        } catch (const std::exception& exception) {
            EndFailed(entry, 0, exception.what());
            throw;
        }
    }

    JournalEntry Begin(std::uint64_t number, const std::string& object, const char* operation);
    std::optional<int> InjectFault(JournalEntry& entry, bool canReturnResult);
    void End(const JournalEntry& entry);
    void EndFailed(JournalEntry& entry, int code, const char* text);

    Clock& clock;
    Updater& updater;
    std::atomic<std::uint64_t> numbers{0};
    std::atomic<std::uint64_t> unfailing{0};
    std::atomic<bool> latency{true};
};

} // namespace TavikSimulator
