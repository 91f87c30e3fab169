#include "tools/tour/Steps.h"

namespace {

constexpr int idColumn = 1;
constexpr int stateColumn = 4;
constexpr int buttonColumn = 5;
const QString connected = QStringLiteral("Connected");
const QString disconnected = QStringLiteral("Disconnected");
const QString connectTitle = QStringLiteral("Connect to Network");

bool IsState(Tour& tour, int row, const QString& state) {
    return tour.Cell(row, stateColumn) == state;
}

void ConnectAll(Tour& tour) {
    if (tour.bench.someNetworkDead) {
        BoxReply reply;
        reply.meanwhile = [&tour](QDialog& box) { tour.ReportDialog(box, QStringLiteral("connect-all-failed")); };
        tour.boxes.ExpectError(&tour.Window(), connectTitle, QStringLiteral("Failed to connect to all network(s)."),
                               reply);
    }
    tour.Operator().Click("btnConnectAll");
}

TourStep RowButton(const QString& name, int row, const QString& stateAfterwards) {
    TourStep step;
    step.name = name;
    step.act = [row, stateAfterwards](Tour& tour) {
        if (!IsState(tour, row, stateAfterwards)) {
            tour.Operator().ClickCellButton("tableNetworks", row, buttonColumn);
        }
    };
    step.seen = [row, stateAfterwards](Tour& tour) { return IsState(tour, row, stateAfterwards); };
    step.failure = LastResortOnly;
    return step;
}

} // namespace

void AddServerSteps(std::vector<TourStep>& steps, const TourBench& bench) {
    const Location server;
    const int other = bench.otherNetwork;
    const int row = bench.network;
    steps.push_back({QStringLiteral("server"), server, [](Tour&) {},
                     [other](Tour& tour) { return !tour.Cell(other, idColumn).isEmpty(); }, LastResortOnly});
    steps.push_back(RowButton(QStringLiteral("row-connected"), other, connected));
    steps.push_back({QStringLiteral("all-disconnected"), server,
                     [](Tour& tour) { tour.Operator().Click("btnDisconnectAll"); },
                     [other](Tour& tour) { return IsState(tour, other, disconnected); }, LastResortOnly});
    steps.push_back(
        {QStringLiteral("all-connected"), server, ConnectAll,
         [other, row](Tour& tour) { return IsState(tour, row, connected) && IsState(tour, other, connected); },
         LastResortOnly});
    steps.push_back(RowButton(QStringLiteral("row-disconnected"), other, disconnected));
    steps.push_back({QStringLiteral("network-selected"),
                     {Location::Network, row, QString()},
                     [row](Tour& tour) { tour.Operator().SelectTableRow("tableNetworks", row); },
                     [](Tour& tour) { return !tour.Rows("listModules").isEmpty(); },
                     LastResortOnly});
}
