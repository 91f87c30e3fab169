#pragma once

#include "library/TavikModuleQTA.h"
#include "simulator/hardware/MasterSettings.h"
#include "simulator/hardware/ModuleHardware.h"

#include <cstdint>
#include <deque>

namespace TavikSimulator {

/// An encoder interface with its encoder. Its signal is the encoder's position in lines; the count follows the
/// encoder's travel and its reference marks. Setters throw TavikException, and change nothing, for a value that the
/// interface does not have.
///
/// TriggerCountAt accepts times in the past: about 1 s before the latest requested time, but not before the last change
/// of a setting.
class EncoderHardware : public ModuleHardware {
public:
    explicit EncoderHardware(const ModuleDescription& description);

    /// No reading (SignalFault) while the wiring of the encoder differs from the setting.
    Reading ReadAt(Nanoseconds time) const override;
    /// Resets the count to 0.
    void PowerOn(Nanoseconds time) override;

    /// A single action becomes None when it has been executed.
    TavikLibrary::eRefAction RefAction(Nanoseconds time) const;
    void SetRefAction(TavikLibrary::eRefAction action, Nanoseconds time);
    TavikLibrary::eQuadratureMode QuadratureMode() const { return mode; }
    void SetQuadratureMode(TavikLibrary::eQuadratureMode mode, Nanoseconds time);
    TavikLibrary::eEncoderInterfaceType InterfaceType() const { return interfaceType; }
    void SetInterfaceType(TavikLibrary::eEncoderInterfaceType type);
    int PresetInCounts() const { return preset; }
    void SetPresetInCounts(int counts, Nanoseconds time);

    MasterSettings* Master() override { return &master; }
    /// Every count triggers, up or down, independent of presets and reference marks.
    std::int64_t TriggerCountAt(Nanoseconds time) const override;

    MasterSettings master;

protected:
    std::vector<KeptSetting> KeptSettings(Nanoseconds time) override;
    void UseSignal(const SignalDescription& signal) override;

private:
    /// State of the interface at one instant.
    struct State {
        Nanoseconds instant{};
        double position = 0.0; ///< in lines
        std::int64_t count = 0;
        TavikLibrary::eRefAction action = TavikLibrary::eRefAction::None;
        std::int64_t travel = 0;   ///< in counts, up and down alike
        double straightFrom = 0.0; ///< start of the straight movement of the next step
    };
    const State& CheckpointBefore(Nanoseconds instant) const;
    std::int64_t TravelAt(const State& checkpoint, Nanoseconds instant) const;
    State StateAt(Nanoseconds time) const;
    void StepTo(State& state, Nanoseconds instant) const;
    void PassMarks(State& state, double position) const;
    void RequirePreset(int counts) const;
    /// Advances the state to now, before a setting changes.
    void Arrive(Nanoseconds time);

    TavikLibrary::eQuadratureMode mode = TavikLibrary::eQuadratureMode::quadX4;
    TavikLibrary::eEncoderInterfaceType interfaceType = TavikLibrary::eEncoderInterfaceType::Differential;
    int preset = 0;
    Nanoseconds step; ///< between two polls of the encoder
    /// Latest states, at whole steps; never empty. Extended when a later time is requested.
    mutable std::deque<State> way;
    /// Latest requested state; a changed signal starts from it.
    mutable State seen;
};

} // namespace TavikSimulator
