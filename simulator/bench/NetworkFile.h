#pragma once

#include "library/TavikEnums.h"
#include "library/TavikException.h"

#include <map>
#include <string>
#include <vector>

namespace TavikSimulator {

/// A module's settings as a network file keeps them: texts by name.
using StoredSettings = std::map<std::string, std::string>;

/// A module as a network file describes it.
struct StoredModule {
    std::string identity;
    TavikLibrary::eModuleType type = TavikLibrary::eModuleType::Unknown;
    StoredSettings settings;
    int line = 0; ///< in the file it was read from; 0 for none
};

/// What a network file says: which network it describes, its speed, and its modules in order.
struct StoredNetwork {
    std::string name;
    TavikLibrary::eNetSpeed speed = TavikLibrary::eNetSpeed::High;
    std::vector<StoredModule> modules;
    int line = 0; ///< of its beginning in the file it was read from; 0 for none
};

/// Reads a network file; path in UTF-8. Throws TavikException with file, line and reason.
StoredNetwork ReadNetworkFile(const std::string& path);

/// Reads the text of a network file; the name stands for the file in messages.
StoredNetwork ReadNetworkText(const std::string& text, const std::string& name);

/// Runs checks of what a line of a file says; the message of a TavikException gets file and line put before it.
template <class Checks>
void NamingPlace(const std::string& file, int line, Checks checks) {
    try {
        checks();
    } catch (const TavikLibrary::TavikException& refusal) {
        throw TavikLibrary::TavikException(refusal.errorCode,
                                           file + ", line " + std::to_string(line) + ": " + refusal.what());
    }
}

/// The text of a network file.
std::string NetworkText(const StoredNetwork& network);

/// Writes a network file; path in UTF-8. The file appears whole or not at all: when writing fails, which is
/// a TavikException with file and reason, a file that was there before is as it was.
void WriteNetworkFile(const StoredNetwork& network, const std::string& path);

} // namespace TavikSimulator
