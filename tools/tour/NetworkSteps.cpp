#include "tools/bench/TourClock.h"
#include "tools/tour/Steps.h"

#include <QAbstractButton>
#include <QFile>
#include <QListWidget>

#include <algorithm>

using namespace TavikSimulator;

namespace {

const QString errorTitle = QStringLiteral("Error!");
const QString errorPrefix = QStringLiteral("Error: ");
const QString fileFilter = QStringLiteral("Tavik XML files (*.xml)");

std::function<void(Tour&)> Press(const char* button) {
    return [button](Tour& tour) { tour.Operator().Click(button); };
}

std::function<bool(Tour&)> Listed(const QString& identity) {
    return [identity](Tour& tour) { return tour.Rows("listModules").contains(identity); };
}

int RowOf(Tour& tour, const QString& identity) {
    return tour.Rows("listModules").indexOf(identity);
}

/// Presses Notify; while the run lasts, the bench's time passes until the last module has come.
void Notify(Tour& tour) {
    int rounds = 0;
    const auto clock = Repeatedly([&] {
        constexpr int quietRounds = 3;
        if (++rounds == quietRounds) {
            LetTimePass(tour.bench.announcedWithin);
        }
    });
    tour.Operator().Click("btnNotify");
}

/// Presses Notify and, once it listens, Stop Notify.
void StopNotify(Tour& tour) {
    const auto operation = Repeatedly([&tour] {
        if (tour.Operator().IsEnabled("btnStopNotify")) {
            tour.Operator().Click("btnStopNotify");
        }
    });
    tour.Operator().Click("btnNotify");
}

/// The library has been told to stop listening, and took it; or it has said that it listens no more, as it does by
/// itself when a slow call lets the time pass in which modules are announced.
bool NotifyingIsOver(Tour&) {
    const std::vector<JournalEntry> calls = Journal();
    return std::any_of(calls.begin(), calls.end(), [](const JournalEntry& call) {
        return !call.failed &&
               (call.operation == "CancelNotifying" || (call.operation == "Notifying" && call.result == "false"));
    });
}

void AddModule(Tour& tour) {
    BoxReply reply;
    reply.typed = tour.bench.wired.toLower();
    reply.meanwhile = [&tour](QDialog& box) { tour.ReportDialog(box, QStringLiteral("add-module")); };
    tour.boxes.ExpectTextInput(&tour.Window(), QStringLiteral("Add module by ID"),
                               QStringLiteral("Enter the module tavik identity."), reply);
    tour.Operator().Click("btnAddModule");
}

void SetSpeed(Tour& tour) {
    tour.Operator().SelectRow("listAvailableSpeeds", tour.bench.speed);
    tour.Operator().Click("btnSetSpeed");
}

/// On its network's list the added module stands last; where it stands tells which move has been made.
std::function<bool(Tour&)> StandsFromTheEnd(const QString& identity, int places) {
    return [=](Tour& tour) { return RowOf(tour, identity) == tour.Rows("listModules").size() - 1 - places; };
}

void SaveNetwork(Tour& tour) {
    BoxReply reply;
    reply.typed = tour.NetworkFile();
    reply.meanwhile = [&tour](QDialog& box) { tour.ReportDialog(box, QStringLiteral("save-network")); };
    tour.boxes.ExpectFile(BoxKind::SaveFile, &tour.Window(), QStringLiteral("Save Tavik XML"), fileFilter, reply);
    tour.Operator().Click("btnSaveXML");
}

void LoadNetwork(Tour& tour) {
    BoxReply reply;
    reply.typed = tour.NetworkFile();
    tour.boxes.ExpectFile(BoxKind::OpenFile, &tour.Window(), QStringLiteral("Open Tavik XML"), fileFilter, reply);
    tour.Operator().Click("btnLoadXML");
}

/// The network is saved and loaded again; the selected module stays selected.
void AddFileSteps(std::vector<TourStep>& steps, const TourBench& bench) {
    const Location added{Location::Network, bench.network, bench.wired};
    steps.push_back({QStringLiteral("network-saved"), added, SaveNetwork,
                     [](Tour& tour) { return QFile::exists(tour.NetworkFile()); },
                     Only("Save", QStringLiteral("Error Saving File"), errorPrefix)});
    steps.push_back({QStringLiteral("network-loaded"), added, LoadNetwork, Listed(bench.wired),
                     Only("Load", QStringLiteral("Error Loading File"), errorPrefix)});
}

void AddListSteps(std::vector<TourStep>& steps, const TourBench& bench) {
    const Location network{Location::Network, bench.network, QString()};
    const Location added{Location::Network, bench.network, bench.wired};
    steps.push_back(
        {QStringLiteral("modules-announced"), network, Notify, Listed(bench.announced.last()), LastResortOnly});
    steps.push_back({QStringLiteral("notify-stopped"), network, StopNotify, NotifyingIsOver, LastResortOnly});
    steps.push_back({QStringLiteral("module-added"), network, AddModule, Listed(bench.wired),
                     Only("AddModule", QStringLiteral("Add Module"), errorPrefix)});
    steps.push_back({QStringLiteral("module-selected"), network,
                     [bench](Tour& tour) { tour.Operator().SelectRow("listModules", bench.wired); },
                     [](Tour& tour) { return tour.Operator().The<QListWidget>("listModules")->currentRow() >= 0; },
                     LastResortOnly});
    steps.push_back({QStringLiteral("module-moved-up"), added, Press("btnMoveUp"), StandsFromTheEnd(bench.wired, 1),
                     LastResortOnly});
    steps.push_back({QStringLiteral("module-moved-down"), added, Press("btnMoveDown"), StandsFromTheEnd(bench.wired, 0),
                     LastResortOnly});
    for (auto moved = steps.end() - 2; moved != steps.end(); ++moved) {
        moved->changes = true;
    }
    AddFileSteps(steps, bench);
    steps.push_back({QStringLiteral("module-deleted"), added, Press("btnDeleteModule"),
                     [bench](Tour& tour) { return RowOf(tour, bench.wired) < 0; },
                     Only("DeleteModule", QStringLiteral("Delete Module"), errorPrefix)});
}

} // namespace

void AddNetworkSteps(std::vector<TourStep>& steps, const TourBench& bench) {
    const Location network{Location::Network, bench.network, QString()};
    steps.push_back({QStringLiteral("network"), network, [](Tour& tour) { tour.Operator().SelectPage("tabNetwork"); },
                     [bench](Tour& tour) { return tour.Rows("listModules") == bench.modules; }, LastResortOnly});
    steps.push_back({QStringLiteral("speed-set"), network, SetSpeed,
                     [bench](Tour& tour) { return tour.Operator().Text("editCurrentSpeed") == bench.speed; },
                     UntilListed(errorTitle, QString())});
    steps.push_back({QStringLiteral("hot-swapped"), network, Press("btnHotswap"), Listed(bench.replacement),
                     UntilListed(errorTitle, QString())});
    steps.push_back({QStringLiteral("pinged"), network, Press("btnPing"), Listed(bench.replacement),
                     UntilListed(errorTitle, QString())});
    steps.push_back({QStringLiteral("tcons-cleared"), network, Press("btnClearTcons"), Listed(bench.replacement),
                     Only("ClearTCons", QStringLiteral("Clear TCons"), errorPrefix)});
    AddListSteps(steps, bench);
}
