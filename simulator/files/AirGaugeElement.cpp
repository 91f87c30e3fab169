#include "simulator/files/AirGaugeElement.h"

#include "simulator/files/SignalElement.h"

namespace TavikSimulator {

using TavikLibrary::ePNX_UOM;

namespace {

constexpr double Largest = 1e9;
constexpr double LargestLimit = 100000.0; // mm

NozzleStep ReadStep(BenchElement& element) {
    NozzleStep step;
    element.Required("what");
    step.part = element.OneOf<NozzlePart>("what", step.part,
                                          {{"nothing", NozzlePart::Nothing},
                                           {"master-a", NozzlePart::MasterA},
                                           {"master-b", NozzlePart::MasterB},
                                           {"work-piece", NozzlePart::WorkPiece}});
    step.duration = element.Time("seconds", step.duration, 0.0, Largest);
    element.Finish();
    return step;
}

std::optional<double> ReadLimit(BenchElement& element, const char* attribute) {
    if (!element.Has(attribute)) {
        return std::nullopt;
    }
    return element.Number(attribute, 0.0, -LargestLimit, LargestLimit);
}

AirGaugeDescription ReadOne(BenchElement& element) {
    AirGaugeDescription gauge;
    gauge.masterA = element.Number("master-a", gauge.masterA, -Largest, Largest);
    gauge.masterB = element.Number("master-b", gauge.masterB, -Largest, Largest);
    gauge.clearance = element.Number("clearance", gauge.clearance, 0.0, Largest);
    gauge.circuit.orificeDiameter = element.Number("orifice", gauge.circuit.orificeDiameter, 0.0, Largest);
    gauge.circuit.nozzleDiameter = element.Number("nozzle", gauge.circuit.nozzleDiameter, 0.0, Largest);
    gauge.unit = element.OneOf<ePNX_UOM>(
        "unit", gauge.unit, {{"mm", ePNX_UOM::mm}, {"inches", ePNX_UOM::inches}, {"mils", ePNX_UOM::mils}});
    gauge.limitHigh = ReadLimit(element, "limit-high");
    gauge.limitLow = ReadLimit(element, "limit-low");
    gauge.mastered = element.Flag("mastered", gauge.mastered);
    std::vector<BenchElement> supplies = element.Children("supply");
    if (supplies.size() > 1) {
        supplies[1].Fail("An air gauge has one <supply> only.");
    }
    if (!supplies.empty()) {
        gauge.supply = ReadSignal(supplies.front(), gauge.supply);
    }
    for (BenchElement& part : element.Children("part")) {
        gauge.steps.push_back(ReadStep(part));
    }
    element.Finish();
    return gauge;
}

} // namespace

AirGaugeDescription ReadAirGauge(BenchElement& module) {
    std::vector<BenchElement> gauges = module.Children("air-gauge");
    if (gauges.size() > 1) {
        gauges[1].Fail("A module has one <air-gauge> only.");
    }
    if (gauges.empty()) {
        return {};
    }
    AirGaugeDescription gauge = ReadOne(gauges.front());
    const std::string reason = Validate(gauge);
    if (!reason.empty()) {
        gauges.front().Fail(reason);
    }
    return gauge;
}

} // namespace TavikSimulator
