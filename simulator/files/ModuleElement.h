#pragma once

#include "simulator/bench/BenchDescription.h"
#include "simulator/files/BenchElement.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace TavikSimulator {

/// Reads a <module>, or several with ascending identities (attribute count).
std::vector<ModuleDescription> ReadModules(BenchElement& element, std::uint64_t seed);

/// Words of a bench file for speeds.
const std::vector<std::pair<std::string, TavikLibrary::eNetSpeed>>& SpeedWords();
/// Words of a bench file for module types.
const std::vector<std::pair<std::string, TavikLibrary::eModuleType>>& TypeWords();
/// Speeds in an attribute; `otherwise` without it.
std::vector<TavikLibrary::eNetSpeed> ReadSpeeds(BenchElement& element, const char* attribute,
                                                const std::vector<TavikLibrary::eNetSpeed>& otherwise);
/// Identity in an attribute.
std::string ReadIdentity(BenchElement& element, const char* attribute);

} // namespace TavikSimulator
