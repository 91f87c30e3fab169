#pragma once

#include <cstdint>
#include <string_view>

namespace TavikSimulator {

/// Random numbers that are looked up, not drawn: the same seed and counter give the same number, in
/// any order of asking and from any thread.

/// A seed of its own for each named thing on a bench, so that two gauges of one bench file do not
/// share their noise.
std::uint64_t SeedFor(std::uint64_t benchSeed, std::string_view name);

/// 64 evenly distributed bits for a place in a seed's sequence.
std::uint64_t RandomBits(std::uint64_t seed, std::int64_t counter);

/// The value below which a standard normal variable lies with this probability; 0 < probability < 1.
/// Relative error below 1.2e-9.
double NormalQuantile(double probability);

/// A standard normal variable (mean 0, deviation 1) for a place in a seed's sequence.
double NormalNoise(std::uint64_t seed, std::int64_t counter);

} // namespace TavikSimulator
