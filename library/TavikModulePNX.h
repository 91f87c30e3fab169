#pragma once

#include "library/TavikModuleKX.h"

#include <string>

namespace TavikLibrary {

/// Unit in which an air gauge's display shows lengths.
enum class ePNX_UOM : int {
    mm = 0,
    inches = 1,
    mils = 2, ///< thousandths of an inch
};

/// Rotation of an air gauge's display.
enum class ePNX_RotateDisplay : int {
    None = 0,
    Rotate90 = 1,
    Rotate180 = 2,
    Rotate270 = 3,
    Auto = 4,
};

std::string ePNX_UOM_ToString(ePNX_UOM unit);

/// An air gauge. All lengths are in millimetres, whatever unit the display shows; pressures are in psi.
/// Readings throw "Module Information needs reading." after something was changed at the module itself,
/// until UpdateInfo.
class TavikModulePNX : public TavikModuleKX {
public:
    explicit TavikModulePNX(Implementation* implementation);
    ~TavikModulePNX() override;

    void UpdateInfo();
    bool IsMastered();
    bool HasDisplay();
    ePNX_UOM DisplayUnitsOfMeasure();
    void setDisplayUnitsOfMeasure(ePNX_UOM unit);
    double MasterMinReadingInUOM();
    void setMasterMinReadingInUOM(double millimetres);
    double MasterMaxReadingInUOM();
    void setMasterMaxReadingInUOM(double millimetres);
    void setMasterMinPressure(double psi);
    void setMasterMaxPressure(double psi);
    /// Makes the two masters' pressures and sizes the line by which later readings are worked out.
    void ApplyMastering();
    double LimitHigh();
    void setLimitHigh(double millimetres);
    double LimitLow();
    void setLimitLow(double millimetres);
    double PressureReading();
    bool OutputReadingAsPressure();
    void setOutputReadingAsPressure(bool asPressure);
    ePNX_RotateDisplay RotateDisplay();
    void setRotateDisplay(ePNX_RotateDisplay rotation);
    bool RotateKeyboard();
    void setRotateKeyboard(bool rotate);
    bool ShowPSIReading();
    void setShowPSIReading(bool show);
    /// 0 to 99999999.
    void setPasscode(int passcode);
    void ResetFactorySettings();
};

} // namespace TavikLibrary
