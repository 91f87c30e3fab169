#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>

using namespace TavikSimulator;

namespace {

const QString connectTitle = QStringLiteral("Connect to Network");

} // namespace

/// Connecting, disconnecting and selecting networks.
class NetworksTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void connectAllStopsThenConnects();
    void connectAllShowsTheFirstNetwork();
    void connectAllWithTheFirstDead();
    void connectAllWithSeveralDeadShowsOneBox();
    void connectAllStopsARunningCollection();
    void rowButtonConnects();
    void rowButtonDisconnects();
    void rowButtonThatCannotConnect();
    void rowButtonSelectsItsRow();
    void disconnectAllRemovesThePages();
    void selectingADisconnectedRowKeepsTheCurrentNetwork();
    void selectingAnotherNetworkChangesTheCaption();
    void clearingTheSelectionRemovesThePages();
    void secondDynamicRepeatsTheFirst();
    void capabilitiesAreLinedUpByTabs();
    void speedsAreShown();
    void waitCursorWhileConnecting();

private:
    QString Cell(int row, int column) { return Table()->item(row, column)->text(); }
    QString Button(int row) {
        return qobject_cast<QPushButton*>(Operator().CellButton("tableNetworks", row, 5))->text();
    }
    QTableWidget* Table() { return Operator().The<QTableWidget>("tableNetworks"); }
};

void NetworksTest::connectAllStopsThenConnects() {
    Open(Benches::With(QString()));
    Calls::Mark();
    QVERIFY(Operator().Click("btnConnectAll"));
    const QStringList calls = Calls::Take();
    const QStringList before = {QStringLiteral("server.Networks()"), QStringLiteral("networks.Count()"),
                                QStringLiteral("networks.Network(0)"), QStringLiteral("network Alpha.IsConnected()")};
    const QStringList after = {
        QStringLiteral("server.StopAllDynamic()"),  QStringLiteral("server.Networks()"),
        QStringLiteral("networks.DisconnectAll()"), QStringLiteral("server.Networks()"),
        QStringLiteral("networks.FindNetworks()"),  QStringLiteral("server.Networks()"),
        QStringLiteral("networks.ConnectAll()"),    QStringLiteral("networks.Count()"),
        QStringLiteral("networks.Network(0)"),      QStringLiteral("network Alpha.IsConnected()")};
    COMPARE_CALLS(calls.mid(0, 14), before + after);
    // Only what is connected has something to be stopped.
    Calls::Mark();
    QVERIFY(Operator().Click("btnConnectAll"));
    const QStringList stops = {QStringLiteral("network Alpha.Buffered()"), QStringLiteral("buffered Alpha.Status()"),
                               QStringLiteral("network Alpha.Difference()"), QStringLiteral("difference Alpha.Stop()")};
    COMPARE_CALLS(Calls::Take().mid(0, 18), before + stops + after);
}

void NetworksTest::connectAllShowsTheFirstNetwork() {
    Open(Benches::Two());
    QVERIFY(Operator().Click("btnConnectAll"));
    QCOMPARE(Pages(), QStringList({QStringLiteral("Server"), QStringLiteral("Simulated alpha, R7")}));
    QVERIFY(Operator().Find("tabServer")->isVisible());
    QCOMPARE(Table()->currentRow(), 0);
    QCOMPARE(Cell(0, 1), QStringLiteral("C1-R7"));
    QCOMPARE(Cell(0, 2), QStringLiteral("Simulated alpha, R7"));
    QCOMPARE(Cell(0, 4), QStringLiteral("Connected"));
    QCOMPARE(Cell(1, 4), QStringLiteral("Connected"));
    QCOMPARE(Button(0), QStringLiteral("Disconnect"));
}

void NetworksTest::connectAllWithTheFirstDead() {
    Open(Benches::FirstDead());
    int rowsMeanwhile = -1;
    const QCursor* cursor = nullptr;
    BoxReply reply;
    reply.meanwhile = [&](QDialog&) {
        cursor = QApplication::overrideCursor();
        rowsMeanwhile = Table()->rowCount();
        QCOMPARE(Cell(1, 4), QStringLiteral("Disconnected"));
    };
    boxes.ExpectError(&Window(), connectTitle, QStringLiteral("Failed to connect to all network(s)."), reply);
    QVERIFY(Operator().Click("btnConnectAll"));
    QVERIFY(cursor != nullptr);
    QCOMPARE(rowsMeanwhile, 3);
    QCOMPARE(Cell(0, 4), QStringLiteral("Disconnected"));
    QCOMPARE(Cell(1, 4), QStringLiteral("Connected"));
    QCOMPARE(Cell(2, 4), QStringLiteral("Connected"));
    QCOMPARE(Table()->currentRow(), 0);
    QCOMPARE(Pages(), QStringList{QStringLiteral("Server")});
    QVERIFY(QApplication::overrideCursor() == nullptr);
}

