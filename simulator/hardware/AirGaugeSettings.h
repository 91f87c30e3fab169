#pragma once

#include "library/TavikModulePNX.h"

namespace TavikSimulator {

/// Settings of an air gauge. Lengths in mm, pressures in psi.
struct AirGaugeSettings {
    TavikLibrary::ePNX_UOM unit = TavikLibrary::ePNX_UOM::mm;
    TavikLibrary::ePNX_RotateDisplay rotation = TavikLibrary::ePNX_RotateDisplay::None;
    bool rotateKeyboard = false;
    bool showPressure = false;
    bool outputPressure = false;
    double limitHigh = 0.0;
    double limitLow = 0.0;
    double masterMinSize = 0.0;
    double masterMaxSize = 0.0;
    double masterMinPressure = 0.0;
    double masterMaxPressure = 0.0;
    int passcode = 0; ///< 0: the display asks for none
    bool mastered = false;
};

// Throw TavikException for a value that an air gauge does not support.

/// In mm.
void RequireLength(double millimetres);
/// In psi.
void RequirePressure(double psi);
void RequirePasscode(int passcode);
void RequireUnit(TavikLibrary::ePNX_UOM unit);
void RequireRotation(TavikLibrary::ePNX_RotateDisplay rotation);
/// Checks that the pressures and sizes of the setting masters differ enough for a line.
void RequireMasters(const AirGaugeSettings& settings);

} // namespace TavikSimulator
