#include "panels/airgauge/LengthUnits.h"

#include "panels/common/Text.h"

#include <stdexcept>

using TavikLibrary::ePNX_UOM;

namespace {

double MillimetresPer(ePNX_UOM unit) {
    switch (unit) {
    case ePNX_UOM::mm:
        return 1.0;
    case ePNX_UOM::inches:
        return 25.4;
    case ePNX_UOM::mils:
        return 0.0254;
    }
    throw std::runtime_error("Unexpected PNX units in unit conversion.");
}

} // namespace

int DecimalsOf(ePNX_UOM unit) {
    switch (unit) {
    case ePNX_UOM::mm:
        return 4;
    case ePNX_UOM::inches:
        return 5;
    case ePNX_UOM::mils:
        return 2;
    }
    throw std::runtime_error("Unexpected PNX units");
}

double FromMillimetres(double millimetres, ePNX_UOM unit) {
    return millimetres / MillimetresPer(unit);
}

double ToMillimetres(double length, ePNX_UOM unit) {
    return length * MillimetresPer(unit);
}

QString LengthNumber(double length, ePNX_UOM unit) {
    return QString::number(length, 'f', DecimalsOf(unit));
}

QString LengthText(double millimetres, ePNX_UOM unit) {
    const double length = FromMillimetres(millimetres, unit);
    return LengthNumber(length, unit) + QLatin1Char(' ') + FromLibrary(TavikLibrary::ePNX_UOM_ToString(unit));
}

QString PressureNumber(double psi) {
    return QString::number(psi, 'f', 2);
}

QString PressureText(double psi) {
    return PressureNumber(psi) + QStringLiteral(" psi");
}
