#include "tools/tour/Steps.h"

#include <QAbstractButton>
#include <QListWidget>

namespace {

const QString readingError = QStringLiteral("Reading Error");
const QString probeTitle = QStringLiteral("KX Module");

bool HasReading(Tour& tour) {
    return !tour.Operator().Text("tbReading").isEmpty();
}

void ReadContinuously(Tour& tour) {
    const auto operation = Repeatedly([&tour] {
        if (tour.Operator().IsEnabled("btnStopContinuous")) {
            tour.Operator().Click("btnStopContinuous");
        }
    });
    tour.Operator().Click("btnStartContinuous");
}

void TimeReadings(Tour& tour) {
    tour.boxes.Tolerate(true);
    tour.Operator().Click("btnTimeReadings");
}

TourStep SetChosen(const QString& name, const char* list, const char* button, const char* field,
                   const Location& place) {
    TourStep step;
    step.name = name;
    step.place = place;
    step.act = [=](Tour& tour) {
        tour.Operator().SelectRow(list, 1);
        tour.Operator().Click(button);
    };
    step.seen = [=](Tour& tour) { return tour.Operator().Text(field) == tour.Rows(list).value(1); };
    step.failure = Always(probeTitle, QString());
    return step;
}

void AddReadingSteps(std::vector<TourStep>& steps, const Location& probe) {
    steps.push_back({QStringLiteral("read-in-counts"), probe, [](Tour& tour) { tour.Operator().Click("btnRead"); },
                     HasReading, Always(readingError, QString())});
    steps.push_back({QStringLiteral("read-in-units"), probe,
                     [](Tour& tour) {
                         tour.Operator().Click("radioUnits");
                         tour.Operator().Click("btnRead");
                     },
                     HasReading, Always(readingError, QString())});
    steps.push_back(
        {QStringLiteral("read-continuously"), probe, ReadContinuously, HasReading, Always(readingError, QString())});
    steps.push_back({QStringLiteral("timed"), probe, TimeReadings, HasReading, Always(readingError, QString())});
    steps.push_back({QStringLiteral("status"), probe, [](Tour& tour) { tour.Operator().Click("btnGetStatus"); },
                     [](Tour& tour) { return !tour.Operator().Text("tbErrorText").isEmpty(); }, LastResortOnly});
    steps.push_back(SetChosen(QStringLiteral("resolution-set"), "listResolutions", "btnSetResolution",
                              "tbCurrentResolution", probe));
    steps.push_back(
        SetChosen(QStringLiteral("averaging-set"), "listAveragings", "btnSetAveraging", "tbCurrentAveraging", probe));
}

} // namespace

void AddPage(std::vector<TourStep>& steps, const Location& place, const FailureRule& selectionFailure) {
    const QString identity = place.module;
    const Location network{Location::Network, place.network, QString()};
    steps.push_back({QStringLiteral("modules-of-the-network"), network,
                     [](Tour& tour) { tour.Operator().SelectPage("tabNetwork"); },
                     [](Tour& tour) { return tour.Operator().Value("tabNetwork", "visible").toBool(); },
                     selectionFailure});
    steps.push_back({QStringLiteral("selected-") + identity, place,
                     [identity](Tour& tour) { tour.Operator().SelectRow("listModules", identity); },
                     [identity](Tour& tour) { return tour.Operator().Text("tbTavikIdentity") == identity; },
                     selectionFailure});
    steps.push_back(
        {QStringLiteral("module-") + identity, place, [](Tour& tour) { tour.Operator().SelectPage("tabModule"); },
         [identity](Tour& tour) { return tour.Operator().Text("tbTavikIdentity") == identity; }, LastResortOnly});
}

void AddModuleSteps(std::vector<TourStep>& steps, const TourBench& bench) {
    if (bench.shown != bench.network) {
        const Location server{Location::Server, bench.shown, QString()};
        steps.push_back({QStringLiteral("other-network-selected"), server,
                         [bench](Tour& tour) {
                             tour.Operator().SelectPage("tabServer");
                             tour.Operator().SelectTableRow("tableNetworks", bench.shown);
                         },
                         [bench](Tour& tour) { return tour.Rows("listModules").contains(bench.probe); },
                         LastResortOnly});
    }
    const Location probe{Location::Module, bench.shown, bench.probe};
    AddPage(steps, probe, LastResortOnly);
    AddReadingSteps(steps, probe);
    for (const QString& identity : bench.visited) {
        const Location place{Location::Module, bench.shown, identity};
        AddPage(steps, place, Selection(TitleOfOwnFilling(identity)));
        AddPanelSteps(steps, place);
    }
}
