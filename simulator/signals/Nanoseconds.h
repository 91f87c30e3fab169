#pragma once

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>

namespace TavikSimulator {

/// A bench time or a duration. Bench time 0 is the creation of the bench.
using Nanoseconds = std::chrono::nanoseconds;

/// Latest bench time and longest duration, about 142 years: the sum of two does not overflow.
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

/// Number of the period (above 0) that contains a time: 0 for the first from bench time 0, negative before it.
constexpr std::int64_t PeriodsUntil(Nanoseconds time, Nanoseconds period) {
    return FloorDivision(time.count(), period.count());
}

/// Time since the start of the period (above 0) that contains a time: 0 to below the period.
constexpr Nanoseconds WithinPeriod(Nanoseconds time, Nanoseconds period) {
    return time - PeriodsUntil(time, period) * period;
}

} // namespace TavikSimulator
