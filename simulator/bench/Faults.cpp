#include "simulator/bench/Faults.h"

#include "library/TavikException.h"
#include "simulator/hardware/ErrorTexts.h"
#include "simulator/signals/Noise.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace TavikSimulator {

using TavikLibrary::eTavikErrors;

namespace {

void Require(bool fulfilled, const char* sentence) {
    if (!fulfilled) {
        Reject(eTavikErrors::InvalidArgument, sentence);
    }
}

bool IsTime(double seconds) {
    return std::isfinite(seconds) && seconds >= 0.0;
}

bool NeverFails(const std::string& operation) {
    return operation == "GetErrorDescription" || (!operation.empty() && operation.front() == '~');
}

// A uniformly distributed number in [0, 1) for each matching call of a fault.
double Draw(std::uint64_t seed, std::uint64_t counter) {
    return static_cast<double>(RandomBits(seed, static_cast<std::int64_t>(counter)) >> 11) * 0x1p-53;
}

} // namespace

void RequirePossible(const Fault& fault) {
    Require(!fault.object.empty() && !fault.operation.empty(), "A fault needs an object and an operation.");
    Require(!NeverFails(fault.operation), "Destructors and GetErrorDescription never fail.");
    Require(fault.n >= 1, "The n of a fault counts from 1.");
    Require(IsTime(fault.from) && IsTime(fault.duration), "A fault's times must not be negative.");
    Require(fault.trigger != FaultTrigger::During || fault.duration > 0.0, "A fault's duration must be above 0.");
    Require(fault.probability > 0.0 && fault.probability <= 1.0,
            "A fault's probability must be above 0 and not above 1.");
    Require(fault.effect != FaultEffect::Slow || (IsTime(fault.delay) && fault.delay > 0.0),
            "A slow call needs a delay above 0.");
    Require(fault.effect != FaultEffect::ThrowPlain || !fault.text.empty(), "A plain exception needs a text.");
}

bool Matches(const std::string& pattern, const std::string& text) {
    std::size_t p = 0;
    std::size_t t = 0;
    std::size_t star = std::string::npos;
    std::size_t resume = 0;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            resume = t;
        } else if (p < pattern.size() && pattern[p] == text[t]) {
            ++p;
            ++t;
        } else if (star != std::string::npos) {
            p = star + 1;
            t = ++resume;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == std::string::npos;
}

int Faults::Add(const Fault& fault, Nanoseconds now) {
    RequirePossible(fault);
    const std::lock_guard lock(mutex);
    Active added;
    added.number = ++lastNumber;
    added.fault = fault;
    added.setAt = now;
    active.push_back(added);
    Rearm();
    return added.number;
}

void Faults::Remove(int number) {
    const std::lock_guard lock(mutex);
    active.erase(std::remove_if(active.begin(), active.end(),
                                [number](const Active& candidate) { return candidate.number == number; }),
                 active.end());
    Rearm();
}

void Faults::Clear() {
    const std::lock_guard lock(mutex);
    active.clear();
    countdown.reset();
    Rearm();
}

void Faults::FailCall(std::uint64_t k, bool everyCallAfter, const Fault& fault) {
    Require(k >= 1, "The calls to fail are counted from 1.");
    RequirePossible(fault);
    const std::lock_guard lock(mutex);
    countdown = Countdown{k, everyCallAfter, fault};
    Rearm();
}

void Faults::Rearm() {
    armed = !active.empty() || countdown.has_value();
}

bool Faults::CountdownEnds() {
    if (!countdown) {
        return false;
    }
    if (countdown->left > 0) {
        --countdown->left;
    }
    return countdown->left == 0;
}

bool Faults::Triggers(Active& active, Nanoseconds now) {
    const Fault& fault = active.fault;
    ++active.matched;
    switch (fault.trigger) {
    case FaultTrigger::Once:
        return active.matched == 1;
    case FaultTrigger::Nth:
        return active.matched == fault.n;
    case FaultTrigger::FromNth:
        return active.matched >= fault.n;
    case FaultTrigger::During: {
        const Nanoseconds since = now - active.setAt - FromSeconds(fault.from);
        return since >= Nanoseconds::zero() && since < FromSeconds(fault.duration);
    }
    case FaultTrigger::Probability:
        return Draw(fault.seed, active.drawn++) < fault.probability;
    }
    return false;
}

FaultInjection Faults::Ask(const JournalEntry& call, bool canReturnResult) {
    const std::lock_guard lock(mutex);
    FaultInjection injection;
    if (CountdownEnds()) {
        injection.injected = true;
        injection.failure = countdown->fault;
        if (!countdown->everyCallAfter) {
            countdown.reset();
            Rearm();
        }
    }
    for (Active& candidate : active) {
        const Fault& fault = candidate.fault;
        const bool canApply = fault.effect != FaultEffect::Result || canReturnResult;
        if (injection.failure || !canApply || !Matches(fault.object, call.object) ||
            !Matches(fault.operation, call.operation) || !Triggers(candidate, FromSeconds(call.time))) {
            continue;
        }
        injection.injected = true;
        ++triggeredBy[candidate.number];
        if (fault.effect == FaultEffect::Slow) {
            injection.delay += FromSeconds(fault.delay);
        } else if (fault.effect == FaultEffect::Result) {
            injection.result = fault.code;
        } else {
            injection.failure = fault;
        }
    }
    if (injection.injected) {
        ++triggered;
        lastFaulted = call;
        lastFaulted.faulted = true;
    }
    return injection;
}

std::uint64_t Faults::Triggered() const {
    const std::lock_guard lock(mutex);
    return triggered;
}

std::uint64_t Faults::Triggered(int number) const {
    const std::lock_guard lock(mutex);
    const auto found = triggeredBy.find(number);
    return found == triggeredBy.end() ? 0 : found->second;
}

JournalEntry Faults::LastFaulted() const {
    const std::lock_guard lock(mutex);
    return lastFaulted;
}

void ThrowFault(const Fault& fault) {
    const std::string text = fault.text.empty() ? ErrorDescription(fault.code) : fault.text;
    if (fault.effect == FaultEffect::ThrowPlain) {
        throw std::runtime_error(text);
    }
    throw TavikLibrary::TavikException(fault.code, text);
}

} // namespace TavikSimulator
