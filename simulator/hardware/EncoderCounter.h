#pragma once

#include "simulator/hardware/TypeDescriptions.h"

#include <cstdint>

namespace TavikSimulator {

/// How many counts an interface counts while an encoder moves straight from one position to another
/// (in lines). Where the interface's mode does not fit what the encoder puts out, it counts what it sees:
///
/// encoder \ mode    x1, x2, x4              count A/B                  count/direction
/// quadrature        1, 2, 4 edges a line    up on A, down again on B   a line, up or down
/// up/down pulses    nothing                 a line, up or down         lines forward only
/// count/direction   nothing                 a line, always up          a line, up or down
std::int64_t CountsBetween(double from, double to, EncoderOutput output, TavikLibrary::eQuadratureMode mode);

/// How many counts there were on such a way, those down as good as those up: never less than on a part of the way.
std::int64_t CountsTravelled(double from, double to, EncoderOutput output, TavikLibrary::eQuadratureMode mode);

/// Where on its way from one position to another an encoder passes reference marks.
struct MarksPassed {
    bool any = false;
    double first = 0.0;
    double last = 0.0;
};
MarksPassed MarksBetween(double from, double to, const EncoderDescription& encoder);

} // namespace TavikSimulator
