#pragma once

#include "simulator/hardware/TypeDescriptions.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace TavikSimulator {

/// Words of a bench file for filters and measuring rates.
const std::vector<std::pair<std::string, TavikLibrary::eFilter>>& FilterWords();
const std::vector<std::pair<std::string, TavikLibrary::eMeasuringRate>>& RateWords();

/// Cut-off frequency in Hz; nothing for a value without an enumerator.
std::optional<double> CutoffOf(TavikLibrary::eFilter filter);
/// New values per second; nothing for a value without an enumerator.
std::optional<double> ValuesPerSecond(TavikLibrary::eMeasuringRate rate);

/// Whether a laser offers a measuring rate.
bool Offers(const LaserDescription& laser, TavikLibrary::eMeasuringRate rate);

} // namespace TavikSimulator
