#pragma once

#include "library/TavikModulePNX.h"
#include "simulator/hardware/NozzlePart.h"
#include "simulator/signals/AirGap.h"
#include "simulator/signals/Signal.h"

#include <optional>
#include <string>
#include <vector>

namespace TavikSimulator {

/// What the operator at the air gauge does for a while.
struct NozzleStep {
    NozzlePart part = NozzlePart::WorkPiece;
    Nanoseconds duration = std::chrono::seconds(10); ///< above 0
};

/// An air gauge, the air that it is fed with, and what comes into its nozzle. Sizes are deviations from the
/// nominal size of a bore, in mm; a larger bore leaves more clearance at the gauge's two nozzles, half of the
/// deviation at each.
struct AirGaugeDescription {
    double masterA = -0.02;
    double masterB = 0.02;
    double clearance = 0.055; ///< at each nozzle with a part of nominal size, in mm
    AirCircuit circuit;
    SignalDescription supply;        ///< supply pressure in psi
    std::vector<NozzleStep> steps;   ///< done over and over from bench time 0; none: a work piece all the time
    TavikLibrary::ePNX_UOM unit{};   ///< of the display
    std::optional<double> limitHigh; ///< in mm; none: the factory's
    std::optional<double> limitLow;
    bool mastered = false; ///< it was set up against its two masters before the bench was made

    AirGaugeDescription();
};

/// What is impossible about a description, as a sentence for whoever wrote it; empty if nothing is.
std::string Validate(const AirGaugeDescription& description);

} // namespace TavikSimulator
