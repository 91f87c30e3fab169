#include "simulator/acquisition/TriggerFollower.h"

#include "simulator/acquisition/BufferedModule.h"
#include "simulator/hardware/ModuleHardware.h"

#include <algorithm>

namespace TavikSimulator {

TriggerFollower::TriggerFollower(const ModuleHardware& triggeringModule, int countsPerTrigger, Nanoseconds from)
    : master(triggeringModule), step(countsPerTrigger), begin(from), due(CountAt(0) + step) {}

std::vector<Nanoseconds> TriggerFollower::Until(Nanoseconds instant) {
    std::vector<Nanoseconds> instants;
    const std::int64_t last = (instant - begin) / TimingUnit;
    const std::int64_t reached = CountAt(last);
    while (due <= reached) {
        polls = FirstPollWith(due, polls, last);
        instants.push_back(InstantOf(polls));
        due += ((CountAt(polls) - due) / step + 1) * step;
    }
    polls = last;
    return instants;
}

Nanoseconds TriggerFollower::InstantOf(std::int64_t poll) const {
    return begin + poll * TimingUnit;
}

std::int64_t TriggerFollower::CountAt(std::int64_t poll) const {
    return master.TriggerCountAt(InstantOf(poll));
}

// The next trigger is usually near: the interval is doubled until it contains the trigger, then halved. The count never
// decreases.
std::int64_t TriggerFollower::FirstPollWith(std::int64_t count, std::int64_t before, std::int64_t last) const {
    std::int64_t ahead = 1;
    while (before + ahead < last && CountAt(before + ahead) < count) {
        before += ahead;
        ahead *= 2;
    }
    last = std::min(last, before + ahead);
    while (before + 1 < last) {
        const std::int64_t middle = before + (last - before) / 2;
        (CountAt(middle) >= count ? last : before) = middle;
    }
    return last;
}

} // namespace TavikSimulator
