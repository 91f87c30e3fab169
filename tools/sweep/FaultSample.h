#pragma once

#include "tools/sweep/Failure.h"

/// Chooses so many of the failures, the same ones for the same seed: as many of each fault type as of the others, while
/// there are any.
std::vector<Failure> SampleOf(const std::vector<Failure>& failures, std::size_t count, std::uint64_t seed);
/// One shard of the failures, numbered from 1: every shards-th failure from the shard-th on.
std::vector<Failure> ShardOf(const std::vector<Failure>& failures, std::size_t shard, std::size_t shards);
