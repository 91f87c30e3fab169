#pragma once

#include "library/TavikEnums.h"
#include "library/TavikException.h"
#include "simulator/hardware/KeptSetting.h"

#include <string>
#include <vector>

namespace TavikSimulator {

/// A module in a network file.
struct StoredModule {
    std::string identity;
    TavikLibrary::eModuleType type = TavikLibrary::eModuleType::Unknown;
    StoredSettings settings;
    int line = 0; ///< in the file it was read from; 0 for none
};

/// Contents of a network file: the network, its speed, and its modules in order.
struct StoredNetwork {
    std::string name;
    TavikLibrary::eNetSpeed speed = TavikLibrary::eNetSpeed::High;
    std::vector<StoredModule> modules;
    int line = 0; ///< of its beginning in the file it was read from; 0 for none
};

/// Runs checks of one line of a file; prefixes the message of a TavikException with file and line.
template <class Checks>
void WithFileAndLine(const std::string& file, int line, Checks checks) {
    try {
        checks();
    } catch (const TavikLibrary::TavikException& refusal) {
        throw TavikLibrary::TavikException(refusal.errorCode,
                                           file + ", line " + std::to_string(line) + ": " + refusal.what());
    }
}

} // namespace TavikSimulator
