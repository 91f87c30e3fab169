#include "simulator/acquisition/SyncSource.h"

#include "simulator/modules/EncoderHardware.h"
#include "simulator/modules/MasterSettings.h"

#include <cmath>

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

/// Looks at the master's count at fixed times and takes its way between two looks for even. So the syncs do not
/// depend on how often the collection is brought up to date.
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
                ready = *sync + shortestInterval;
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
            before = after;
            target = after.count + settings.TxSync();
        }
    }

    /// The next trigger between the last two looks that finds the modules ready.
    std::optional<double> BetweenLooks() {
        if (!target || after.count < *target) {
            return std::nullopt;
        }
        const double secondsPerCount = (after.time - before.time) / static_cast<double>(after.count - before.count);
        const auto timeOf = [&](std::int64_t count) {
            return before.time + static_cast<double>(count - before.count) * secondsPerCount;
        };
        if (timeOf(*target) < ready - rounding) {
            missed = true;
            const double behind =
                std::ceil((ready - rounding - timeOf(*target)) / (secondsPerCount * settings.TxSync()));
            *target += static_cast<std::int64_t>(behind) * settings.TxSync();
        }
        return after.count < *target ? std::nullopt : std::optional<double>(timeOf(*target));
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
