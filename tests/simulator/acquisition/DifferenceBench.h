#pragma once

#include "library/TavikDifference.h"
#include "tests/simulator/Bench.h"

#include <cmath>

namespace Difference {

enum Status { Idle = 0, Running = 2, Finished = 3, Ended = 5 };

/// A probe without averaging has a reading every 4 samples of 256 us.
constexpr double probePeriod = 0.001024;
constexpr double transactionAtHighSpeed = 0.00035;

inline const std::string Probe1 =
    "<module type=\"KX\" identity=\"KX00000001\" stroke=\"2\">"
    "<signal motion=\"sine\" amplitude=\"0.6\" base=\"1\" period=\"2\" noise=\"0\"/></module>";
inline const std::string Probe2 = "<module type=\"KX\" identity=\"KX00000002\" stroke=\"2\"/>";
inline const std::string Pins = "<module type=\"SWAX\" identity=\"SWAX000003\"/>";

inline TavikLibrary::ModuleDifference* Of(ConnectedServer& server, unsigned int index) {
    return server.Module(index)->Difference();
}

inline TavikLibrary::NetworkDifference* Run(ConnectedServer& server) {
    return server.Network()->Difference();
}

inline void StartWith(ConnectedServer& server, std::initializer_list<unsigned int> modules) {
    for (const unsigned int index : modules) {
        Of(server, index)->setEnabled(true);
    }
    Run(server)->Start();
}

/// Readings at whole multiples of a period after one time, up to another.
inline int Due(double after, double until, double period) {
    return static_cast<int>(std::floor(until / period)) - static_cast<int>(std::floor(after / period));
}

} // namespace Difference
