#pragma once

#include "simulator/boundary/WirelessObjects.h"

#include <optional>
#include <string>
#include <vector>

/// The readings of one read, and the slot that they were read from.
class TavikLibrary::TavikChannelReadings::Implementation {
public:
    Implementation() = default;
    Implementation(const TavikSimulator::SlotAccess& access, const std::vector<TavikSimulator::ToolReading>& readings);

    /// None for readings that were never read.
    std::optional<TavikSimulator::SlotAccess> access;
    std::string name; ///< in the journal
    std::vector<TavikChannelReading> readings;
};
