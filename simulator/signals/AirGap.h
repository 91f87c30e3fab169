#pragma once

#include <string>

namespace TavikSimulator {

/// The air's way through an air gauge: from the supply through a control orifice into a chamber, and from
/// there out of a nozzle, past the part in front of it. Diameters in mm.
struct AirCircuit {
    double orificeDiameter = 0.75; ///< 0.05 to 10
    double nozzleDiameter = 1.5;   ///< 0.05 to 10
};

/// What is impossible about a circuit, as a sentence for whoever wrote it; empty if nothing is.
std::string Validate(const AirCircuit& circuit);

/// The pressure in the chamber, above the air's outside and in the unit of the supply pressure, with a part
/// at this clearance (mm, 0 or above; infinity for no part) in front of the nozzle.
///
/// Orifice and nozzle pass the same flow, each in proportion to its area and to the root of its pressure
/// drop, so that p = supply / (1 + (nozzle area / orifice area)^2). Near the part the air leaves through the
/// curtain pi d x between nozzle and part, which gives the flapper's p = supply / (1 + 16 d^2 x^2 / D^4) of
/// E. O. Doebelin, "Measurement Systems: Application and Design" (nozzle-flapper transducers; d nozzle, D
/// orifice, x clearance). Farther off the bore of the nozzle limits the flow; curtain and bore are passed one
/// after the other, and the inverse squares of their areas add up. The curve begins flat at a clearance of 0,
/// is steep and nearly straight around three quarters of the supply pressure, and ends flat.
double BackPressure(double supply, double clearance, const AirCircuit& circuit);

} // namespace TavikSimulator
