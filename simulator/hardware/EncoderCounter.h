#pragma once

#include "simulator/hardware/TypeDescriptions.h"

#include <cstdint>

namespace TavikSimulator {

/// Counts of an interface while an encoder moves straight from one position to another (in lines). A mode that does not
/// fit the encoder's output counts the edges that it sees:
///
/// encoder \ mode    x1, x2, x4              count A/B                  count/direction
/// quadrature        1, 2, 4 edges a line    up on A, down again on B   a line, up or down
/// up/down pulses    nothing                 a line, up or down         lines forward only
/// count/direction   nothing                 a line, always up          a line, up or down
std::int64_t CountsBetween(double from, double to, EncoderOutput output, TavikLibrary::eQuadratureMode mode);

/// Travel in counts, up and down alike: never less than for a part of the travel.
std::int64_t CountsTravelled(double from, double to, EncoderOutput output, TavikLibrary::eQuadratureMode mode);

/// Reference marks that an encoder passes between two positions.
struct MarksPassed {
    bool any = false;
    double first = 0.0;
    double last = 0.0;
};
MarksPassed MarksBetween(double from, double to, const EncoderDescription& encoder);

} // namespace TavikSimulator
