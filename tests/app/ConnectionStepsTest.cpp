#include "tests/app/BlockedWindow.h"
#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QPushButton>
#include <QTableWidget>

using namespace TavikSimulator;

namespace {

const QString programTitle = QStringLiteral("Tavik Library Test");
const QString silence = QStringLiteral("Silence.");

} // namespace

/// The steps of connecting and disconnecting, each of which may fail, and the rows of the networks table.
class ConnectionStepsTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void failedStepKeepsNoLaterOne_data();
    void failedStepKeepsNoLaterOne();
    void onlyConnectedNetworksAreStopped();
    void failedFillingLeavesNoRow();
    void rowButtonShowsWhatIsAfterAFailure_data();
    void rowButtonShowsWhatIsAfterAFailure();
    void rowThatCannotBeRefreshedIsFilledAnew();
    void rowButtonTakesNoFocusAndSelectsNoRow();
    void networkThatCannotBeShownIsDisconnected();
    void secondPressWhileConnectingIsDropped_data();
    void secondPressWhileConnectingIsDropped();
    void whatBlocksIsShownFirst_data();
    void whatBlocksIsShownFirst();

private:
    QTableWidget* Table() { return Operator().The<QTableWidget>("tableNetworks"); }
    QAbstractButton* Button(int row) {
        return qobject_cast<QAbstractButton*>(Operator().CellButton("tableNetworks", row, 5));
    }
    int SelectedRow() {
        const QList<QTableWidgetItem*> items = Table()->selectedItems();
        return items.isEmpty() ? -1 : items.constFirst()->row();
    }
    void WaitForBox() {
        QTRY_COMPARE(boxes.Count(), 1);
        QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    }
};

void ConnectionStepsTest::failedStepKeepsNoLaterOne_data() {
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QByteArray>("object");
    QTest::addColumn<QByteArray>("operation");
    QTest::addColumn<QStringList>("later");
    const QStringList steps = {QStringLiteral("IsConnected"),   QStringLiteral("Status"),
                               QStringLiteral("Stop"),          QStringLiteral("StopAllDynamic"),
                               QStringLiteral("DisconnectAll"), QStringLiteral("FindNetworks"),
                               QStringLiteral("ConnectAll")};
    const QByteArrayList objects = {"network Alpha", "buffered Alpha", "difference Alpha", "server",
                                    "networks",      "networks",       "networks"};
    // Before it, the steps of one network.
    constexpr int firstOfAll = 3;
    constexpr int stepsOfDisconnecting = 5;
    const auto add = [&](const char* button, int step, int count) {
        const int next = qMax(firstOfAll, step + 1);
        QTest::addRow("%s, %s", button, qPrintable(steps[step]))
            << QByteArray(button) << objects[step] << steps[step].toLatin1()
            << QStringList(steps.mid(next, count - next));
    };
    for (int step = 0; step < steps.size() - 1; ++step) {
        add("btnConnectAll", step, steps.size());
    }
    for (int step = 0; step < stepsOfDisconnecting - 1; ++step) {
        add("btnDisconnectAll", step, stepsOfDisconnecting);
    }
}

void ConnectionStepsTest::failedStepKeepsNoLaterOne() {
    QFETCH(QByteArray, button);
    QFETCH(QByteArray, object);
    QFETCH(QByteArray, operation);
    QFETCH(QStringList, later);
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().SelectPage("tabServer"));
    boxes.ExpectError(&Window(), programTitle, silence);
    FailNext(operation.constData(), silence, object.constData());
    QVERIFY(Operator().Click(button.constData()));
    WaitForBox();
    for (const QString& step : qAsConst(later)) {
        QVERIFY2(Calls::CountOf(qPrintable(step)) > 0, qPrintable(step));
    }
    const bool disconnects = button == "btnDisconnectAll";
    QCOMPARE(Table()->rowCount(), 2);
    QCOMPARE(Table()->item(0, 4)->text(), disconnects ? QStringLiteral("Disconnected") : QStringLiteral("Connected"));
    QCOMPARE(Pages().size(), disconnects ? 1 : 2);
}

void ConnectionStepsTest::onlyConnectedNetworksAreStopped() {
    Open(Benches::Two());
    QVERIFY(Operator().ClickCellButton("tableNetworks", 1, 5));
    Calls::Mark();
    QVERIFY(Operator().Click("btnDisconnectAll"));
    QCOMPARE(Calls::CountOf("Status"), 1);
    COMPARE_CALLS(Calls::TakeOperation("Stop"), {QStringLiteral("difference Beta.Stop()")});
}

void ConnectionStepsTest::failedFillingLeavesNoRow() {
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().SelectPage("tabServer"));
    BoxReply reply;
    reply.meanwhile = [this](QDialog&) { QCOMPARE(Table()->rowCount(), 0); };
    boxes.ExpectError(&Window(), programTitle, silence, reply);
    FailNext("NetworkType", silence, "network Beta");
    QVERIFY(Operator().Click("btnConnectAll"));
    WaitForBox();
    QCOMPARE(Table()->rowCount(), 0);
    QCOMPARE(Pages().size(), 1);
}

void ConnectionStepsTest::rowButtonShowsWhatIsAfterAFailure_data() {
    QTest::addColumn<bool>("connected");
    QTest::addColumn<QByteArray>("operation");
    QTest::newRow("Connect throws") << false << QByteArray("Connect");
    QTest::newRow("Disconnect throws") << true << QByteArray("Disconnect");
    QTest::newRow("a stop throws") << true << QByteArray("StopAllDynamic");
}

