#include "tests/app/BlockedWindow.h"
#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QPushButton>
#include <QStatusBar>

/// What the commands of a network's page say before and after they block, and what is pressed meanwhile.
class NetworkCommandsTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void secondPressWhileDeletingIsDropped();
    void successIsShown_data();
    void successIsShown();
    void failureIsNotShownAsSuccess();
};

void NetworkCommandsTest::secondPressWhileDeletingIsDropped() {
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().SelectRow("listModules", 0));
    auto* button = Operator().The<QPushButton>("btnDeleteModule");
    // Queued before the library is called, delivered after it.
    const auto pressAgain = connect(button, &QPushButton::released, this, [button] { PostClick(button); });
    QVERIFY(Operator().Click(button));
    disconnect(pressAgain);
    ProcessAllEvents();
    QCOMPARE(Calls::CountOf("DeleteModule"), 1);
    QCOMPARE(Rows("listModules"), QStringList({QStringLiteral("KX00000002"), QStringLiteral("RN00000003")}));
    QVERIFY(Operator().Click(button));
    QCOMPARE(Calls::CountOf("DeleteModule"), 2);
}

void NetworkCommandsTest::successIsShown_data() {
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QString>("activity");
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("outcome");
    const auto row = [](const char* button, const char* activity, const char* operation, const char* outcome) {
        QTest::newRow(button) << QByteArray(button) << QString::fromLatin1(activity) << QString::fromLatin1(operation)
                              << QString::fromLatin1(outcome);
    };
    row("btnPing", "Pinging the modules...", "Ping", "Ping: done");
    row("btnHotswap", "Finding hot-swapped modules...", "FindHotswapped", "Find Hot Swapped: done");
    row("btnDeleteModule", "Deleting the module...", "DeleteModule", "Deleted: KX00000001");
    row("btnClearModules", "Clearing the list of modules...", "ClearModules", "List of modules cleared");
    row("btnClearTcons", "Clearing the TCons...", "ClearTCons", "TCons cleared");
    row("btnAddModule", "Adding a module...", "AddModule", "Added: KX00000004");
    row("btnSetSpeed", "Setting the speed...", "setNetSpeed", "Speed set: Low");
}

void NetworkCommandsTest::successIsShown() {
    QFETCH(QByteArray, button);
    QFETCH(QString, activity);
    QFETCH(QString, operation);
    QFETCH(QString, outcome);
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().SelectRow("listModules", 0));
    QVERIFY(Operator().SelectRow("listAvailableSpeeds", QStringLiteral("Low")));
    PaintedTexts painted(Window().statusBar(), operation);
    if (button == "btnAddModule") {
        BoxReply reply;
        reply.typed = QStringLiteral("kx00000004");
        boxes.ExpectTextInput(&Window(), QStringLiteral("Add module by ID"),
                              QStringLiteral("Enter the module tavik identity."), reply);
    }
    QVERIFY(Operator().Click(button.constData()));
    QVERIFY2(painted.before.contains(activity), qPrintable(painted.before.join(QLatin1Char('|'))));
    QCOMPARE(Window().statusBar()->currentMessage(), outcome);
}

void NetworkCommandsTest::failureIsNotShownAsSuccess() {
    OpenNetwork(Benches::Two());
    FailNext("Ping", QStringLiteral("Silence."));
    boxes.ExpectError(&Window(), QStringLiteral("Error!"), QStringLiteral("Silence."));
    QVERIFY(Operator().Click("btnPing"));
    QCOMPARE(Window().statusBar()->currentMessage(), QString());
}

TAVIK_TEST_MAIN(NetworkCommandsTest)
#include "NetworkCommandsTest.moc"
