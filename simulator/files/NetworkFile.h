#pragma once

#include "simulator/bench/StoredNetwork.h"

#include <string>

namespace TavikSimulator {

/// Reads a network file; path in UTF-8. Throws TavikException with file, line and reason.
StoredNetwork ReadNetworkFile(const std::string& path);

/// Reads the text of a network file; the name stands for the file in messages.
StoredNetwork ReadNetworkText(const std::string& text, const std::string& name);

/// The text of a network file.
std::string NetworkText(const StoredNetwork& network);

/// Writes a network file; path in UTF-8. The file appears whole or not at all: when writing fails, which is
/// a TavikException with file and reason, a file that was there before is as it was.
void WriteNetworkFile(const StoredNetwork& network, const std::string& path);

} // namespace TavikSimulator