void ConnectionStepsTest::rowButtonShowsWhatIsAfterAFailure() {
    QFETCH(bool, connected);
    QFETCH(QByteArray, operation);
    Open(Benches::Two());
    if (connected) {
        QVERIFY(Operator().Click("btnConnectAll"));
    }
    boxes.ExpectError(&Window(), programTitle, silence);
    FailNext(operation.constData(), silence);
    QVERIFY(Operator().ClickCellButton("tableNetworks", 1, 5));
    WaitForBox();
    const bool connectedNow = operation == "Disconnect";
    QCOMPARE(Table()->item(1, 4)->text(), connectedNow ? QStringLiteral("Connected") : QStringLiteral("Disconnected"));
    QCOMPARE(SelectedRow(), 1);
    QCOMPARE(Pages().size(), connectedNow ? 2 : 1);
    QVERIFY(!connectedNow || Pages().contains(QStringLiteral("Simulated beta")));
}

void ConnectionStepsTest::rowThatCannotBeRefreshedIsFilledAnew() {
    Open(Benches::Two());
    boxes.ExpectError(&Window(), programTitle, silence);
    FailNext("ControllerID", silence);
    QVERIFY(Operator().ClickCellButton("tableNetworks", 0, 5));
    WaitForBox();
    QCOMPARE(Table()->item(0, 4)->text(), QStringLiteral("Connected"));
    QCOMPARE(Table()->item(0, 1)->text(), QStringLiteral("C1-R7"));
    QCOMPARE(SelectedRow(), 0);
    QCOMPARE(Pages().size(), 2);
}

void ConnectionStepsTest::rowButtonTakesNoFocusAndSelectsNoRow() {
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().SelectPage("tabServer"));
    Operator().Find("btnConnectAll")->setFocus();
    Calls::Mark();
    QVERIFY(Operator().ClickCellButton("tableNetworks", 1, 5));
    QCOMPARE(Window().focusWidget(), Table());
    // The network is disconnected before anything is asked for its page.
    const QStringList calls = Calls::Take();
    COMPARE_CALLS(calls.mid(0, 3), {QStringLiteral("server.Networks()"), QStringLiteral("networks.Network(1)"),
                                    QStringLiteral("network Beta.IsConnected()")});
    QVERIFY(calls.contains(QStringLiteral("network Beta.Disconnect()")));
    QVERIFY(!calls.contains(QStringLiteral("network Beta.NetSpeed()")));
}

void ConnectionStepsTest::networkThatCannotBeShownIsDisconnected() {
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().SelectPage("tabServer"));
    FailNext("BufferedCapable", silence, "network Beta");
    QVERIFY(Operator().ClickCellButton("tableNetworks", 1, 5));
    QCOMPARE(Table()->item(1, 4)->text(), QStringLiteral("Disconnected"));
}

void ConnectionStepsTest::secondPressWhileConnectingIsDropped_data() {
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QByteArray>("operation");
    QTest::newRow("row") << QByteArray() << QByteArray("Disconnect");
    QTest::newRow("Connect All") << QByteArray("btnConnectAll") << QByteArray("ConnectAll");
    QTest::newRow("Disconnect All") << QByteArray("btnDisconnectAll") << QByteArray("DisconnectAll");
}

void ConnectionStepsTest::secondPressWhileConnectingIsDropped() {
    QFETCH(QByteArray, button);
    QFETCH(QByteArray, operation);
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().SelectPage("tabServer"));
    QAbstractButton* pressed = button.isEmpty() ? Button(0) : Operator().The<QPushButton>(button.constData());
    // Queued before the library is called, delivered after it.
    const auto pressAgain = connect(pressed, &QPushButton::released, this, [pressed] { PostClick(pressed); });
    Calls::Mark();
    QVERIFY(Operator().Click(pressed));
    disconnect(pressAgain);
    ProcessAllEvents();
    QCOMPARE(Calls::CountOf(operation.constData()), 1);
    QCOMPARE(Calls::CountOf("Connect"), 0);
}

void ConnectionStepsTest::whatBlocksIsShownFirst_data() {
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("text");
    QTest::newRow("Connect All") << QByteArray("btnConnectAll") << QStringLiteral("FindNetworks")
                                 << QStringLiteral("Finding and connecting networks...");
    QTest::newRow("Disconnect All") << QByteArray("btnDisconnectAll") << QStringLiteral("DisconnectAll")
                                    << QStringLiteral("Disconnecting all networks...");
    QTest::newRow("row") << QByteArray() << QStringLiteral("Connect") << QStringLiteral("Connect Alpha...");
}

void ConnectionStepsTest::whatBlocksIsShownFirst() {
    QFETCH(QByteArray, button);
    QFETCH(QString, operation);
    QFETCH(QString, text);
    Open(Benches::Two());
    Calls::Mark();
    const PaintedTexts painted(Window().statusBar(), operation);
    QVERIFY(Operator().Click(button.isEmpty() ? Button(0) : Operator().Find(button.constData())));
    QVERIFY2(painted.before.contains(text), qPrintable(painted.before.join(QLatin1Char('|'))));
    QCOMPARE(Window().statusBar()->currentMessage(), QString());
}

TAVIK_TEST_MAIN(ConnectionStepsTest)

#include "ConnectionStepsTest.moc"
