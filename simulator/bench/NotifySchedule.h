#pragma once

#include "library/TavikEnums.h"
#include "simulator/bench/AllModules.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace TavikSimulator {

/// Schedule of a notify run: the times of announcements and of its end.
class NotifySchedule {
public:
    /// Schedules the modules that are on the bus but not in the list.
    NotifySchedule(const AllModules& modules, Nanoseconds begun);

    /// Returns the modules that are due by now and work at this speed, in the order of their times; each once.
    std::vector<std::shared_ptr<ModuleHardware>> Arrivals(Nanoseconds now, TavikLibrary::eNetSpeed speed);
    /// The run ends with the last announcement; without any, after 2 s.
    bool IsOver(Nanoseconds now) const;

private:
    struct Announcement {
        Nanoseconds at;
        std::shared_ptr<ModuleHardware> hardware;
    };
    std::vector<Announcement> plan; ///< in the order of time
    std::size_t next = 0;
    Nanoseconds silenceEnds;
};

} // namespace TavikSimulator
