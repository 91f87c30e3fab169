#include "simulator/files/SignalElement.h"

#include <limits>
#include <sstream>

namespace TavikSimulator {

namespace {

constexpr double Largest = std::numeric_limits<double>::max();

double AnyNumber(BenchElement& element, const char* attribute, double otherwise) {
    return element.Number(attribute, otherwise, -Largest, Largest);
}

void ReadMotion(BenchElement& element, SignalDescription& signal) {
    if (const auto name = element.Text("motion")) {
        const auto motion = MotionFromName(*name);
        if (!motion) {
            element.Fail("\"" + *name +
                         "\" is not a motion; it is one of: still, sine, triangle, square, steps, ramp.");
        }
        signal.motion = *motion;
    }
    signal.base = AnyNumber(element, "base", signal.base);
    signal.amplitude = AnyNumber(element, "amplitude", signal.amplitude);
    signal.period = AnyNumber(element, "period", signal.period);
    signal.phase = AnyNumber(element, "phase", signal.phase);
    signal.rate = AnyNumber(element, "rate", signal.rate);
    if (const auto parts = element.Text("parts")) {
        signal.parts.clear();
        std::istringstream stream(*parts);
        for (std::string part; stream >> part;) {
            signal.parts.push_back(element.NumberIn("parts", part));
        }
    }
}

void ReadForm(BenchElement& element, SignalDescription& signal) {
    signal.revolution = AnyNumber(element, "revolution", signal.revolution);
    for (BenchElement& child : element.Children("harmonic")) {
        Harmonic harmonic;
        harmonic.lobes = static_cast<int>(child.Whole("lobes", harmonic.lobes, 0, std::numeric_limits<int>::max()));
        harmonic.amplitude = AnyNumber(child, "amplitude", harmonic.amplitude);
        harmonic.phase = AnyNumber(child, "phase", harmonic.phase);
        child.Finish();
        signal.harmonics.push_back(harmonic);
    }
}

} // namespace

SignalDescription ReadSignal(BenchElement& element, SignalDescription signal) {
    ReadMotion(element, signal);
    ReadForm(element, signal);
    signal.driftAmplitude = AnyNumber(element, "drift-amplitude", signal.driftAmplitude);
    signal.driftPeriod = AnyNumber(element, "drift-period", signal.driftPeriod);
    signal.warmUp = AnyNumber(element, "warm-up", signal.warmUp);
    signal.warmUpTime = AnyNumber(element, "warm-up-time", signal.warmUpTime);
    signal.noise = AnyNumber(element, "noise", signal.noise);
    element.Finish();
    const std::string reason = Validate(signal);
    if (!reason.empty()) {
        element.Fail(reason);
    }
    return signal;
}

} // namespace TavikSimulator
