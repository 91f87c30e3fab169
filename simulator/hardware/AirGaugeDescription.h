#pragma once

#include "library/TavikModulePNX.h"
#include "simulator/hardware/NozzlePart.h"
#include "simulator/signals/AirGap.h"
#include "simulator/signals/Signal.h"

#include <optional>
#include <string>
#include <vector>

namespace TavikSimulator {

/// One step of the simulated operator at an air gauge.
struct NozzleStep {
    NozzlePart part = NozzlePart::WorkPiece;
    Nanoseconds duration = std::chrono::seconds(10); ///< above 0
};

/// Air gauge, its air supply, and the parts on its air plug. Sizes are deviations from the nominal size of a bore, in
/// mm; half of the deviation adds to the clearance at each of the two nozzles.
struct AirGaugeDescription {
    double masterA = -0.02;
    double masterB = 0.02;
    double clearance = 0.055; ///< at each nozzle with a part of nominal size, in mm
    AirCircuit circuit;
    SignalDescription supply;        ///< supply pressure in psi
    std::vector<NozzleStep> steps;   ///< repeated from bench time 0; none: a work piece all the time
    TavikLibrary::ePNX_UOM unit{};   ///< of the display
    std::optional<double> limitHigh; ///< in mm; none: the factory's
    std::optional<double> limitLow;
    bool mastered = false; ///< adjusted to its two setting masters before the bench was created

    AirGaugeDescription();
};

/// Returns why the description is invalid; empty if valid.
std::string Validate(const AirGaugeDescription& description);

} // namespace TavikSimulator
