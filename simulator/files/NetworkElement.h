#pragma once

#include "simulator/bench/BenchDescription.h"
#include "simulator/files/BenchElement.h"

#include <cstdint>
#include <set>
#include <string>

namespace TavikSimulator {

/// Reads a <network> and adds its modules to the identities in use on the bench.
NetworkDescription ReadNetwork(BenchElement& element, std::uint64_t seed, std::set<std::string>& identities);

} // namespace TavikSimulator
