#pragma once

#include <string>

namespace TavikSimulator {

/// Air circuit of an air gauge: from the supply through a control orifice into a chamber, and out of a nozzle against
/// the part. Diameters in mm.
struct AirCircuit {
    double orificeDiameter = 0.75; ///< 0.05 to 10
    double nozzleDiameter = 1.5;   ///< 0.05 to 10
};

/// Returns why the circuit is invalid; empty if valid.
std::string Validate(const AirCircuit& circuit);

/// Gauge pressure in the chamber, in the unit of the supply pressure, with a part at this clearance (mm, 0 or above;
/// infinity for no part) in front of the nozzle.
///
/// Orifice and nozzle pass the same flow, each in proportion to its area and to the root of its pressure drop: p =
/// supply / (1 + (nozzle area / orifice area)^2). Near the part the air leaves through the curtain pi d x between
/// nozzle and part, which gives p = supply / (1 + 16 d^2 x^2 / D^4) of E. O. Doebelin, "Measurement Systems:
/// Application and Design" (nozzle-flapper transducers; d nozzle, D orifice, x clearance). At a larger clearance the
/// bore of the nozzle limits the flow. Curtain and bore are in series: the inverse squares of their areas add up. The
/// curve is flat at a clearance of 0, steep and nearly straight at three quarters of the supply pressure, and flat at
/// its end.
double BackPressure(double supply, double clearance, const AirCircuit& circuit);

} // namespace TavikSimulator