void NetworksTest::connectAllWithSeveralDeadShowsOneBox() {
    Open(QStringLiteral("<bench><network name=\"A\" connects=\"no\"/><network name=\"B\"/>"
                        "<network name=\"C\" connects=\"no\"/></bench>"));
    boxes.ExpectError(&Window(), connectTitle, QStringLiteral("Failed to connect to all network(s)."));
    Calls::Mark();
    QVERIFY(Operator().Click("btnConnectAll"));
    QCOMPARE(boxes.Count(), 1);
    const QStringList calls = Calls::Take();
    const int box = calls.indexOf(QStringLiteral("networks.ConnectAll()"));
    COMPARE_CALLS(calls.mid(box + 1, 5), {QStringLiteral("networks.Count()"), QStringLiteral("networks.Network(0)"),
                                          QStringLiteral("network A.IsConnected()"),
                                          QStringLiteral("server.Networks()"), QStringLiteral("networks.Count()")});
}

void NetworksTest::connectAllStopsARunningCollection() {
    OpenNetwork(Benches::With(QString()));
    QVERIFY(Operator().SelectPage("tabServer"));
    Fault running;
    running.object = "buffered Alpha";
    running.operation = "Status";
    running.effect = FaultEffect::Result;
    running.code = 1;
    AddFault(running);
    QVERIFY(Operator().Click("btnConnectAll"));
    const QStringList calls = Calls::Take();
    const int stop = calls.indexOf(QStringLiteral("buffered Alpha.Stop()"));
    QVERIFY(stop > 0);
    QVERIFY(stop < calls.indexOf(QStringLiteral("difference Alpha.Stop()")));
    QVERIFY(stop < calls.indexOf(QStringLiteral("networks.DisconnectAll()")));
}

void NetworksTest::rowButtonConnects() {
    Open(Benches::Two());
    QVERIFY(Operator().SelectTableRow("tableNetworks", 0));
    QCOMPARE(Pages().size(), 1);
    Calls::Mark();
    QVERIFY(Operator().ClickCellButton("tableNetworks", 0, 5));
    const QStringList calls = Calls::Take();
    COMPARE_CALLS(calls.mid(0, 11),
                  {QStringLiteral("server.Networks()"), QStringLiteral("networks.Network(0)"),
                   QStringLiteral("network Alpha.IsConnected()"), QStringLiteral("network Alpha.Connect()"),
                   QStringLiteral("network Alpha.IsConnected()"), QStringLiteral("network Alpha.IsConnected()"),
                   QStringLiteral("network Alpha.ControllerID()"), QStringLiteral("network Alpha.Description()"),
                   QStringLiteral("server.Networks()"), QStringLiteral("networks.Network(0)"),
                   QStringLiteral("network Alpha.IsConnected()")});
    QCOMPARE(calls.count(QStringLiteral("network Alpha.NetSpeed()")), 1);
    QCOMPARE(Cell(0, 1), QStringLiteral("C1-R7"));
    QCOMPARE(Cell(0, 2), QStringLiteral("Simulated alpha, R7"));
    QCOMPARE(Cell(0, 4), QStringLiteral("Connected"));
    QCOMPARE(Button(0), QStringLiteral("Disconnect"));
    QCOMPARE(Pages().size(), 2);
    QCOMPARE(Table()->currentRow(), 0);
}

