#pragma once

#include "app/MainWindow.h"
#include "benchmarks/Figure.h"
#include "benchmarks/Window.h"
#include "simulator/control/BenchControl.h"

#include <QApplication>
#include <QPushButton>

#include <chrono>
#include <string>
#include <vector>

namespace Benchmarks {

/// Presses a page's "Time Readings" and reads the rate off the box, as an operator would.
inline double RateShown(QWidget& page) {
    const BoxCloser boxCloser;
    Find<QPushButton>(page, "btnTimeReadings")->click();
    return boxCloser.LastText().section(QLatin1Char(' '), 0, 0).toDouble();
}

/// How often a second something can be done in a loop that looks at the clock and does nothing else.
template <class Once>
double BareRate(Once once) {
    using Clock = std::chrono::system_clock;
    const Clock::time_point deadline = Clock::now() + std::chrono::seconds(5);
    int times = 0;
    while (Clock::now() < deadline) {
        once();
        ++times;
    }
    return times / 5.0;
}

/// The rate that "Time Readings" of a page shows on a bench without latency, against a bare loop. Both run for 5
/// seconds at a time and take turns. makeOnce is given the library and returns what the loop does.
template <class MakeOnce>
void CompareTimedRates(int argc, char* argv[], const std::string& what, const char* page, MakeOnce makeOnce) {
    constexpr int turns = 3;
    LeaveOutOpenGl();
    const QApplication application(argc, argv);
    TavikSimulator::UseDefaultBench();
    TavikSimulator::SetLatency(false);
    MainWindow window;
    window.show();
    ConnectNetwork(window, 0);
    SelectModule(window, 0);

    TavikSimulator::UseDefaultBench();
    TavikSimulator::SetLatency(false);
    BareLibrary bare(0);
    std::vector<double> shown;
    std::vector<double> floor;
    for (int turn = 0; turn < turns; ++turn) {
        shown.push_back(RateShown(*Find<QWidget>(window, page)));
        floor.push_back(BareRate(makeOnce(bare)));
    }
    PrintFigure(what, Median(shown), Median(floor), "1/s");
}

} // namespace Benchmarks
