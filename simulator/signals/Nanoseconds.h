#pragma once

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>

namespace TavikSimulator {

/// Bench time, or a span of it, in whole nanoseconds. Bench time 0 is when the bench was made.
using Nanoseconds = std::chrono::nanoseconds;

/// The latest bench time and the longest span, about 142 years: two of them add up without an overflow.
constexpr Nanoseconds LatestTime{4500000000000000000};

/// Rounded to the nearest nanosecond and limited to +-LatestTime.
inline Nanoseconds FromSeconds(double seconds) {
    const double nanoseconds = std::floor(seconds * 1e9 + 0.5);
    const auto latest = static_cast<double>(LatestTime.count());
    return Nanoseconds(static_cast<Nanoseconds::rep>(std::clamp(nanoseconds, -latest, latest)));
}

inline double ToSeconds(Nanoseconds time) {
    return static_cast<double>(time.count()) / 1e9;
}

/// The quotient rounded down, below 0 too; the divisor is above 0.
constexpr std::int64_t FloorDivision(std::int64_t number, std::int64_t divisor) {
    return number / divisor - (number % divisor < 0 ? 1 : 0);
}

/// The number of the period (0 is the first, below 0 before bench time 0) that a time lies in.
constexpr std::int64_t PeriodsUntil(Nanoseconds time, Nanoseconds period) {
    return FloorDivision(time.count(), period.count());
}

/// The time since the last whole period (above 0), counted from 0 in both directions: 0 to below the period.
constexpr Nanoseconds WithinPeriod(Nanoseconds time, Nanoseconds period) {
    return time - PeriodsUntil(time, period) * period;
}

} // namespace TavikSimulator
