#pragma once

#include <cstdint>
#include <string_view>

namespace TavikSimulator {

/// Counter-based random numbers: the same seed and counter give the same number, in any order and from any thread.

/// Seed of a named object on a bench: two gauges of one bench file have independent noise.
std::uint64_t SeedFor(std::uint64_t benchSeed, std::string_view name);

/// 64 uniformly distributed bits at a position of a seed's sequence.
std::uint64_t RandomBits(std::uint64_t seed, std::int64_t counter);

/// The value below which a standard normal variable lies with this probability; 0 < probability < 1.
/// Relative error below 1.2e-9.
double NormalQuantile(double probability);

/// Standard normal variable (mean 0, standard deviation 1) at a position of a seed's sequence.
double NormalNoise(std::uint64_t seed, std::int64_t counter);

} // namespace TavikSimulator
