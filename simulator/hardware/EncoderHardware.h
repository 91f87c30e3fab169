#pragma once

#include "library/TavikModuleQTA.h"
#include "simulator/hardware/MasterSettings.h"
#include "simulator/hardware/ModuleHardware.h"

#include <cstdint>
#include <deque>

namespace TavikSimulator {

/// An encoder interface and the encoder that is plugged in. Its signal is the encoder's position in
/// lines; the count follows the way that the encoder went, reference marks on the way included. Setters
/// throw TavikException, and change nothing, for a value that the interface does not know.
///
/// A collection may look back: for about a second before the latest time that was asked for, but not beyond the last
/// change of a setting, the interface still knows what it saw.
class EncoderHardware : public ModuleHardware {
public:
    explicit EncoderHardware(const ModuleDescription& description);

    /// Without a reading (SignalFault) while the encoder is wired in another way than the interface is set to.
    Reading ReadAt(Nanoseconds time) const override;
    /// The count begins at 0 again.
    void PowerOn(Nanoseconds time) override;

    /// An action that happens once is None again when it has happened.
    TavikLibrary::eRefAction RefAction(Nanoseconds time) const;
    void SetRefAction(TavikLibrary::eRefAction action, Nanoseconds time);
    TavikLibrary::eQuadratureMode QuadratureMode() const { return mode; }
    void SetQuadratureMode(TavikLibrary::eQuadratureMode mode, Nanoseconds time);
    TavikLibrary::eEncoderInterfaceType InterfaceType() const { return interfaceType; }
    void SetInterfaceType(TavikLibrary::eEncoderInterfaceType type);
    int PresetInCounts() const { return preset; }
    void SetPresetInCounts(int counts, Nanoseconds time);

    MasterSettings* Master() override { return &master; }
    /// Every count triggers, up or down; what presets and reference marks make of the count does not matter.
    std::int64_t TriggerCountAt(Nanoseconds time) const override;

    MasterSettings master;

protected:
    std::vector<KeptSetting> KeptSettings(Nanoseconds time) override;
    void UseSignal(const SignalDescription& signal) override;

private:
    /// The interface at one instant.
    struct State {
        Nanoseconds instant{};
        double position = 0.0; ///< in lines
        std::int64_t count = 0;
        TavikLibrary::eRefAction action = TavikLibrary::eRefAction::None;
        std::int64_t travel = 0;   ///< counts, whatever their direction
        double straightFrom = 0.0; ///< from here it goes straight on to where it is a step later
    };
    const State& CheckpointBefore(Nanoseconds instant) const;
    std::int64_t TravelAt(const State& checkpoint, Nanoseconds instant) const;
    State StateAt(Nanoseconds time) const;
    void StepTo(State& state, Nanoseconds instant) const;
    void PassMarks(State& state, double position) const;
    void RequirePreset(int counts) const;
    /// Makes the way until now, before a setting changes.
    void Arrive(Nanoseconds time);

    TavikLibrary::eQuadratureMode mode = TavikLibrary::eQuadratureMode::quadX4;
    TavikLibrary::eEncoderInterfaceType interfaceType = TavikLibrary::eEncoderInterfaceType::Differential;
    int preset = 0;
    Nanoseconds step; ///< between two polls of the encoder
    /// The latest stretch of the way, at whole steps; never empty. It goes on when the interface is asked.
    mutable std::deque<State> way;
    /// When the interface was asked last; another signal begins from there.
    mutable State seen;
};

} // namespace TavikSimulator
