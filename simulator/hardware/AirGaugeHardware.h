#pragma once

#include "simulator/hardware/AirGaugeDescription.h"
#include "simulator/hardware/AirGaugeSettings.h"
#include "simulator/hardware/ProbeHardware.h"

#include <cstdint>
#include <optional>

namespace TavikSimulator {

/// Straight line through the pressures and sizes of two setting masters.
struct MasterLine {
    double SizeAt(double pressure) const;

    double pressureA = 0.0;
    double sizeA = 0.0;
    double pressureB = 1.0;
    double sizeB = 1.0;
};

/// An air gauge. It samples the pressure of its chamber as a probe samples its position, and computes the size of the
/// part by the line of its mastering; before mastering, by the line of its design with the warning NotMastered.
///
/// The library knows the settings that it has read or written. After a change at the gauge's own display it must read
/// them again.
class AirGaugeHardware : public ProbeHardware {
public:
    explicit AirGaugeHardware(const ModuleDescription& description);

    Reading ReadAt(Nanoseconds time) const override;
    double CountsPerUnit() const override;
    double Offset() const override;
    double Stroke() const override;
    std::string Unit() const override;
    /// Rejects a reading until the library has read the settings again.
    void RequireReadable() const override;
    /// Puts a work piece of a fixed size on the air plug.
    void Hold(double position) override;
    void Release() override;

    /// Pressure in the chamber at a bench time, in psi: a whole number of sensor counts.
    double PressureAt(Nanoseconds time) const;

    bool HasDisplay() const { return Description().display; }
    const AirGaugeSettings& Known() const { return known; }
    /// Copies the settings to those that the library knows.
    void ReadSettings();

    /// Changes a setting, as written by the library.
    template <class Value>
    void Set(Value AirGaugeSettings::*setting, Value value) {
        settings.*setting = value;
        known.*setting = value;
    }
    /// Uses the line through the setting masters' pressures and sizes. Rejects pressures or sizes too close to each
    /// other.
    void ApplyMastering();
    void ResetToFactory();

    /// Operation at the gauge itself.
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
