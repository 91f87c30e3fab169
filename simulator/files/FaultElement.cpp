#include "simulator/files/FaultElement.h"

#include "library/TavikException.h"
#include "simulator/bench/Faults.h"

#include <limits>

namespace TavikSimulator {

namespace {

constexpr double LongestTime = 1e9; // seconds
constexpr long long LargestCount = 1000000000;

void ReadTrigger(BenchElement& element, Fault& fault) {
    fault.trigger = element.OneOf<FaultTrigger>("when", FaultTrigger::Once,
                                                {{"once", FaultTrigger::Once},
                                                 {"nth", FaultTrigger::Nth},
                                                 {"from-nth", FaultTrigger::FromNth},
                                                 {"during", FaultTrigger::During},
                                                 {"probability", FaultTrigger::Probability}});
    fault.n = static_cast<std::uint64_t>(element.Whole("n", 1, 1, LargestCount));
    fault.from = element.Number("from", 0.0, 0.0, LongestTime);
    fault.duration = element.Number("duration", 0.0, 0.0, LongestTime);
    fault.probability = element.Number("probability", 1.0, 0.0, 1.0);
    fault.seed = static_cast<std::uint64_t>(element.Whole("seed", 1, 0, std::numeric_limits<long long>::max()));
}

void ReadEffect(BenchElement& element, Fault& fault) {
    fault.effect = element.OneOf<FaultEffect>("effect", FaultEffect::ThrowLibrary,
                                              {{"throw", FaultEffect::ThrowLibrary},
                                               {"throw-plain", FaultEffect::ThrowPlain},
                                               {"slow", FaultEffect::Slow},
                                               {"result", FaultEffect::Result}});
    fault.code = static_cast<int>(
        element.Whole("code", fault.code, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
    fault.text = element.Text("text", std::string());
    fault.delay = element.Number("delay", 0.0, 0.0, LongestTime);
}

} // namespace

Fault ReadFault(BenchElement& element) {
    Fault fault;
    fault.object = element.Text("object", fault.object);
    fault.operation = element.Text("operation", fault.operation);
    ReadTrigger(element, fault);
    ReadEffect(element, fault);
    element.Finish();
    try {
        RequirePossible(fault);
    } catch (const TavikLibrary::TavikException& exception) {
        element.Fail(exception.what());
    }
    return fault;
}

} // namespace TavikSimulator
