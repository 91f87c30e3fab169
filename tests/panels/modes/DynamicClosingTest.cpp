#include "library/TavikDynamic.h"
#include "library/TavikNetwork.h"
#include "library/TavikNetworks.h"
#include "library/TavikServer.h"
#include "panels/modes/DynamicWidget.h"
#include "tests/panels/modes/DynamicPage.h"
#include "tests/support/FakeHostWindow.h"

#include <QDialog>

using namespace TavikSimulator;

/// The window or the page goes while a dynamic collection runs.
class DynamicClosingTest : public DynamicPage {
    Q_OBJECT

private slots:
    void closingWhileItRuns();
    void closingRightAfterTheStop();
    void closingWhenTheEndIsOnItsWay();
    void endsAfterTheClosing();
    void closingInTheBoxOfAFailedStop();
    void theWindowGoesWhileItRuns();
    void thePageGoesBeforeTheEnd();

private:
    void CloseAndSettle() {
        Window().close();
        QTest::qWait(50);
        QVERIFY(!Window().isVisible());
    }
    /// Once the window has been closed nothing is asked of the library any more.
    void NothingIsAskedLater() {
        const QStringList calls = Calls::Take();
        QCOMPARE(calls.last(), QStringLiteral("networks.DisconnectAll()"));
        QCOMPARE(boxes.Count(), 0);
    }
};

void DynamicClosingTest::closingWhileItRuns() {
    OpenPage();
    Enter("sbNumSyncs", 0);
    Start();
    Changes();
    CloseAndSettle();
    NothingIsAskedLater();
}

void DynamicClosingTest::closingRightAfterTheStop() {
    OpenPage();
    Start();
    Changes();
    QVERIFY(QMetaObject::invokeMethod(Page(), "on_btnStop_clicked"));
    CloseAndSettle();
    NothingIsAskedLater();
}

void DynamicClosingTest::closingWhenTheEndIsOnItsWay() {
    OpenPage();
    Enter("sbNumSyncs", 100);
    Start();
    Changes();
    AdvanceClock(1.0);
    // The library has told the page, which has not been to its queue yet.
    QTest::qSleep(50);
    CloseAndSettle();
    NothingIsAskedLater();
}

void DynamicClosingTest::endsAfterTheClosing() {
    OpenPage();
    Enter("sbNumSyncs", 0);
    Start();
    Changes();
    // Nothing that the closing does ends the collection.
    for (const char* operation : {"StopAllDynamic", "DisconnectAll"}) {
        FailNext(operation, QStringLiteral("No answer"));
    }
    CloseAndSettle();
    Calls::Mark();
    SetNetworkPresent("Alpha", false);
    QTest::qWait(50);
    QCOMPARE(Calls::Take(), QStringList());
    QCOMPARE(boxes.Count(), 0);
}

void DynamicClosingTest::closingInTheBoxOfAFailedStop() {
    OpenPage();
    Enter("sbNumSyncs", 100);
    Start();
    BoxReply closing;
    closing.meanwhile = [this](QDialog&) { Window().close(); };
    boxes.ExpectError(Page(), QStringLiteral("Dynamic Mode"), QStringLiteral("No answer"), closing);
    FailNext("StopAllDynamic", QStringLiteral("No answer"));
    AdvanceClock(1.0);
    QVERIFY(WaitUntil([this] { return !Window().isVisible(); }));
    QTest::qWait(50);
    QCOMPARE(Calls::Take().constLast(), QStringLiteral("networks.DisconnectAll()"));
    QCOMPARE(boxes.Count(), 1);
}

void DynamicClosingTest::theWindowGoesWhileItRuns() {
    OpenPage();
    Enter("sbNumSyncs", 0);
    Start();
    AdvanceClock(0.5);
    Calls::Mark();
    Drop();
    QTest::qWait(20);
    QCOMPARE(boxes.Count(), 0);
    // The page lets go of the network before it releases the controls, which would refresh it.
    COMPARE_CALLS(Calls::TakeObject("dynamic Alpha"), {});
}

void DynamicClosingTest::thePageGoesBeforeTheEnd() {
    UseStillBenchText(Benches::With(Probes()).toStdString(), "bench of the test");
    TavikLibrary::TavikServer server;
    server.Networks()->FindNetworks();
    server.Networks()->ConnectAll();
    TavikLibrary::TavikNetwork* network = server.Networks()->Network(0);
    FakeHostWindow host;
    auto* page = new DynamicWidget(&host);
    page->setNetwork(&host, &server, network, network->GetModule(0));
    WidgetDriver driver(host);
    for (const char* slot : {"on_btnEnable_clicked", "on_btnPrepare_clicked", "on_btnStart_clicked"}) {
        QVERIFY(QMetaObject::invokeMethod(page, slot));
    }
    QCOMPARE(host.disabled, 1);
    delete page;
    // What the page held is released, and nothing happens at the end of the collection.
    QCOMPARE(host.enabled, 1);
    AdvanceClock(10.0);
    QTRY_COMPARE(network->Dynamic()->DynamicState(), TavikLibrary::eDynamicState::ResultsAvailable);
    QTest::qWait(20);
    QCOMPARE(host.enabled, 1);
}

TAVIK_TEST_MAIN(DynamicClosingTest)

#include "DynamicClosingTest.moc"