void NetworksTest::rowButtonDisconnects() {
    Open(Benches::Two());
    QVERIFY(Operator().ClickCellButton("tableNetworks", 0, 5));
    Calls::Mark();
    QVERIFY(Operator().ClickCellButton("tableNetworks", 0, 5));
    COMPARE_CALLS(Calls::Take(),
                  {QStringLiteral("server.Networks()"), QStringLiteral("networks.Network(0)"),
                   QStringLiteral("network Alpha.IsConnected()"), QStringLiteral("network Alpha.Buffered()"),
                   QStringLiteral("buffered Alpha.Status()"), QStringLiteral("network Alpha.Difference()"),
                   QStringLiteral("difference Alpha.Stop()"), QStringLiteral("server.StopAllDynamic()"),
                   QStringLiteral("network Alpha.Disconnect()"), QStringLiteral("network Alpha.IsConnected()"),
                   QStringLiteral("network Alpha.ControllerID()"), QStringLiteral("network Alpha.Description()"),
                   QStringLiteral("server.Networks()"), QStringLiteral("networks.Network(0)"),
                   QStringLiteral("network Alpha.IsConnected()")});
    QCOMPARE(Cell(0, 4), QStringLiteral("Disconnected"));
    QCOMPARE(Button(0), QStringLiteral("Connect"));
    QCOMPARE(Pages(), QStringList{QStringLiteral("Server")});
}

void NetworksTest::rowButtonThatCannotConnect() {
    Open(Benches::FirstDead());
    bool waiting = false;
    BoxReply reply;
    reply.meanwhile = [&](QDialog&) { waiting = QApplication::overrideCursor() != nullptr; };
    boxes.ExpectError(&Window(), connectTitle, QStringLiteral("Failed to connect to network"), reply);
    QVERIFY(Operator().ClickCellButton("tableNetworks", 0, 5));
    QVERIFY(waiting);
    QCOMPARE(Cell(0, 4), QStringLiteral("Disconnected"));
    QCOMPARE(Button(0), QStringLiteral("Connect"));
    QCOMPARE(Table()->currentRow(), 0);
    QCOMPARE(Pages().size(), 1);
}

void NetworksTest::rowButtonSelectsItsRow() {
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().SelectPage("tabServer"));
    QVERIFY(Operator().ClickCellButton("tableNetworks", 1, 5));
    QCOMPARE(Table()->selectedItems().constFirst()->row(), 1);
    QCOMPARE(Pages(), QStringList{QStringLiteral("Server")});
    QVERIFY(Operator().ClickCellButton("tableNetworks", 1, 5));
    QCOMPARE(Pages(), QStringList({QStringLiteral("Server"), QStringLiteral("Simulated beta")}));
}

void NetworksTest::disconnectAllRemovesThePages() {
    OpenModule(Benches::With(QStringLiteral("<module type=\"KX\" identity=\"KX00000001\"/>")), 0);
    QVERIFY(Pages().size() > 2);
    QVERIFY(Operator().SelectPage("tabServer"));
    QVERIFY(Operator().Click("btnDisconnectAll"));
    const QStringList calls = Calls::Take();
    COMPARE_CALLS(calls.mid(1, 10),
                  {QStringLiteral("networks.Count()"), QStringLiteral("networks.Network(0)"),
                   QStringLiteral("network Alpha.IsConnected()"), QStringLiteral("network Alpha.Buffered()"),
                   QStringLiteral("buffered Alpha.Status()"), QStringLiteral("network Alpha.Difference()"),
                   QStringLiteral("difference Alpha.Stop()"), QStringLiteral("server.StopAllDynamic()"),
                   QStringLiteral("server.Networks()"), QStringLiteral("networks.DisconnectAll()")});
    QCOMPARE(Pages(), QStringList{QStringLiteral("Server")});
    QCOMPARE(Table()->rowCount(), 1);
    QCOMPARE(Cell(0, 4), QStringLiteral("Disconnected"));
}

void NetworksTest::selectingADisconnectedRowKeepsTheCurrentNetwork() {
    Open(Benches::FirstDead());
    boxes.ExpectError(&Window(), connectTitle, QStringLiteral("Failed to connect to all network(s)."));
    QVERIFY(Operator().Click("btnConnectAll"));
    QVERIFY(Operator().SelectTableRow("tableNetworks", 1));
    QCOMPARE(Pages().size(), 2);
    QVERIFY(Operator().SelectTableRow("tableNetworks", 0));
    QCOMPARE(Pages(), QStringList{QStringLiteral("Server")});
    // What acts on the current network still acts on Alpha, although its page is away.
    Calls::Mark();
    QVERIFY(QMetaObject::invokeMethod(&Window(), "on_btnStopNotify_clicked"));
    COMPARE_CALLS(Calls::Take(), {QStringLiteral("network Alpha.CancelNotifying()")});
}

