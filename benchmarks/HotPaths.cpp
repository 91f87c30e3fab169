// The paths that are gone most often, so many times, for a count of the instructions that each takes: a change shows
// there even on a busy computer. benchmarks/run --counts runs this under valgrind's callgrind, which counts only inside
// MeasuredPath.

#include "app/MainWindow.h"
#include "benchmarks/Figure.h"
#include "benchmarks/Window.h"
#include "library/TavikModule.h"
#include "simulator/control/BenchControl.h"

#include <QApplication>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>

#include <cstring>
#include <functional>

/// Callgrind is told of this function by name.
extern "C" [[gnu::noinline]] void MeasuredPath(const std::function<void()>& path, int times) {
    for (int time = 0; time < times; ++time) {
        path();
    }
}

namespace {

struct HotPath {
    const char* name;
    const char* network;
    int times;
    std::function<void(MainWindow& window)> path;
};

void Click(MainWindow& window, const char* page, const char* button) {
    Benchmarks::Find<QPushButton>(*Benchmarks::Find<QWidget>(window, page), button)->click();
}

const HotPath paths[] = {
    {"read", "Mixed", 200, [](MainWindow& window) { Click(window, "moduleWidget", "btnRead"); }},
    {"burst", "Mixed", 50, [](MainWindow& window) { Click(window, "readBurstWidget", "btnReadInUnits"); }},
    {"refresh", "Full rack", 20, [](MainWindow& window) { Click(window, "tabNetwork", "btnPing"); }},
    {"selection", "Full rack", 20,
     [](MainWindow& window) {
         auto* list = Benchmarks::Find<QListWidget>(window, "listModules");
         list->setCurrentRow((list->currentRow() + 1) % list->count());
     }},
};

} // namespace

int main(int argc, char* argv[]) {
    Benchmarks::LeaveOutOpenGl();
    const QApplication application(argc, argv);
    for (const HotPath& path : paths) {
        if (argc != 2 || std::strcmp(argv[1], path.name) != 0) {
            continue;
        }
        TavikSimulator::UseStillBenchText(TavikSimulator::DefaultBenchText(), "compiled-in bench");
        MainWindow window;
        window.show();
        Benchmarks::ConnectNetwork(window, Benchmarks::RowOfNetwork(window, QLatin1String(path.network)));
        Benchmarks::SelectModule(window, 0);
        path.path(window);
        MeasuredPath([&] { path.path(window); }, path.times);
        std::printf("%d\n", path.times);
        return 0;
    }
    std::fprintf(stderr, "usage: benchmark-HotPaths read|burst|refresh|selection\n");
    return 1;
}
