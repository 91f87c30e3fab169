#include "simulator/bench/NotifySchedule.h"

#include "simulator/hardware/ModuleHardware.h"

#include <algorithm>

namespace TavikSimulator {

namespace {

constexpr std::chrono::seconds Silence{2};
/// Interval between announcements of modules without a time of their own.
constexpr std::chrono::milliseconds AnnouncementInterval{250};

} // namespace

NotifySchedule::NotifySchedule(const AllModules& modules, Nanoseconds begun) : silenceEnds(begun + Silence) {
    Nanoseconds last{};
    for (const auto& hardware : modules) {
        if (!hardware->listed && hardware->announcesAfter) {
            plan.push_back({begun + *hardware->announcesAfter, hardware});
            last = std::max(last, *hardware->announcesAfter);
        }
    }
    for (const auto& hardware : modules) {
        if (!hardware->listed && !hardware->announcesAfter && hardware->announcesWhenAsked) {
            last += AnnouncementInterval;
            plan.push_back({begun + last, hardware});
        }
    }
    std::stable_sort(plan.begin(), plan.end(),
                     [](const Announcement& a, const Announcement& b) { return a.at < b.at; });
}

std::vector<std::shared_ptr<ModuleHardware>> NotifySchedule::Arrivals(Nanoseconds now, TavikLibrary::eNetSpeed speed) {
    std::vector<std::shared_ptr<ModuleHardware>> arrivals;
    for (; next < plan.size() && plan[next].at <= now; ++next) {
        const auto& hardware = plan[next].hardware;
        if (hardware->present && !hardware->listed && hardware->CanWorkAt(speed)) {
            arrivals.push_back(hardware);
        }
    }
    return arrivals;
}

bool NotifySchedule::IsOver(Nanoseconds now) const {
    return plan.empty() ? now >= silenceEnds : next == plan.size();
}

} // namespace TavikSimulator
