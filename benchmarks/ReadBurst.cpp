// The rate of read bursts that "Time Readings" of their page shows on a bench without latency, against a bare loop that
// reads bursts and looks at the clock. Both run for 5 seconds at a time and take turns.

#include "app/MainWindow.h"
#include "benchmarks/Figure.h"
#include "benchmarks/Window.h"
#include "library/TavikNetwork.h"
#include "simulator/control/BenchControl.h"

#include <QApplication>
#include <QPushButton>

#include <chrono>

namespace {

constexpr int turns = 3;

/// Presses the button and reads the rate off the box, as an operator would.
double RateShown(MainWindow& window) {
    const Benchmarks::BoxCloser boxCloser;
    auto* page = Benchmarks::Find<QWidget>(window, "readBurstWidget");
    Benchmarks::Find<QPushButton>(*page, "btnTimeReadings")->click();
    return boxCloser.LastText().section(QLatin1Char(' '), 0, 0).toDouble();
}

double BareRate(TavikLibrary::TavikNetwork* network) {
    using Clock = std::chrono::system_clock;
    const Clock::time_point deadline = Clock::now() + std::chrono::seconds(5);
    int bursts = 0;
    int count = 0;
    while (Clock::now() < deadline) {
        network->Readburst(count);
        ++bursts;
    }
    return bursts / 5.0;
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
        floor.push_back(BareRate(bare.Network()));
    }
    Benchmarks::PrintFigure("Read bursts timed, bursts per second", Benchmarks::Median(shown),
                            Benchmarks::Median(floor), "1/s");
    return 0;
}
