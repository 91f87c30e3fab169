// The rate that "Time Readings" of the module page shows.

#include "benchmarks/TimedRate.h"
#include "library/TavikModule.h"

int main(int argc, char* argv[]) {
    Benchmarks::CompareTimedRates(
        argc, argv, "Time Readings, readings per second", "moduleWidget",
        [](Benchmarks::BareLibrary& bare) { return [module = bare.Module(0)] { module->ReadInCounts(); }; });
    return 0;
}
