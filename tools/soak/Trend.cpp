#include "tools/soak/Trend.h"

#include <cmath>

namespace {

/// How many standard deviations hold 95 % of Student's distribution (Cornish and Fisher's series, good to 1 % from 5
/// degrees of freedom on).
double StudentQuantile(double degrees) {
    constexpr double normal = 1.959964;
    const double cube = normal * normal * normal;
    const double fifth = cube * normal * normal;
    return normal + (cube + normal) / (4.0 * degrees) +
           (5.0 * fifth + 16.0 * cube + 3.0 * normal) / (96.0 * degrees * degrees);
}

} // namespace

Trend TrendOf(const std::vector<double>& values) {
    const std::size_t count = values.size();
    if (count < 3) {
        return {};
    }
    const double middle = (static_cast<double>(count) - 1.0) / 2.0;
    double mean = 0.0;
    for (const double value : values) {
        mean += value / static_cast<double>(count);
    }
    double squares = 0.0;
    double products = 0.0;
    for (std::size_t round = 0; round < count; ++round) {
        const double distance = static_cast<double>(round) - middle;
        squares += distance * distance;
        products += distance * (values[round] - mean);
    }
    Trend trend;
    trend.slope = products / squares;
    double scatter = 0.0;
    for (std::size_t round = 0; round < count; ++round) {
        const double distance = static_cast<double>(round) - middle;
        const double off = values[round] - mean - trend.slope * distance;
        scatter += off * off;
    }
    const double degrees = static_cast<double>(count) - 2.0;
    trend.margin = StudentQuantile(degrees) * std::sqrt(scatter / degrees / squares);
    return trend;
}

TrendResult ResultOf(const std::vector<double>& values, double growthLimit) {
    const Trend trend = TrendOf(values);
    if (values.size() >= fewestValues && trend.slope - trend.margin > growthLimit) {
        return TrendResult::Fail;
    }
    const bool passes = values.size() >= fewestValues && trend.slope + trend.margin <= growthLimit;
    return passes ? TrendResult::Pass : TrendResult::Inconclusive;
}

std::vector<double> AfterWarmUp(const std::vector<double>& values) {
    const std::size_t warmUp = (values.size() + 3) / 4;
    return {values.begin() + static_cast<std::ptrdiff_t>(warmUp), values.end()};
}

const char* ToText(TrendResult result) {
    constexpr const char* texts[] = {"pass", "fail", "inconclusive"};
    return texts[static_cast<int>(result)];
}
