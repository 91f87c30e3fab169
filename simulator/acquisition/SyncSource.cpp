#include "simulator/acquisition/SyncSource.h"

#include "simulator/hardware/EncoderHardware.h"
#include "simulator/hardware/MasterSettings.h"

#include <algorithm>

namespace TavikSimulator {

using TavikLibrary::eDynamicMasterMode;
using TavikLibrary::eRefAction;

namespace {

constexpr double rounding = 1e-9; // seconds; what bench times may be off by

class FromController : public SyncSource {
public:
    FromController(double theBeginning, double theInterval) : beginning(theBeginning), interval(theInterval) {}

    std::optional<double> Next(double until) override {
        // Multiplied, so that errors do not add up over a long collection.
        const double next = beginning + static_cast<double>(given + 1) * interval;
        if (next > until + rounding) {
            return std::nullopt;
        }
        ++given;
        return next;
    }

private:
    const double beginning;
    const double interval;
    std::int64_t given = 0;
};

/// Looks at the master's count at fixed times, and back for when it got so far. So the syncs do not depend on how often
/// the collection is brought up to date.
class FromMaster : public SyncSource {
public:
    FromMaster(ModuleHardware& theMaster, double theBeginning, double theShortestInterval)
        : master(theMaster),
          settings(*theMaster.Master()),
          beginning(theBeginning),
          shortestInterval(theShortestInterval),
          ready(theBeginning),
          before{theBeginning, theMaster.TriggerCountAt(theBeginning)},
          after(before) {
        if (!WaitForMark()) {
            target = before.count + (settings.Mode() == eDynamicMasterMode::HoldOff ? settings.HoldOff() : 0) +
                     settings.TxSync();
        }
    }

    std::optional<double> Next(double until) override {
        while (true) {
            if (const auto sync = BetweenLooks()) {
                ready = *sync + shortestInterval - 2.0 * accuracy;
                *target += settings.TxSync();
                return sync;
            }
            const double next = beginning + static_cast<double>(looks + 1) * lookInterval;
            if (next > until + rounding) {
                return std::nullopt;
            }
            LookAt(next);
        }
    }

    bool Missed() const override { return missed; }

private:
    struct Look {
        double time;
        std::int64_t count;
    };
    static constexpr double lookInterval = 0.001; // seconds
    static constexpr double accuracy = 1e-7;      // of a trigger's time, in seconds

    /// The reference mark begins the counting, and sets the master's own count to 0 or its preset on the way.
    bool WaitForMark() {
        const bool reset = settings.Mode() == eDynamicMasterMode::Refaction_Reset;
        if (!reset && settings.Mode() != eDynamicMasterMode::Refaction_Preset) {
            return false;
        }
        waiting = dynamic_cast<EncoderHardware*>(&master);
        if (waiting != nullptr) {
            waiting->SetRefAction(reset ? eRefAction::Reset : eRefAction::Preset, beginning);
        }
        return waiting != nullptr;
    }

    void LookAt(double time) {
        ++looks;
        before = after;
        after = {time, master.TriggerCountAt(time)};
        if (waiting != nullptr && waiting->RefAction(time) == eRefAction::None) {
            waiting = nullptr;
            target = after.count + settings.TxSync();
        }
    }

    /// The next trigger between the last two looks that finds the modules ready.
    std::optional<double> BetweenLooks() {
        if (!target || after.count < *target) {
            return std::nullopt;
        }
        if (TimeOf(*target) < ready) {
            missed = true;
            const std::int64_t count = ready < after.time ? master.TriggerCountAt(ready) : after.count;
            *target += (std::max(count - *target, std::int64_t{0}) / settings.TxSync() + 1) * settings.TxSync();
        }
        return after.count < *target ? std::nullopt : std::optional<double>(TimeOf(*target));
    }

    /// When the master reached a count between the last two looks.
    double TimeOf(std::int64_t count) const {
        double earlier = before.time;
        double later = after.time;
        while (later - earlier > accuracy) {
            const double middle = (earlier + later) / 2.0;
            (master.TriggerCountAt(middle) < count ? earlier : later) = middle;
        }
        return later;
    }

    ModuleHardware& master;
    const MasterSettings settings;
    const double beginning;
    const double shortestInterval;
    double ready; ///< when the modules are ready for the next trigger
    std::int64_t looks = 0;
    Look before;
    Look after;
    EncoderHardware* waiting = nullptr; ///< the master, until it has passed its reference mark
    std::optional<std::int64_t> target; ///< the count that triggers next
    bool missed = false;
};

} // namespace

std::unique_ptr<SyncSource> ControllerSyncs(double beginning, double interval) {
    return std::make_unique<FromController>(beginning, interval);
}

std::unique_ptr<SyncSource> MasterSyncs(ModuleHardware& master, double beginning, double shortestInterval) {
    return std::make_unique<FromMaster>(master, beginning, shortestInterval);
}

} // namespace TavikSimulator
