#pragma once

#include <cstddef>
#include <vector>

// Whether a quantity that was measured once a round grows.

/// A straight line through measured values, one a round.
struct Trend {
    double slope = 0.0;  ///< per round, by least squares
    double margin = 0.0; ///< the slope is known to this much, either way, with 95 % confidence
};

enum class TrendResult {
    Pass,         ///< the slope is below the growth limit, with 95 % confidence
    Fail,         ///< the slope is above the growth limit, with 95 % confidence
    Inconclusive, ///< too few values, or too much scatter
};

/// Fewer values than this say nothing about a slope.
constexpr std::size_t fewestValues = 12;

/// The line through these values. Fewer than 3 have none: slope and margin are 0.
Trend TrendOf(const std::vector<double>& values);

/// Compares the growth of the values per round with a limit.
TrendResult ResultOf(const std::vector<double>& values, double growthLimit);

/// The values without those of the rounds in which everything is done for the first time: the first quarter,
/// rounded up.
std::vector<double> AfterWarmUp(const std::vector<double>& values);

const char* ToText(TrendResult result);
