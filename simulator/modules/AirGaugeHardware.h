#pragma once

#include "library/TavikModulePNX.h"
#include "simulator/modules/AirGaugeDescription.h"
#include "simulator/modules/ProbeHardware.h"

#include <cstdint>
#include <optional>

namespace TavikSimulator {

/// What an air gauge is set to. Lengths in mm, pressures in psi.
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

/// The straight line through the pressures and sizes of two masters.
struct MasterLine {
    double SizeAt(double pressure) const;

    double pressureA = 0.0;
    double sizeA = 0.0;
    double pressureB = 1.0;
    double sizeB = 1.0;
};

/// An air gauge. It samples its chamber's pressure as a probe samples its position, and works out the size of
/// the part from it by the line through its two masters; before it is mastered, by the line of its design,
/// with the warning NotMastered.
///
/// The library knows the settings that it has read or written itself. After something was changed at the
/// gauge's own display it has to read them again.
class AirGaugeHardware : public ProbeHardware {
public:
    explicit AirGaugeHardware(const ModuleDescription& description);

    Reading ReadAt(double seconds) const override;
    double CountsPerUnit() const override;
    double Offset() const override;
    double Stroke() const override;
    std::string Unit() const override;
    /// Refuses a reading while the library has to read the settings again.
    void RequireReadable() const override;
    /// A held part is a work piece in the nozzle.
    void Hold(double position) override;
    void Release() override;

    /// The pressure in the chamber in psi, at a bench time in seconds: a whole number of the sensor's counts.
    double PressureAt(double seconds) const;

    bool HasDisplay() const { return Description().display; }
    const AirGaugeSettings& Known() const { return known; }
    /// The library reads the settings again.
    void ReadSettings();

    /// Changes a setting from the library's side.
    template <class Value>
    void Set(Value AirGaugeSettings::*setting, Value value) {
        settings.*setting = value;
        known.*setting = value;
    }
    /// Makes the masters' pressures and sizes the line in use. Refuses pressures or sizes that are too close to
    /// each other.
    void ApplyMastering();
    void ResetToFactory();

    /// What is done at the gauge itself.
    void PutInNozzle(NozzlePart part) { inNozzle = part; }
    void ChangeUnitAtDisplay(TavikLibrary::ePNX_UOM unit, int passcode);

private:
    NozzlePart PartAt(double seconds) const;
    double ClearanceAt(std::int64_t nanoseconds) const;
    MasterLine DesignLine() const;
    void UseFactorySettings();
    void MasterBeforehand();
    void UseMasters();

    Signal supply;
    AirGaugeSettings settings;
    AirGaugeSettings known;
    MasterLine line;
    double offset;
    double stroke;
    std::optional<NozzlePart> inNozzle;
    bool changedAtDisplay = false;
};

} // namespace TavikSimulator
