#pragma once

#include "library/TavikModulePNX.h"

#include <QString>

// The lengths and pressures of an air gauge on their way between the library, which counts in millimetres
// and psi, and the screen, which shows lengths in the unit of the gauge's display.

/// Throws std::runtime_error("Unexpected PNX units") for a unit that there is not.
int DecimalsOf(TavikLibrary::ePNX_UOM unit);

/// Both throw std::runtime_error("Unexpected PNX units in unit conversion.") for a unit that there is not.
double FromMillimetres(double millimetres, TavikLibrary::ePNX_UOM unit);
double ToMillimetres(double length, TavikLibrary::ePNX_UOM unit);

/// A length that stands in the unit already, with the unit's decimals; for example "1.00000".
QString LengthNumber(double length, TavikLibrary::ePNX_UOM unit);

/// A length in millimetres as text in the unit; for example "1.00000 inches".
QString LengthText(double millimetres, TavikLibrary::ePNX_UOM unit);

/// A pressure with its 2 decimals, without a unit.
QString PressureNumber(double psi);

/// A pressure with its unit; for example "14.70 psi".
QString PressureText(double psi);
