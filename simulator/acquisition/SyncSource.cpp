#include "simulator/acquisition/SyncSource.h"

#include "simulator/hardware/EncoderHardware.h"
#include "simulator/hardware/MasterSettings.h"

#include <algorithm>

namespace TavikSimulator {

using TavikLibrary::eDynamicMasterMode;
using TavikLibrary::eRefAction;

namespace {

class FromController : public SyncSource {
public:
    FromController(Nanoseconds theBeginning, Nanoseconds theInterval)
        : beginning(theBeginning), interval(theInterval) {}

    std::optional<Nanoseconds> Next(Nanoseconds until) override {
        const Nanoseconds next = beginning + (given + 1) * interval;
        if (next > until) {
            return std::nullopt;
        }
        ++given;
        return next;
    }

private:
    const Nanoseconds beginning;
    const Nanoseconds interval;
    std::int64_t given = 0;
};

/// Polls the trigger master's count every millisecond and searches the last interval for a trigger. The syncs do not
/// depend on how often the collection is advanced.
class FromMaster : public SyncSource {
public:
    FromMaster(ModuleHardware& theMaster, Nanoseconds theBeginning, Nanoseconds theShortestInterval)
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

    std::optional<Nanoseconds> Next(Nanoseconds until) override {
        while (true) {
            if (const auto sync = BetweenPolls()) {
                ready = *sync + shortestInterval - 2 * tolerance;
                *target += settings.TxSync();
                return sync;
            }
            const Nanoseconds next = beginning + (polls + 1) * pollInterval;
            if (next > until) {
                return std::nullopt;
            }
            PollAt(next);
        }
    }

    bool Missed() const override { return missed; }

private:
    struct Poll {
        Nanoseconds time;
        std::int64_t count;
    };
    static constexpr std::chrono::milliseconds pollInterval{1};
    /// Parts of a poll interval in the search for a trigger: 61 ns each.
    static constexpr std::int64_t parts = 1 << 14;
    static constexpr Nanoseconds tolerance{100}; ///< of the instant of a trigger

    /// Waits for the reference mark, which starts the counting and sets the master's count to 0 or its preset.
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

    void PollAt(Nanoseconds time) {
        ++polls;
        before = after;
        after = {time, master.TriggerCountAt(time)};
        if (waiting != nullptr && waiting->RefAction(time) == eRefAction::None) {
            waiting = nullptr;
            target = after.count + settings.TxSync();
        }
    }

    /// The next trigger in the last poll interval for which the modules are ready.
    std::optional<Nanoseconds> BetweenPolls() {
        if (!target || after.count < *target) {
            return std::nullopt;
        }
        if (TimeOf(*target) < ready) {
            missed = true;
            const std::int64_t count = ready < after.time ? master.TriggerCountAt(ready) : after.count;
            *target += (std::max(count - *target, std::int64_t{0}) / settings.TxSync() + 1) * settings.TxSync();
        }
        return after.count < *target ? std::nullopt : std::optional<Nanoseconds>(TimeOf(*target));
    }

    /// Instant at which the master reached a count in the last poll interval.
    Nanoseconds TimeOf(std::int64_t count) const {
        std::int64_t earlier = 0;
        std::int64_t later = parts;
        while (later - earlier > 1) {
            const std::int64_t middle = (earlier + later) / 2;
            (master.TriggerCountAt(Part(middle)) < count ? earlier : later) = middle;
        }
        return Part(later);
    }

    /// The end of a part of the last poll interval, rounded to the nearest nanosecond.
    Nanoseconds Part(std::int64_t part) const {
        return before.time + (part * Nanoseconds(pollInterval) + Nanoseconds(parts / 2)) / parts;
    }

    ModuleHardware& master;
    const MasterSettings settings;
    const Nanoseconds beginning;
    const Nanoseconds shortestInterval;
    Nanoseconds ready; ///< when the modules are ready for the next trigger
    std::int64_t polls = 0;
    Poll before;
    Poll after;
    EncoderHardware* waiting = nullptr; ///< the master, until it has passed its reference mark
    std::optional<std::int64_t> target; ///< the count that triggers next
    bool missed = false;
};

} // namespace

std::unique_ptr<SyncSource> ControllerSyncs(Nanoseconds beginning, Nanoseconds interval) {
    return std::make_unique<FromController>(beginning, interval);
}

std::unique_ptr<SyncSource> MasterSyncs(ModuleHardware& master, Nanoseconds beginning, Nanoseconds shortestInterval) {
    return std::make_unique<FromMaster>(master, beginning, shortestInterval);
}

} // namespace TavikSimulator
