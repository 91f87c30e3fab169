#pragma once

#include "simulator/bench/BenchDescription.h"
#include "simulator/files/BenchElement.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace TavikSimulator {

/// Reads a <module>, which may stand for several with ascending identities.
std::vector<ModuleDescription> ReadModules(BenchElement& element, std::uint64_t seed);

/// The speeds as a bench file writes them.
const std::vector<std::pair<std::string, TavikLibrary::eNetSpeed>>& SpeedWords();
/// The kinds of modules as a bench file writes them.
const std::vector<std::pair<std::string, TavikLibrary::eModuleType>>& TypeWords();
/// The speeds that an attribute lists, or else the given ones.
std::vector<TavikLibrary::eNetSpeed> ReadSpeeds(BenchElement& element, const char* attribute,
                                                const std::vector<TavikLibrary::eNetSpeed>& otherwise);
/// An attribute that names a module.
std::string ReadIdentity(BenchElement& element, const char* attribute);

} // namespace TavikSimulator
