#pragma once

#include "tools/sweep/Failure.h"

/// Chooses so many of the failures, the same ones for the same seed: as many of each faultType as of the others, while
/// there are any.
std::vector<Failure> SampleOf(const std::vector<Failure>& failures, std::size_t count, std::uint64_t seed);
/// Every failure whose turn it is when they are dealt to so many sharers, this one being one of them (from 1).
std::vector<Failure> ShardOf(const std::vector<Failure>& failures, std::size_t sharer, std::size_t sharers);
