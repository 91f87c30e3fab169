// The rate that "Time Readings" shows on a bench without latency, against a bare loop that reads and looks at
// the clock. Both run for 5 seconds at a time and take turns.

#include "app/MainWindow.h"
#include "benchmarks/Figure.h"
#include "benchmarks/Window.h"
#include "library/TavikModule.h"
#include "simulator/control/BenchControl.h"

#include <QApplication>
#include <QPushButton>

#include <chrono>
#include <cstdio>

namespace {

constexpr int turns = 3;

/// Presses the button and reads the rate off the box, as an operator would.
double RateShown(MainWindow& window) {
    const Benchmarks::BoxCloser boxCloser;
    Benchmarks::Find<QPushButton>(window, "btnTimeReadings")->click();
    return boxCloser.LastText().section(QLatin1Char(' '), 0, 0).toDouble();
}

double BareRate(TavikLibrary::TavikModule* module) {
    using Clock = std::chrono::system_clock;
    const Clock::time_point deadline = Clock::now() + std::chrono::seconds(5);
    int readings = 0;
    while (Clock::now() < deadline) {
        module->ReadInCounts();
        ++readings;
    }
    return readings / 5.0;
}

} // namespace

int main(int argc, char* argv[]) {
    Benchmarks::LeaveOutOpenGl();
    const QApplication application(argc, argv);
    TavikSimulator::UseDefaultBench();
    TavikSimulator::SetLatency(false);
    MainWindow window;
    window.show();
    Benchmarks::ConnectNetwork(window, 0);
    Benchmarks::SelectModule(window, 0);

    TavikSimulator::UseDefaultBench();
    TavikSimulator::SetLatency(false);
    Benchmarks::BareLibrary bare(0);
    std::vector<double> shown;
    std::vector<double> floor;
    for (int turn = 0; turn < turns; ++turn) {
        shown.push_back(RateShown(window));
        floor.push_back(BareRate(bare.Module(0)));
    }
    Benchmarks::PrintFigure("Time Readings, readings per second", Benchmarks::Median(shown), Benchmarks::Median(floor),
                            "1/s");
    return 0;
}
