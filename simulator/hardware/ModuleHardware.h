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

/// A module as it stands on the wire: what it is, what it is set to, and what it feels. It goes on
/// existing while it is not in any list. Guarded by the bench's lock.
class ModuleHardware {
public:
    /// Throws std::invalid_argument with a sentence for an impossible description.
    explicit ModuleHardware(const ModuleDescription& description);
    virtual ~ModuleHardware() = default;
    ModuleHardware(const ModuleHardware&) = delete;
    ModuleHardware& operator=(const ModuleHardware&) = delete;

    const ModuleDescription& Description() const { return description; }
    const std::string& Identity() const { return description.identity; }
    bool CanWorkAt(TavikLibrary::eNetSpeed speed) const;

    /// The module's reading at a bench time in seconds.
    virtual Reading ReadAt(Nanoseconds time) const;
    /// From one reading to the next when the module reads by itself, in seconds.
    virtual Nanoseconds ReadingPeriod() const;
    virtual double CountsPerUnit() const;
    /// The measuring range and its unit, as they are now.
    virtual double Offset() const;
    virtual double Stroke() const;
    virtual std::string Unit() const;
    /// Throws TavikException when the module has a reading but must not hand it to the library now.
    virtual void RequireReadable() const;
    /// Whether the module answers at a bench time: it is plugged in and not busy with itself.
    virtual bool Answers(Nanoseconds time) const;
    /// Throws TavikException when the module does not answer.
    void RequireAnswer(Nanoseconds time, const std::string& networkName) const;
    /// How the module triggers the samples and syncs of collections; null for a module that cannot.
    virtual MasterSettings* Master();
    /// How many counts a module that triggers collections has gone from its beginning until a bench time; never
    /// less than before.
    virtual std::int64_t TriggerCountAt(Nanoseconds time) const;
    /// Power comes back at a bench time: what the module does not keep without power is lost.
    virtual void PowerOn(Nanoseconds time);

    /// The settings that a network file keeps, at a bench time in seconds. The state of an output and a laser's beam
    /// are not among them: loading a file must not switch anything on.
    StoredSettings Settings(Nanoseconds time);
    /// Throws TavikException for settings that the module does not have or cannot be set to.
    void RequireSettings(const StoredSettings& settings, Nanoseconds time);
    /// Takes settings that RequireSettings has passed.
    void UseSettings(const StoredSettings& settings, Nanoseconds time);

    /// Holds a still part under the gauge, at a position in its unit.
    virtual void Hold(double position);
    virtual void Release();

    bool present = true;
    bool listed = false;
    /// Seconds after the beginning of a notify run; none for a module that does not announce itself.
    std::optional<Nanoseconds> announcesAfter;
    /// Taken out of the list: announces itself in the next notify run, after those with a time of their own.
    bool announcesWhenAsked = false;
    /// The identity of the listed module in whose connector this one is plugged instead.
    std::string replaces;

protected:
    virtual std::vector<KeptSetting> KeptSettings(Nanoseconds time);
    /// The signal has changed; it has been changed in the description already.
    virtual void UseSignal(const SignalDescription& signal);
    const Signal& Measurand() const { return signal; }
    const MeasuringRange& Range() const { return range; }
    /// What the module says of itself, for a module that can come to say something else.
    ModuleDescription& Information() { return description; }

private:
    ModuleDescription description;
    Signal signal;
    MeasuringRange range;
};

} // namespace TavikSimulator
