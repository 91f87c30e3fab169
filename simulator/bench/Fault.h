#pragma once

#include <cstdint>
#include <string>

namespace TavikSimulator {

enum class FaultTrigger {
    Once,        ///< the first matching call
    Nth,         ///< the n-th matching call only
    FromNth,     ///< the n-th matching call and all later ones
    During,      ///< matching calls within a span of bench time, which begins at AddFault plus `from`
    Probability, ///< each matching call with a probability, drawn from a seeded generator
};

enum class FaultEffect {
    ThrowLibrary, ///< throws TavikException(code, text)
    ThrowPlain,   ///< throws std::runtime_error(text)
    Slow,         ///< adds a delay, then executes the call
    Result,       ///< a reading gets the code as its result code; another operation that returns a whole
                  ///< number or an enumeration returns the code without doing its work; other operations
                  ///< are left alone
};

/// A fault. A call that throws by a fault has had no effect. Destructors and GetErrorDescription never fail. Patterns
/// can contain "*" for any run of characters.
struct Fault {
    std::string object = "*";
    std::string operation = "*";
    FaultTrigger trigger = FaultTrigger::Once;
    std::uint64_t n = 1;      ///< for Nth and FromNth, from 1
    double from = 0.0;        ///< for During: seconds until the span begins
    double duration = 0.0;    ///< for During: length of the span in seconds
    double probability = 1.0; ///< for Probability, 0 to 1
    std::uint64_t seed = 1;   ///< for Probability
    FaultEffect effect = FaultEffect::ThrowLibrary;
    int code = 0x2101;  ///< for ThrowLibrary and Result
    std::string text;   ///< for the throwing effects; empty: the description of the code
    double delay = 0.0; ///< for Slow, in seconds
};

} // namespace TavikSimulator
