// Refreshing the list of the network of 150 modules, as after every command on it, against a bare list that is filled
// with the same identities, fetched by the same calls. Both are drawn.

#include "app/MainWindow.h"
#include "benchmarks/Figure.h"
#include "benchmarks/Window.h"
#include "library/TavikModule.h"
#include "library/TavikNetwork.h"

#include <QApplication>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>

namespace {

constexpr int turns = 101;
constexpr int networkPage = 1;

/// "Ping" asks every module whether it is there and refreshes the page.
double Refresh(MainWindow& window) {
    auto* ping = Benchmarks::Find<QPushButton>(window, "btnPing");
    const double started = Benchmarks::MonotonicSeconds();
    ping->click();
    QCoreApplication::processEvents();
    return (Benchmarks::MonotonicSeconds() - started) * 1000;
}

double FillBareList(QListWidget& list, TavikLibrary::TavikNetwork& network) {
    const double started = Benchmarks::MonotonicSeconds();
    network.Ping();
    list.clear();
    const int count = network.ModuleCount();
    for (int index = 0; index < count; ++index) {
        list.addItem(QString::fromStdString(network.GetModule(static_cast<unsigned int>(index))->Identity()));
    }
    QCoreApplication::processEvents();
    return (Benchmarks::MonotonicSeconds() - started) * 1000;
}

} // namespace

int main(int argc, char* argv[]) {
    Benchmarks::LeaveOutOpenGl();
    const QApplication application(argc, argv);
    Benchmarks::UseQuickBench();
    MainWindow window;
    window.show();
    const int row = Benchmarks::RowOfNetwork(window, QStringLiteral("Full rack"));
    Benchmarks::ConnectNetwork(window, row);
    Benchmarks::Find<QTabWidget>(window, "tabWidget")->setCurrentIndex(networkPage);

    Benchmarks::UseQuickBench();
    Benchmarks::BareLibrary bare(static_cast<unsigned int>(row));
    QListWidget list;
    list.resize(Benchmarks::Find<QListWidget>(window, "listModules")->size());
    list.show();

    std::vector<double> refreshed;
    std::vector<double> filled;
    for (int turn = 0; turn < turns; ++turn) {
        refreshed.push_back(Refresh(window));
        filled.push_back(FillBareList(list, *bare.Network()));
    }
    Benchmarks::PrintFigure("Refreshing a list of 150 modules", Benchmarks::Median(refreshed),
                            Benchmarks::Median(filled), "ms");
    return 0;
}
