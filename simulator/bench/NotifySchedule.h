#pragma once

#include "library/TavikEnums.h"
#include "simulator/bench/AllModules.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace TavikSimulator {

/// A notify run: when which module announces itself, and when the run is over.
class NotifySchedule {
public:
    /// Plans the run from the modules that are on the wire without being in the list.
    NotifySchedule(const AllModules& modules, Nanoseconds begun);

    /// The modules whose time has come by now and that can be heard at this speed, in the order of their
    /// times; each is handed out once.
    std::vector<std::shared_ptr<ModuleHardware>> Arrivals(Nanoseconds now, TavikLibrary::eNetSpeed speed);
    /// The run ends with the last announcement; without any it ends after a silence of 2 s.
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
