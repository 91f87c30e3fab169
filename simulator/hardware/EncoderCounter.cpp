#include "simulator/hardware/EncoderCounter.h"

#include <cmath>
#include <cstdlib>

namespace TavikSimulator {

using TavikLibrary::eQuadratureMode;

namespace {

std::int64_t EdgesBetween(double from, double to, double edgesPerLine) {
    return static_cast<std::int64_t>(std::floor(to * edgesPerLine)) -
           static_cast<std::int64_t>(std::floor(from * edgesPerLine));
}

// Channel A rises at the beginning of each line, channel B a quarter of a line later: the count goes up and down again.
std::int64_t UpOnADownOnB(double from, double to) {
    constexpr double untilB = 0.25;
    const auto isUp = [](double position) { return position - std::floor(position) < untilB ? 1 : 0; };
    return isUp(to) - isUp(from);
}

std::int64_t CountedInQuadrature(double from, double to, eQuadratureMode mode) {
    switch (mode) {
    case eQuadratureMode::quadX2:
        return EdgesBetween(from, to, 2.0);
    case eQuadratureMode::quadX4:
        return EdgesBetween(from, to, 4.0);
    case eQuadratureMode::CountAB:
        return UpOnADownOnB(from, to);
    default:
        return EdgesBetween(from, to, 1.0);
    }
}

std::int64_t CountedFromPulses(std::int64_t lines, EncoderOutput output, eQuadratureMode mode) {
    const bool upDown = output == EncoderOutput::UpDown;
    switch (mode) {
    case eQuadratureMode::CountAB:
        return upDown ? lines : std::abs(lines);
    case eQuadratureMode::CountDIR:
        return upDown && lines < 0 ? 0 : lines;
    default:
        // A pulse on one channel while the other is constant counts up and down.
        return 0;
    }
}

} // namespace

std::int64_t CountsBetween(double from, double to, EncoderOutput output, eQuadratureMode mode) {
    if (output == EncoderOutput::Quadrature) {
        return CountedInQuadrature(from, to, mode);
    }
    return CountedFromPulses(EdgesBetween(from, to, 1.0), output, mode);
}

std::int64_t CountsTravelled(double from, double to, EncoderOutput output, eQuadratureMode mode) {
    if (output == EncoderOutput::Quadrature && mode == eQuadratureMode::CountAB) {
        constexpr double upAndDownAgain = 2.0;
        return std::abs(EdgesBetween(from, to, upAndDownAgain));
    }
    return std::abs(CountsBetween(from, to, output, mode));
}

MarksPassed MarksBetween(double from, double to, const EncoderDescription& encoder) {
    if (!encoder.mark) {
        return {};
    }
    const double mark = *encoder.mark;
    const double every = encoder.markEvery;
    // Number of the last mark at or below a position.
    const auto below = [&](double position) {
        return every > 0.0 ? std::floor((position - mark) / every) : (position >= mark ? 0.0 : -1.0);
    };
    const double start = below(from);
    const double end = below(to);
    if (start == end) {
        return {};
    }
    const double first = end > start ? start + 1.0 : start;
    const double last = end > start ? end : end + 1.0;
    return {true, mark + first * every, mark + last * every};
}

} // namespace TavikSimulator
