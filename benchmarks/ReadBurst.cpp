// The rate of read bursts that "Time Readings" of their page shows.

#include "benchmarks/TimedRate.h"
#include "library/TavikNetwork.h"

int main(int argc, char* argv[]) {
    Benchmarks::CompareTimedRates(argc, argv, "Read bursts timed, bursts per second", "readBurstWidget",
                                  [](Benchmarks::BareLibrary& bare) {
                                      return [network = bare.Network()] {
                                          int count = 0;
                                          network->Readburst(count);
                                      };
                                  });
    return 0;
}
