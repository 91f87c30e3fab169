#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

/// What the tests of noise measure, and how far it may lie from what is expected. All bounds are 4.5
/// standard errors: a sound generator stays within them in all but 7 of a million sequences, and the
/// tests' sequences are fixed, so a test that passes once passes always.
namespace Statistics {

constexpr double StandardErrors = 4.5;

inline double Mean(const std::vector<double>& values) {
    double sum = 0.0;
    for (const double value : values) {
        sum += value;
    }
    return sum / static_cast<double>(values.size());
}

/// The mean of the power-th powers of the distances from the centre.
inline double Moment(const std::vector<double>& values, double centre, int power) {
    double sum = 0.0;
    for (const double value : values) {
        sum += std::pow(value - centre, power);
    }
    return sum / static_cast<double>(values.size());
}

inline double Deviation(const std::vector<double>& values) {
    return std::sqrt(Moment(values, Mean(values), 2));
}

/// The same sequence, moved and stretched to mean 0 and deviation 1.
inline std::vector<double> Standardised(std::vector<double> values) {
    const double mean = Mean(values);
    const double deviation = Deviation(values);
    for (double& value : values) {
        value = (value - mean) / deviation;
    }
    return values;
}

/// Correlation of two standardised sequences, the second one taken from `lag` places on.
inline double Correlation(const std::vector<double>& first, const std::vector<double>& second, std::size_t lag) {
    double sum = 0.0;
    for (std::size_t i = 0; i + lag < second.size(); ++i) {
        sum += first[i] * second[i + lag];
    }
    return sum / static_cast<double>(second.size() - lag);
}

/// The standard error of a mean is deviation / sqrt(n).
inline double BoundOfMean(double deviation, std::size_t n) {
    return StandardErrors * deviation / std::sqrt(static_cast<double>(n));
}

/// The standard error of a normal variable's deviation is deviation / sqrt(2 n).
inline double BoundOfDeviation(double deviation, std::size_t n) {
    return BoundOfMean(deviation, 2 * n);
}

/// The standard error of a correlation that is really 0 is 1 / sqrt(n).
inline double BoundOfNoCorrelation(std::size_t n) {
    return BoundOfMean(1.0, n);
}

} // namespace Statistics
