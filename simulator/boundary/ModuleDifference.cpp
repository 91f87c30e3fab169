#include "library/TavikDifference.h"
#include "simulator/boundary/DifferenceImplementation.h"

namespace TavikLibrary {

ModuleDifference::ModuleDifference(Implementation* module) : implementation(module) {}

ModuleDifference::~ModuleDifference() {
    delete implementation;
}

bool ModuleDifference::Enabled() {
    Implementation& self = *implementation;
    return self.Local("Enabled", [&self] { return self.part->enabled; });
}

void ModuleDifference::setEnabled(bool enabled) {
    Implementation& self = *implementation;
    self.Local(
        "setEnabled", [&] { self.module.network.acquisition.difference.SetEnabled(*self.module.hardware, enabled); },
        enabled);
}

void ModuleDifference::ReadDifference() {
    Implementation& self = *implementation;
    self.module.bench.gate.Call(
        self.name, "ReadDifference", [&self] { self.module.network.SpendTransactions(1); },
        [&self] {
            self.module.RequireListed();
            self.module.network.RequireConnected();
            self.module.network.acquisition.difference.Fetch(*self.module.hardware);
        });
}

int ModuleDifference::MaxCounts() {
    return implementation->Fetched("MaxCounts", &TavikSimulator::DifferenceValues::maxCounts);
}

int ModuleDifference::MinCounts() {
    return implementation->Fetched("MinCounts", &TavikSimulator::DifferenceValues::minCounts);
}

int ModuleDifference::DiffCounts() {
    return implementation->Fetched("DiffCounts", &TavikSimulator::DifferenceValues::diffCounts);
}

std::int64_t ModuleDifference::SumCounts() {
    return implementation->Fetched("SumCounts", &TavikSimulator::DifferenceValues::sumCounts);
}

int ModuleDifference::ReadingCount() {
    return implementation->Fetched("ReadingCount", &TavikSimulator::DifferenceValues::readings);
}

double ModuleDifference::Max() {
    return implementation->Fetched("Max", &TavikSimulator::DifferenceValues::max);
}

double ModuleDifference::Min() {
    return implementation->Fetched("Min", &TavikSimulator::DifferenceValues::min);
}

double ModuleDifference::Sum() {
    return implementation->Fetched("Sum", &TavikSimulator::DifferenceValues::sum);
}

double ModuleDifference::Diff() {
    return implementation->Fetched("Diff", &TavikSimulator::DifferenceValues::diff);
}

int ModuleDifference::Error() {
    return implementation->Fetched("Error", &TavikSimulator::DifferenceValues::code);
}

} // namespace TavikLibrary
