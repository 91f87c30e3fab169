#pragma once

#include "simulator/bench/StoredNetwork.h"

#include <string>

namespace TavikSimulator {

/// Reads a network file; path in UTF-8. Throws TavikException with file, line and reason.
StoredNetwork ReadNetworkFile(const std::string& path);

/// Reads the text of a network file; messages name it as the file.
StoredNetwork ReadNetworkText(const std::string& text, const std::string& name);

/// Text of a network file.
std::string NetworkText(const StoredNetwork& network);

/// Writes a network file; path in UTF-8. Throws TavikException with file and reason on failure, which leaves an
/// existing file unchanged.
void WriteNetworkFile(const StoredNetwork& network, const std::string& path);

} // namespace TavikSimulator
