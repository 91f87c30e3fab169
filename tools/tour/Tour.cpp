#include "tools/tour/Tour.h"

#include "tools/bench/VirtualClock.h"
#include "tools/tour/Steps.h"

#include <QListWidget>
#include <QTabWidget>
#include <QTableWidget>
#include <QWindow>

using namespace TavikSimulator;

void Tour::PrepareBench() {
    UseStillBenchText(bench.text.toStdString(), "bench of the tour");
    StartJournal();
    // The timed readings take the same number of calls every time.
    VirtualClock::BeginDate();
}

void Tour::OpenWindow() {
    window = std::make_unique<MainWindow>();
    window->show();
    WaitUntil([this] { return window->windowHandle()->isExposed(); });
    ProcessAllEvents();
}

void Tour::DropWindow() {
    window.reset();
    ProcessAllEvents();
}

bool Tour::HasPage(const char* name) {
    const auto* pages = Operator().The<QTabWidget>("tabWidget");
    return pages != nullptr && pages->indexOf(Operator().Find(name)) >= 0;
}

QStringList Tour::Rows(const char* name) {
    QStringList rows;
    const auto* list = Operator().The<QListWidget>(name);
    for (int row = 0; list != nullptr && row < list->count(); ++row) {
        rows.append(list->item(row)->text());
    }
    return rows;
}

QString Tour::Cell(int row, int column) {
    const auto* table = Operator().The<QTableWidget>("tableNetworks");
    const QTableWidgetItem* item = table->item(row, column);
    return item != nullptr ? item->text() : QString();
}

void Tour::ReportDialog(QWidget& dialog, const QString& name) {
    if (onDialog) {
        onDialog(dialog, name);
    }
}

void Tour::GoTo(const Location& place) {
    WidgetDriver driver = Operator();
    if (place.page == Location::Nowhere) {
        return;
    }
    driver.SelectPage("tabServer");
    // A refresh that failed has emptied the table.
    if (Cell(place.network, 0).isEmpty()) {
        driver.Click("btnConnectAll");
    }
    if (place.page == Location::Server) {
        return;
    }
    if (Cell(place.network, 4) != QLatin1String("Connected")) {
        driver.Click("btnConnectAll");
    }
    driver.The<QTableWidget>("tableNetworks")->clearSelection();
    driver.SelectTableRow("tableNetworks", place.network);
    driver.SelectPage("tabNetwork");
    if (Rows("listModules").contains(place.module)) {
        driver.The<QListWidget>("listModules")->setCurrentRow(-1);
        // The module's panels are gone when they are looked for again.
        ProcessAllEvents();
        driver.SelectRow("listModules", place.module);
    }
    if (place.page == Location::Module) {
        driver.SelectPage("tabModule");
    }
}

std::vector<TourStep> PanelTourSteps(const TourBench& bench) {
    std::vector<TourStep> steps;
    for (const QString& identity : bench.visited) {
        const Location place{Location::Module, bench.shown, identity};
        steps.push_back({QStringLiteral("connected"), Location{Location::Server, bench.shown, QString()},
                         [](Tour& tour) { tour.Operator().Click("btnConnectAll"); },
                         [identity](Tour& tour) {
                             return tour.HasPage("tabNetwork") && tour.Rows("listModules").contains(identity);
                         },
                         LastResortOnly});
        AddPage(steps, place, Selection(TitleOfOwnFilling(identity)));
        AddPanelSteps(steps, place);
    }
    return steps;
}

std::vector<TourStep> ModesTourSteps(const TourBench& bench) {
    const Location network{Location::Network, bench.shown, QString()};
    std::vector<TourStep> steps;
    AddDifferenceSteps(steps, bench);
    AddReadBurstSteps(steps, bench);
    // The list of modules takes the focus, and with it its first module.
    steps.push_back({QStringLiteral("modules-that-collect"), network, [network](Tour& tour) { tour.GoTo(network); },
                     [](Tour& tour) { return tour.Operator().Value("tabNetwork", "visible").toBool(); },
                     LastResortOnly});
    AddReferenceMarkSteps(steps, bench);
    AddBufferedSteps(steps, bench);
    AddDynamicSteps(steps, bench);
    return steps;
}

std::vector<TourStep> TourSteps(const TourBench& bench) {
    std::vector<TourStep> steps;
    AddServerSteps(steps, bench);
    AddNetworkSteps(steps, bench);
    AddModuleSteps(steps, bench);
    AddAirGaugeSteps(steps, bench);
    AddWirelessSteps(steps, bench);
    AddMenuSteps(steps, bench);
    return steps;
}
