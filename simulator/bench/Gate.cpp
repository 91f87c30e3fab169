#include "simulator/bench/Gate.h"

namespace TavikSimulator {

JournalEntry Gate::Begin(std::uint64_t number, const std::string& object, const char* operation) {
    JournalEntry entry;
    entry.number = number;
    entry.time = ToSeconds(clock.Now());
    entry.thread = ThreadNumber();
    entry.object = object;
    entry.operation = operation;
    return entry;
}

std::optional<int> Gate::InjectFault(JournalEntry& entry, bool canReturnResult) {
    if (!faults.Armed()) {
        return std::nullopt;
    }
    const FaultInjection injection = faults.Ask(entry, canReturnResult);
    entry.faulted = injection.injected;
    clock.Wait(injection.delay);
    if (injection.failure) {
        ThrowFault(*injection.failure);
    }
    return injection.result;
}

void Gate::End(const JournalEntry& entry) {
    if (journal.IsOn()) {
        journal.Add(entry);
    }
}

void Gate::EndFailed(JournalEntry& entry, int code, const char* text) {
    entry.failed = true;
    entry.errorCode = code;
    entry.error = text;
    End(entry);
}

} // namespace TavikSimulator
