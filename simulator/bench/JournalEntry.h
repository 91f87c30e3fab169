#pragma once

#include <cstdint>
#include <string>

namespace TavikSimulator {

/// One library call. Objects are "server", "networks", "network <name>", "buffered <name>", "difference <name>",
/// "dynamic <name>", "module <identity>", "status <identity>", "buffered <identity>" and "difference <identity>".
struct JournalEntry {
    std::uint64_t number = 0; ///< calls are numbered from 1 in the order in which they began
    double time = 0.0;        ///< bench time at the call's beginning, in seconds
    int thread = 0;           ///< threads are numbered from 1 in the order of their first call
    std::string object;
    std::string operation;  ///< as declared, for example "ReadInCounts", "setNetSpeed", "~TavikServer"
    std::string arguments;  ///< for example "3" or "\"KX20000001\", \"\""
    std::string result;     ///< the result; empty for a call without one and for one that failed
    bool failed = false;    ///< the call threw
    bool faulted = false;   ///< a fault affected the call
    int errorCode = 0;      ///< of the TavikException it threw
    std::string error;      ///< the text it threw
    bool takesCode = false; ///< the fault effect Result can replace its result
};

/// Object, operation and arguments, for example "network Mixed.setNetSpeed(High)".
std::string CallText(const JournalEntry& entry);
/// The entry as a line of text, as TAVIK_JOURNAL=FILE writes it.
std::string JournalLine(const JournalEntry& entry);

} // namespace TavikSimulator
