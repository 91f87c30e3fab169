#include "simulator/signals/Noise.h"

#include <cmath>

namespace TavikSimulator {

namespace {

// The step between two states of SplitMix64: the golden ratio as a fraction of 2^64, made odd.
constexpr std::uint64_t GoldenGamma = 0x9E3779B97F4A7C15ULL;

// Output function of SplitMix64 (G. L. Steele, D. Lea, C. H. Flood: Fast splittable pseudorandom number generators,
// OOPSLA 2014, doi 10.1145/2660193.2660195), with the constants of D. Stafford's variant 13. A bijection in which each
// input bit affects each output bit.
std::uint64_t Mix(std::uint64_t z) {
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
    return z ^ (z >> 31);
}

// P. J. Acklam's rational approximations of the inverse normal cumulative distribution function
// (An algorithm for computing the inverse normal cumulative distribution function, 2003).
constexpr double TailBelow = 0.02425;

double CentralQuantile(double probability) {
    const double q = probability - 0.5;
    const double r = q * q;
    const double numerator = ((((-3.969683028665376e+01 * r + 2.209460984245205e+02) * r - 2.759285104469687e+02) * r +
                               1.383577518672690e+02) *
                                  r -
                              3.066479806614716e+01) *
                                 r +
                             2.506628277459239e+00;
    const double denominator =
        ((((-5.447609879822406e+01 * r + 1.615858368580409e+02) * r - 1.556989798598866e+02) * r +
          6.680131188771972e+01) *
             r -
         1.328068155288572e+01) *
            r +
        1.0;
    return q * numerator / denominator;
}

double LowerTailQuantile(double probability) {
    const double q = std::sqrt(-2.0 * std::log(probability));
    const double numerator = ((((-7.784894002430293e-03 * q - 3.223964580411365e-01) * q - 2.400758277161838e+00) * q -
                               2.549732539343734e+00) *
                                  q +
                              4.374664141464968e+00) *
                                 q +
                             2.938163982698783e+00;
    const double denominator = (((7.784695709041462e-03 * q + 3.224671290700398e-01) * q + 2.445134137142996e+00) * q +
                                3.754408661907416e+00) *
                                   q +
                               1.0;
    return numerator / denominator;
}

} // namespace

std::uint64_t SeedFor(std::uint64_t benchSeed, std::string_view name) {
    // FNV-1a hashes the name into the seed; the mixing spreads it over all bits.
    std::uint64_t hash = 0xCBF29CE484222325ULL ^ Mix(benchSeed);
    for (const char letter : name) {
        hash = (hash ^ static_cast<unsigned char>(letter)) * 0x100000001B3ULL;
    }
    return Mix(hash);
}

std::uint64_t RandomBits(std::uint64_t seed, std::int64_t counter) {
    // Without the mixing of the seed, neighbouring seeds would give one sequence, shifted.
    return Mix(Mix(seed + GoldenGamma) + static_cast<std::uint64_t>(counter) * GoldenGamma);
}

double NormalQuantile(double probability) {
    if (probability < TailBelow) {
        return LowerTailQuantile(probability);
    }
    if (probability > 1.0 - TailBelow) {
        return -LowerTailQuantile(1.0 - probability);
    }
    return CentralQuantile(probability);
}

double NormalNoise(std::uint64_t seed, std::int64_t counter) {
    // Midpoints of 2^52 equal parts of 0 to 1: 0 and 1 do not occur.
    const double part = static_cast<double>(RandomBits(seed, counter) >> 12) + 0.5;
    return NormalQuantile(part * 0x1p-52);
}

} // namespace TavikSimulator
