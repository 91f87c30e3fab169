#include "library/TavikModuleRLK.h"
#include "library/TavikNetwork.h"
#include "library/TavikNetworks.h"
#include "panels/common/BackgroundCalls.h"
#include "panels/wireless/moduleRLKWidget.h"
#include "tests/panels/wireless/WirelessBench.h"
#include "tests/support/FakeHostWindow.h"
#include "tests/support/ProgramFixture.h"

#include <QSignalSpy>

#include <atomic>
#include <thread>

using namespace TavikSimulator;
using namespace WirelessBench;

namespace {

constexpr std::chrono::seconds longEnough(20);

} // namespace

/// A restart whose panel or window goes before it is over.
class AbandonedRestartTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void panelThatGoesDuringTheRestart_data();
    void panelThatGoesDuringTheRestart();
    void windowThatClosesDuringTheRestart_data();
    void windowThatClosesDuringTheRestart();
    void windowThatClosesOverTheBox();
    void waitForACallThatDoesNotEnd();

private:
    void Apply() { QVERIFY(Operator().Click("btnApplySettings")); }
    moduleRLKWidget* Panel() { return Operator().The<moduleRLKWidget>("moduleRLKWidget"); }
};

void AbandonedRestartTest::panelThatGoesDuringTheRestart_data() {
    QTest::addColumn<bool>("fails");
    QTest::addColumn<int>("milliseconds");
    for (const int milliseconds : {0, 50, 250}) {
        QTest::newRow(qPrintable(QStringLiteral("after %1 ms").arg(milliseconds))) << false << milliseconds;
        QTest::newRow(qPrintable(QStringLiteral("after %1 ms, failing").arg(milliseconds))) << true << milliseconds;
    }
}

void AbandonedRestartTest::panelThatGoesDuringTheRestart() {
    QFETCH(bool, fails);
    QFETCH(int, milliseconds);
    UseBenchText(Usual().toStdString(), "bench of the test");
    SetLatency(false);
    TavikLibrary::TavikServer server;
    server.Networks()->FindNetworks();
    server.Networks()->ConnectAll();
    TavikLibrary::TavikNetwork* network = server.Networks()->Network(0);
    FakeHostWindow host;
    auto panel = std::make_unique<moduleRLKWidget>(&host);
    panel->SetModule(&host, &server, network, dynamic_cast<TavikLibrary::TavikModuleRLK*>(network->GetModule(0)));
    SlowRestart(0.1);
    if (fails) {
        FailNext("Restart", QStringLiteral("Too late."));
    }
    QVERIFY(QMetaObject::invokeMethod(panel.get(), "on_btnApplySettings_clicked"));
    QCOMPARE(host.disabled, 1);
    // No events are handled: whatever the thread asks for is still waiting when the panel goes.
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    if (fails) {
        boxes.ExpectError(&host, QStringLiteral("RLK Module"), QStringLiteral("Too late."));
    }
    panel.reset();
    // The module is still restarting: its controls come back when that is over.
    QCOMPARE(host.enabled, 0);
    QVERIFY(BackgroundCalls::WaitForEnd(longEnough));
    QCOMPARE(host.enabled, 1);
}

void AbandonedRestartTest::windowThatClosesDuringTheRestart_data() {
    QTest::addColumn<bool>("fails");
    QTest::newRow("that succeeds") << false;
    QTest::newRow("that fails") << true;
}

void AbandonedRestartTest::windowThatClosesDuringTheRestart() {
    QFETCH(bool, fails);
    OpenModule(Usual(), 0);
    SlowRestart(1.0);
    if (fails) {
        FailNext("Restart", QStringLiteral("Nobody sees this."));
    }
    QSignalSpy finished(Panel(), &moduleRLKWidget::restartFinished);
    Apply();
    Window().close();
    QVERIFY(BackgroundCalls::WaitForEnd(longEnough));
    QTRY_COMPARE(finished.count(), 1);
    ProcessAllEvents();
    QCOMPARE(boxes.Count(), 0);
    // Nothing is asked of the library after the window has begun to close.
    QCOMPARE(Calls::TakeOperation("UpdateDeviceFieldData"), QStringList());
}

void AbandonedRestartTest::windowThatClosesOverTheBox() {
    OpenModule(Usual(), 0);
    FailNext("Restart", QStringLiteral("Close me."));
    BoxReply reply;
    reply.meanwhile = [this](QDialog&) { Window().close(); };
    boxes.ExpectError(&Window(), QStringLiteral("RLK Module"), QStringLiteral("Close me."), reply);
    Apply();
    QTRY_COMPARE(boxes.Count(), 1);
    QVERIFY(BackgroundCalls::WaitForEnd(longEnough));
    QCOMPARE(Calls::TakeOperation("UpdateDeviceFieldData"), QStringList());
}

void AbandonedRestartTest::waitForACallThatDoesNotEnd() {
    std::atomic<bool> go{false};
    bool finished = false;
    const auto waitForGo = [&go] {
        while (!go) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    };
    BackgroundCalls::Start(waitForGo,
                           [&finished](const std::optional<QString>& failure) { finished = !failure.has_value(); });
    QVERIFY(!BackgroundCalls::WaitForEnd(std::chrono::milliseconds(100)));
    QVERIFY(!finished);
    go = true;
    QVERIFY(BackgroundCalls::WaitForEnd(longEnough));
    QVERIFY(finished);
}

TAVIK_TEST_MAIN(AbandonedRestartTest)

#include "AbandonedRestartTest.moc"
