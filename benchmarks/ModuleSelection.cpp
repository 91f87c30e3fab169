// Selecting a module on the network of 150 modules: the time until its page is drawn. The library's part of it is
// the same calls made without a window; what is left, the panels' own part, stands beside the bare cost of drawing
// the two pages when nothing in them has changed.

#include "app/MainWindow.h"
#include "benchmarks/Figure.h"
#include "benchmarks/Window.h"
#include "library/TavikException.h"
#include "library/TavikModuleKX.h"
#include "library/TavikNetwork.h"
#include "simulator/control/BenchControl.h"

#include <QApplication>
#include <QListWidget>
#include <QTabWidget>

#include <cstdio>

namespace {

const char* const networkName = "Full rack";
constexpr int turns = 5;
constexpr int networkPage = 1;
constexpr int modulePage = 2;

/// Milliseconds per module, over all modules of the list.
double SelectAll(MainWindow& window) {
    const int count = Benchmarks::Find<QListWidget>(window, "listModules")->count();
    auto* tabs = Benchmarks::Find<QTabWidget>(window, "tabWidget");
    const double started = Benchmarks::MonotonicSeconds();
    for (int row = 0; row < count; ++row) {
        Benchmarks::SelectModule(window, row);
        tabs->setCurrentIndex(modulePage);
        QCoreApplication::processEvents();
    }
    return (Benchmarks::MonotonicSeconds() - started) * 1000 / count;
}

void AskInformation(TavikLibrary::TavikModule* module) {
    module->Identity();
    module->Identity();
    module->ModuleType();
    module->DeviceType();
    module->SoftwareVersion();
    try {
        module->ProbeIdentity();
    } catch (const TavikLibrary::TavikException&) { // NOLINT(bugprone-empty-catch)
        // A module without a probe identity says so by an exception.
    }
    module->BufferedCapable();
    module->BufferedMasterCapable();
    module->DynamicCapable();
    module->Dynamic2Capable();
    module->DynamicMasterCapable();
    module->DifferenceCapable();
    module->ReadBurstCapable();
    module->SpeedAvailable(TavikLibrary::eNetSpeed::Low);
    module->SpeedAvailable(TavikLibrary::eNetSpeed::High);
    module->SpeedAvailable(TavikLibrary::eNetSpeed::UltraHigh);
    module->HotSwappable();
    module->Offset();
    module->Stroke();
    module->CountsPerUnitOfMeasure();
    module->UnitsOfMeasure();
    module->Status()->UpdateStatus();
    module->Status()->Status();
    module->Status()->ErrorCode();
    module->Status()->ErrorString();
}

void AskProbe(TavikLibrary::TavikModule* module) {
    if (auto* probe = dynamic_cast<TavikLibrary::TavikModuleKX*>(module)) {
        probe->Resolution();
        probe->Averaging();
        probe->AvailableResolutions();
        probe->AvailableAveragings();
    }
}

double AskAll(Benchmarks::BareLibrary& library) {
    const int count = library.Network()->ModuleCount();
    const double started = Benchmarks::MonotonicSeconds();
    for (int index = 0; index < count; ++index) {
        TavikLibrary::TavikModule* module = library.Module(static_cast<unsigned int>(index));
        AskInformation(module);
        AskProbe(module);
    }
    return (Benchmarks::MonotonicSeconds() - started) * 1000 / count;
}

/// Milliseconds to draw the network's page and then the module's page, when nothing in them has changed.
double RedrawPages(MainWindow& window) {
    constexpr int redraws = 30;
    auto* tabs = Benchmarks::Find<QTabWidget>(window, "tabWidget");
    const double started = Benchmarks::MonotonicSeconds();
    for (int redraw = 0; redraw < redraws; ++redraw) {
        for (const int page : {networkPage, modulePage}) {
            tabs->setCurrentIndex(page);
            QCoreApplication::processEvents();
        }
    }
    return (Benchmarks::MonotonicSeconds() - started) * 1000 / redraws;
}

} // namespace

int main(int argc, char* argv[]) {
    Benchmarks::LeaveOutOpenGl();
    const QApplication application(argc, argv);
    TavikSimulator::UseDefaultBench();
    MainWindow window;
    window.show();
    const int row = Benchmarks::RowOfNetwork(window, QLatin1String(networkName));
    Benchmarks::ConnectNetwork(window, row);

    TavikSimulator::UseDefaultBench();
    Benchmarks::BareLibrary bare(static_cast<unsigned int>(row));

    std::vector<double> selected;
    std::vector<double> redrawn;
    std::vector<double> asked;
    for (int turn = 0; turn < turns; ++turn) {
        selected.push_back(SelectAll(window));
        redrawn.push_back(RedrawPages(window));
        asked.push_back(AskAll(bare));
    }
    using Benchmarks::Median;
    const double library = Median(asked);
    std::printf("Selecting a module on %s: %.2f ms, of which the library %.2f ms\n", networkName, Median(selected),
                library);
    Benchmarks::PrintFigure("Selecting a module, the panels' own part", Median(selected) - library, Median(redrawn),
                            "ms");
    return 0;
}
