#pragma once

#include "simulator/hardware/AirGaugeDescription.h"
#include "simulator/hardware/AirGaugeSettings.h"
#include "simulator/hardware/ProbeHardware.h"

#include <cstdint>
#include <optional>

namespace TavikSimulator {

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

    Reading ReadAt(Nanoseconds time) const override;
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
    double PressureAt(Nanoseconds time) const;

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

protected:
    std::vector<KeptSetting> KeptSettings(Nanoseconds time) override;

private:
    KeptSetting KeptMastering();
    KeptSetting KeptLength(const char* name, double AirGaugeSettings::*length);
    NozzlePart PartAt(Nanoseconds time) const;
    double ClearanceAt(Nanoseconds time) const;
    MasterLine DesignLine() const;
    void UseFactorySettings();
    void UseDesignLine();
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
