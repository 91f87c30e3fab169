#include "benchmarks/Figure.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <unistd.h>

double Benchmarks::Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

void Benchmarks::PrintFigure(const std::string& what, double figure, double floor, const std::string& unit) {
    std::printf("%-44s %12.2f %-6s floor %12.2f %-6s ratio %.3f\n", what.c_str(), figure, unit.c_str(), floor,
                unit.c_str(), figure / floor);
    std::fflush(stdout);
}

double Benchmarks::ResidentMebibytes() {
    long size = 0;
    long resident = 0;
    std::ifstream("/proc/self/statm") >> size >> resident;
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

double Benchmarks::MonotonicSeconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}
