#include "tools/tour/Steps.h"

#include <set>

using TavikSimulator::JournalEntry;

namespace {

/// Whether all modules had been asked for their identities before the last of the calls.
bool ListWasFilled(const std::vector<JournalEntry>& calls) {
    int identities = -1; // before the list is asked for
    for (std::size_t index = 0; index + 1 < calls.size(); ++index) {
        const JournalEntry& call = calls[index];
        if (call.operation == "AvailableSpeeds") {
            identities = 0;
        } else if (identities >= 0 && call.operation == "Identity") {
            ++identities;
        } else if (call.operation == "ModuleCount" && call.result == std::to_string(identities)) {
            return true;
        }
    }
    return false;
}

/// Whether the panels of digital I/O modules make this call when they show the pins.
bool IsOfPins(const std::string& operation) {
    static const std::set<std::string> operations = {"PinConfiguration", "InputState",      "OutputState",
                                                     "DebounceTime",     "OutPolarityMask", "InPolarityMask",
                                                     "OutputMode"};
    return operations.count(operation) > 0;
}

} // namespace

FailureBox LastResortOnly(const std::vector<JournalEntry>&) {
    return FailureBox();
}

FailureRule Always(const QString& title, const QString& prefix) {
    return [=](const std::vector<JournalEntry>&) { return FailureBox{true, title, prefix}; };
}

FailureRule Only(const char* operation, const QString& title, const QString& prefix) {
    return [=](const std::vector<JournalEntry>& calls) {
        return calls.back().operation == operation ? FailureBox{true, title, prefix} : FailureBox();
    };
}

FailureRule UntilListed(const QString& title, const QString& prefix) {
    return [=](const std::vector<JournalEntry>& calls) {
        return ListWasFilled(calls) ? FailureBox() : FailureBox{true, title, prefix};
    };
}

FailureRule Selection(const QString& panelTitle) {
    return [=](const std::vector<JournalEntry>& calls) {
        return IsOfPins(calls.back().operation) ? FailureBox{true, panelTitle, QString()} : FailureBox();
    };
}

FailureRule ReadingOrPanel(const QString& panelTitle) {
    return [=](const std::vector<JournalEntry>& calls) {
        const bool refreshing = IsOfPins(calls.back().operation);
        return FailureBox{true, refreshing ? panelTitle : QStringLiteral("Reading Error"), QString()};
    };
}

FailureBox Swallowed(const std::vector<JournalEntry>&) {
    return {false, QString(), QString()};
}
