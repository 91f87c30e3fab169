#pragma once

#include "library/TavikEnums.h"

#include <map>
#include <string>
#include <vector>

namespace TavikSimulator {

/// A module's settings as a network file keeps them: whole numbers by name.
using StoredSettings = std::map<std::string, int>;

/// A module as a network file describes it.
struct StoredModule {
    std::string identity;
    TavikLibrary::eModuleType type = TavikLibrary::eModuleType::Unknown;
    StoredSettings settings;
};

/// What a network file says: which network it describes, its speed, and its modules in order.
struct StoredNetwork {
    std::string name;
    TavikLibrary::eNetSpeed speed = TavikLibrary::eNetSpeed::High;
    std::vector<StoredModule> modules;
};

/// Reads a network file; path in UTF-8. Throws TavikException with file, line and reason.
StoredNetwork ReadNetworkFile(const std::string& path);

/// Reads the text of a network file; the name stands for the file in messages.
StoredNetwork ReadNetworkText(const std::string& text, const std::string& name);

/// Writes a network file; path in UTF-8. The file appears whole or not at all: when writing fails, which is
/// a TavikException with file and reason, a file that was there before is as it was.
void WriteNetworkFile(const StoredNetwork& network, const std::string& path);

} // namespace TavikSimulator
