// Resident memory after every module of every network has been shown, several times over, against after the
// first module. What grows from tour to tour would be lost memory.

#include "app/MainWindow.h"
#include "benchmarks/Figure.h"
#include "benchmarks/Window.h"

#include <QApplication>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>

namespace {

constexpr int tours = 4;
constexpr int stateColumn = 4;

void ShowEveryModule(MainWindow& window) {
    auto* table = Benchmarks::Find<QTableWidget>(window, "tableNetworks");
    auto* modules = Benchmarks::Find<QListWidget>(window, "listModules");
    for (int row = 0; row < table->rowCount(); ++row) {
        if (table->item(row, stateColumn)->text() != QLatin1String("Connected")) {
            continue;
        }
        table->selectRow(row);
        for (int module = 0; module < modules->count(); ++module) {
            Benchmarks::SelectModule(window, module);
        }
    }
}

/// The box that says that one network cannot be connected is closed without a look.
void ConnectEveryNetwork(MainWindow& window) {
    auto* table = Benchmarks::Find<QTableWidget>(window, "tableNetworks");
    for (int row = 0; row < table->rowCount(); ++row) {
        Benchmarks::ConnectNetwork(window, row);
    }
}

} // namespace

int main(int argc, char* argv[]) {
    Benchmarks::LeaveOutOpenGl();
    const QApplication application(argc, argv);
    Benchmarks::UseQuickBench();
    MainWindow window;
    window.show();
    const Benchmarks::BoxCloser boxCloser;
    ConnectEveryNetwork(window);
    Benchmarks::SelectModule(window, 0);
    const double first = Benchmarks::ResidentMebibytes();
    for (int tour = 1; tour <= tours; ++tour) {
        ShowEveryModule(window);
        Benchmarks::PrintFigure("Memory after tour " + std::to_string(tour) + " of all modules",
                                Benchmarks::ResidentMebibytes(), first, "MiB");
    }
    return 0;
}
