#pragma once

#include "simulator/bench/BenchDescription.h"
#include "simulator/files/BenchElement.h"

#include <cstdint>
#include <set>
#include <string>

namespace TavikSimulator {

/// Reads a <network>. The identities taken so far on the bench grow by those of its modules.
NetworkDescription ReadNetwork(BenchElement& element, std::uint64_t seed, std::set<std::string>& identities);

} // namespace TavikSimulator
