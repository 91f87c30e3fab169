#include "simulator/hardware/AirGaugeSettings.h"

#include "simulator/hardware/ErrorTexts.h"

#include <cmath>
#include <cstdio>
#include <string>

namespace TavikSimulator {

using TavikLibrary::ePNX_RotateDisplay;
using TavikLibrary::ePNX_UOM;
using TavikLibrary::eTavikErrors;

namespace {

constexpr double LargestLength = 100000.0; // mm
constexpr double LargestPressure = 30.0;   // psi
constexpr int LargestPasscode = 99999999;

/// Least distance between the pressures of two setting masters, in psi.
constexpr double LeastPressureDifference = 0.25;

/// Least distance between the sizes of two setting masters, in mm.
constexpr double LeastSizeDifference = 0.001;

std::string Decimals(double value, int decimals) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

void RequireWithin(double value, double least, double most, const char* what, const char* unit) {
    if (!(value >= least && value <= most)) {
        Reject(eTavikErrors::InvalidArgument, std::string(what) + " must lie within " +
                                                  std::to_string(static_cast<int>(least)) + " and " +
                                                  std::to_string(static_cast<int>(most)) + unit + ".");
    }
}

} // namespace

void RequireLength(double millimetres) {
    RequireWithin(millimetres, -LargestLength, LargestLength, "A length", " mm");
}

void RequirePressure(double psi) {
    RequireWithin(psi, 0.0, LargestPressure, "The pressure of a master", " psi");
}

void RequirePasscode(int passcode) {
    RequireWithin(passcode, 0.0, LargestPasscode, "A pass code", "");
}

void RequireUnit(ePNX_UOM unit) {
    if (unit < ePNX_UOM::mm || unit > ePNX_UOM::mils) {
        Reject(eTavikErrors::InvalidArgument,
               "An air gauge has no display unit " + std::to_string(static_cast<int>(unit)) + ".");
    }
}

void RequireRotation(ePNX_RotateDisplay rotation) {
    if (rotation < ePNX_RotateDisplay::None || rotation > ePNX_RotateDisplay::Auto) {
        Reject(eTavikErrors::InvalidArgument,
               "An air gauge's display has no rotation " + std::to_string(static_cast<int>(rotation)) + ".");
    }
}

void RequireMasters(const AirGaugeSettings& settings) {
    if (std::fabs(settings.masterMaxPressure - settings.masterMinPressure) < LeastPressureDifference) {
        Reject(eTavikErrors::InvalidArgument,
               "The air pressures of the two masters, " + Decimals(settings.masterMinPressure, 2) + " psi and " +
                   Decimals(settings.masterMaxPressure, 2) + " psi, are too close to each other: they must differ by " +
                   Decimals(LeastPressureDifference, 2) + " psi at least.");
    }
    if (std::fabs(settings.masterMaxSize - settings.masterMinSize) < LeastSizeDifference) {
        Reject(eTavikErrors::InvalidArgument, "The sizes of the two masters, " + Decimals(settings.masterMinSize, 4) +
                                                  " mm and " + Decimals(settings.masterMaxSize, 4) +
                                                  " mm, are too close to each other: they must differ by " +
                                                  Decimals(LeastSizeDifference, 4) + " mm at least.");
    }
}

} // namespace TavikSimulator