void NetworksTest::selectingAnotherNetworkChangesTheCaption() {
    OpenModule(Benches::Two(), 0);
    QVERIFY(Operator().SelectPage("tabServer"));
    QVERIFY(Operator().SelectTableRow("tableNetworks", 1));
    QCOMPARE(Pages().mid(0, 2), QStringList({QStringLiteral("Server"), QStringLiteral("Simulated beta")}));
    QCOMPARE(Rows("listModules"), QStringList{QStringLiteral("HVX0000001")});
    COMPARE_CALLS(Calls::Take().mid(0, 4),
                  {QStringLiteral("server.Networks()"), QStringLiteral("networks.Network(1)"),
                   QStringLiteral("network Beta.IsConnected()"), QStringLiteral("network Beta.Description()")});
}

void NetworksTest::clearingTheSelectionRemovesThePages() {
    OpenModule(Benches::Two(), 0);
    Table()->clearSelection();
    QCOMPARE(Pages(), QStringList{QStringLiteral("Server")});
    COMPARE_CALLS(Calls::Take(), {});
}

void NetworksTest::secondDynamicRepeatsTheFirst() {
    OpenNetwork(Benches::With(QString(), QStringLiteral("capabilities=\"dynamic2\"")));
    QCOMPARE(Operator().Text("lblDynamicCapable"), QStringLiteral("Dynamic Capable:\t\t\t\tNo"));
    QCOMPARE(Operator().Text("lblDynamic2Capable"), QStringLiteral("Dynamic 2 Capable:\t\t\tNo"));
    Drop();
    OpenNetwork(Benches::With(QString(), QStringLiteral("capabilities=\"dynamic\"")));
    QCOMPARE(Operator().Text("lblDynamicCapable"), QStringLiteral("Dynamic Capable:\t\t\t\tYes"));
    QCOMPARE(Operator().Text("lblDynamic2Capable"), QStringLiteral("Dynamic 2 Capable:\t\t\tYes"));
}

void NetworksTest::capabilitiesAreLinedUpByTabs() {
    const QVector<std::pair<const char*, QString>> labels = {
        {"lblBufferedCapable", QStringLiteral("Buffered Capable:\t\t\t")},
        {"lblBufferedExternalSourceCapable", QStringLiteral("Buffered External Source Capable:\t\t")},
        {"lblDynamicCapable", QStringLiteral("Dynamic Capable:\t\t\t\t")},
        {"lblDynamic2Capable", QStringLiteral("Dynamic 2 Capable:\t\t\t")},
        {"lblDynamicExternalSourceCapable", QStringLiteral("Dynamic External Source Capable:\t\t")},
        {"lblReadburstCapable", QStringLiteral("Readburst Capable:\t\t\t")},
        {"lblLowSpeedCapable", QStringLiteral("Low Speed Capable:\t\t")},
        {"lblHighSpeedCapable", QStringLiteral("High Speed Capable:\t\t")},
        {"lblUltraHighSpeedCapable", QStringLiteral("Ultra High Speed Capable:\t\t")}};
    OpenNetwork(Benches::With(QString()));
    for (const auto& [name, prefix] : labels) {
        QCOMPARE(Operator().Text(name), QString(prefix + QStringLiteral("Yes")));
    }
    Drop();
    OpenNetwork(Benches::With(QString(), QStringLiteral("capabilities=\"\" speeds=\"medium\"")));
    for (const auto& [name, prefix] : labels) {
        QCOMPARE(Operator().Text(name), QString(prefix + QStringLiteral("No")));
    }
}

void NetworksTest::speedsAreShown() {
    OpenNetwork(Benches::With(QString(), QStringLiteral("speeds=\"high low ultra-high\" speed=\"low\"")));
    QCOMPARE(Operator().Text("editCurrentSpeed"), QStringLiteral("Low"));
    QCOMPARE(Rows("listAvailableSpeeds"),
             QStringList({QStringLiteral("High"), QStringLiteral("Low"), QStringLiteral("Ultra High")}));
}

void NetworksTest::waitCursorWhileConnecting() {
    Open(Benches::FirstDead());
    bool wait = false;
    BoxReply reply;
    reply.meanwhile = [&](QDialog&) {
        wait = QApplication::overrideCursor() != nullptr && QApplication::overrideCursor()->shape() == Qt::WaitCursor;
    };
    boxes.ExpectError(&Window(), connectTitle, QStringLiteral("Failed to connect to all network(s)."), reply);
    QVERIFY(Operator().Click("btnConnectAll"));
    QVERIFY(wait);
}

TAVIK_TEST_MAIN(NetworksTest)

#include "NetworksTest.moc"
