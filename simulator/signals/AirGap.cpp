#include "simulator/signals/AirGap.h"

#include <cmath>

namespace TavikSimulator {

namespace {

constexpr double Pi = 3.14159265358979323846;

bool IsDiameter(double millimetres) {
    return millimetres >= 0.05 && millimetres <= 10.0;
}

double AreaOfBore(double diameter) {
    return Pi * diameter * diameter / 4.0;
}

} // namespace

std::string Validate(const AirCircuit& circuit) {
    if (!IsDiameter(circuit.orificeDiameter)) {
        return "The control orifice must be 0.05 mm to 10 mm wide.";
    }
    if (!IsDiameter(circuit.nozzleDiameter)) {
        return "The nozzle must be 0.05 mm to 10 mm wide.";
    }
    return {};
}

double BackPressure(double supply, double clearance, const AirCircuit& circuit) {
    const double curtain = Pi * circuit.nozzleDiameter * clearance;
    if (curtain <= 0.0) {
        return supply;
    }
    const double orifice = AreaOfBore(circuit.orificeDiameter);
    const double bore = AreaOfBore(circuit.nozzleDiameter);
    // Squares of the ratios of the orifice area to the curtain and to the bore area.
    const double againstCurtain = (orifice / curtain) * (orifice / curtain);
    const double againstBore = (orifice / bore) * (orifice / bore);
    return supply / (1.0 + 1.0 / (againstCurtain + againstBore));
}

} // namespace TavikSimulator
