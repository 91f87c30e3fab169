#pragma once

#include "simulator/boundary/WirelessObjects.h"

#include <optional>
#include <string>
#include <vector>

/// Readings of one read, and their slot.
class TavikLibrary::TavikChannelReadings::Implementation {
public:
    Implementation() = default;
    Implementation(const TavikSimulator::SlotAccess& access, const std::vector<TavikSimulator::ToolReading>& readings);

    /// None for default-constructed readings.
    std::optional<TavikSimulator::SlotAccess> access;
    std::string name; ///< in the journal
    std::vector<TavikChannelReading> readings;
};
