#pragma once

#include "simulator/hardware/KeptSetting.h"
#include "simulator/hardware/ModuleDescription.h"
#include "simulator/signals/Reading.h"
#include "simulator/signals/Signal.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace TavikSimulator {

class MasterSettings;

/// A module on the bus: its description, settings and measurand. It outlasts its place in a list. Guarded by the
/// bench's lock.
class ModuleHardware {
public:
    /// Throws std::invalid_argument for an invalid description.
    explicit ModuleHardware(const ModuleDescription& description);
    virtual ~ModuleHardware() = default;
    ModuleHardware(const ModuleHardware&) = delete;
    ModuleHardware& operator=(const ModuleHardware&) = delete;

    const ModuleDescription& Description() const { return description; }
    const std::string& Identity() const { return description.identity; }
    bool CanWorkAt(TavikLibrary::eNetSpeed speed) const;

    /// Reading at a bench time.
    virtual Reading ReadAt(Nanoseconds time) const;
    /// Interval between readings when the module reads by itself.
    virtual Nanoseconds ReadingPeriod() const;
    virtual double CountsPerUnit() const;
    /// Present measuring range and its unit.
    virtual double Offset() const;
    virtual double Stroke() const;
    virtual std::string Unit() const;
    /// Throws TavikException when the library must not read the module now.
    virtual void RequireReadable() const;
    /// Whether the module answers at a bench time: it is plugged in and not restarting.
    virtual bool Answers(Nanoseconds time) const;
    /// Throws TavikException when the module does not answer.
    void RequireAnswer(Nanoseconds time, const std::string& networkName) const;
    /// Settings as a trigger master; null for a module that cannot trigger.
    virtual MasterSettings* Master();
    /// Travel of a trigger master in counts until a bench time; never decreases.
    virtual std::int64_t TriggerCountAt(Nanoseconds time) const;
    /// Switches power on at a bench time; volatile state is lost.
    virtual void PowerOn(Nanoseconds time);

    /// Settings for a network file at a bench time. Output states and a laser's beam are left out: loading a file must
    /// not switch anything on.
    StoredSettings Settings(Nanoseconds time);
    /// Throws TavikException for settings that the module does not have or support.
    void RequireSettings(const StoredSettings& settings, Nanoseconds time);
    /// Sets settings that RequireSettings has accepted.
    void UseSettings(const StoredSettings& settings, Nanoseconds time);

    /// Holds the measurand at a position in the module's unit.
    virtual void Hold(double position);
    virtual void Release();

    bool present = true;
    bool listed = false;
    /// Time of the announcement after the start of a notify run; none for a module without one.
    std::optional<Nanoseconds> announcesAfter;
    /// Removed from the list: announces itself in the next notify run, after the modules with a time of their own.
    bool announcesWhenAsked = false;
    /// Identity of the listed module whose T-connector this module is plugged into.
    std::string replaces;

protected:
    virtual std::vector<KeptSetting> KeptSettings(Nanoseconds time);
    /// Called after the signal has changed.
    virtual void UseSignal(const SignalDescription& signal);
    const Signal& Measurand() const { return signal; }
    const MeasuringRange& Range() const { return range; }
    /// Information about the module, for types that can change it.
    ModuleDescription& Information() { return description; }

private:
    ModuleDescription description;
    Signal signal;
    MeasuringRange range;
};

} // namespace TavikSimulator
