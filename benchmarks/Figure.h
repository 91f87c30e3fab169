#pragma once

#include <string>
#include <vector>

// What every benchmark needs: the middle of several runs, and one line for a figure beside its floor.
namespace Benchmarks {

/// The median. The values must not be empty.
double Median(std::vector<double> values);

/// Prints a figure, its floor (the same work without what is measured) and their ratio.
void PrintFigure(const std::string& what, double figure, double floor, const std::string& unit);

/// Resident memory of this process in MiB, from the kernel's account of it.
double ResidentMebibytes();

/// Seconds on a clock that all processes of this computer share and that only goes forward.
double MonotonicSeconds();

} // namespace Benchmarks
