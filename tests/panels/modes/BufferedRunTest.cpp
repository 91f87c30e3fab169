#include "library/TavikBuffered.h"
#include "library/TavikNetwork.h"
#include "library/TavikNetworks.h"
#include "library/TavikServer.h"
#include "panels/modes/BufferedModeWidget.h"
#include "tests/panels/modes/BufferedPage.h"
#include "tests/support/FakeHostWindow.h"

using namespace TavikSimulator;

/// Runs of buffered mode on its page, and their results.
class BufferedRunTest : public BufferedPage {
    Q_OBJECT

private slots:
    void startingAndStopping();
    void samplingIsOfferedInSampleMode();
    void theHostIsTold();
    void theStatusBarTellsOfTheRun();
    void failedStarts();
    void aFailureAfterTheStartLeavesItStoppable();
    void failedSamples();
    void failedStops();
    void aStopWithoutAnyAnswerGivesTheControlsBack();
    void aFailureAfterTheStopGivesTheControlsBack();
    void theNetworkDropsOutInMidRun();
    void aRunningNetworkThatIsShownFirstCanBeStopped();
    void closingStopsTheRun();

private:
    bool IsOver() { return Activity().startsWith(QLatin1String("Buffered: ")); }
};

void BufferedRunTest::startingAndStopping() {
    OpenBuffered();
    EnableModules({0});
    QVERIFY(Operator().Click("btnStart"));
    QStringList calls = Calls::Take();
    COMPARE_CALLS(calls.mid(0, 14), NetworkCall("Start()") + Refreshing(QStringLiteral("KX00000001")));
    QCOMPARE(Enabled(), Names("btnStop"));
    for (const char* name : {"tableNetworks", "listModules", "btnConnectAll", "btnNotify", "btnSetSpeed"}) {
        QVERIFY2(!Window().findChild<QWidget*>(QLatin1String(name))->isEnabled(), name);
    }
    AdvanceClock(1.0);
    QVERIFY(Operator().Click("btnStop"));
    calls = Calls::Take();
    COMPARE_CALLS(calls.mid(0, 14), NetworkCall("Stop()") + Refreshing(QStringLiteral("KX00000001")));
    QCOMPARE(Enabled(), Names("btnDisable btnStart btnAllModules btnCurrentModule"));
    for (const char* name : {"tableNetworks", "listModules", "btnConnectAll", "btnNotify", "btnSetSpeed"}) {
        QVERIFY2(Window().findChild<QWidget*>(QLatin1String(name))->isEnabled(), name);
    }
    QVERIFY(Operator().Click("btnDisable"));
    QCOMPARE(Enabled(), Names("radioSync radioSample btnEnable sbInterval btnAllModules btnCurrentModule"));
}

void BufferedRunTest::samplingIsOfferedInSampleMode() {
    OpenBuffered();
    QVERIFY(Operator().Click("radioSample"));
    EnableModules({0});
    QVERIFY(Operator().Click("btnStart"));
    QCOMPARE(Enabled(), Names("btnSample btnStop"));
    Calls::Mark();
    for (int i = 0; i < 3; ++i) {
        QVERIFY(Operator().Click("btnSample"));
        COMPARE_CALLS(Calls::Take(), NetworkCall("Sample()"));
    }
    QCOMPARE(Enabled(), Names("btnSample btnStop"));
    QVERIFY(Operator().Click("btnStop"));
    ExpectResults(currentTitle, [](QDialog&, const QTableView* table) { QCOMPARE(table->model()->rowCount(), 3); });
    QVERIFY(Operator().Click("btnCurrentModule"));
}

// The window is told after the page has been refreshed; what may be pressed during the run is decided after that.
void BufferedRunTest::theHostIsTold() {
    UseStillBenchText(Bench().toStdString(), "bench of the test");
    FakeHostWindow host;
    TavikLibrary::TavikServer server;
    server.Networks()->FindNetworks();
    server.Networks()->ConnectAll();
    TavikLibrary::TavikNetwork* network = server.Networks()->Network(0);
    auto* page = new BufferedModeWidget;
    page->setObjectName(QStringLiteral("bufferedModeWidget"));
    host.setCentralWidget(page);
    page->setNetwork(&host, &server, network, network->GetModule(0));
    host.show();
    ProcessAllEvents();
    WidgetDriver driver(host);
    QVERIFY(driver.Click("radioSample"));
    QVERIFY(driver.Click("btnEnable"));
    QVERIFY(driver.Click("btnStart"));
    QCOMPARE(host.disabled, 1);
    QCOMPARE(host.enabled, 0);
    QVERIFY(driver.IsEnabled("btnSample"));
    QVERIFY(driver.Click("btnStop"));
    QCOMPARE(host.enabled, 1);
    QVERIFY(!driver.IsEnabled("btnSample"));
    QVERIFY(!driver.IsEnabled("btnStop"));
    page->setCommandsEnabled(false);
    for (const char* name : {"radioSync", "btnEnable", "btnDisable", "btnStart", "btnAllModules", "tbTTU"}) {
        QVERIFY(!driver.IsEnabled(name));
    }
    page->setCommandsEnabled(true);
    QVERIFY(driver.IsEnabled("btnStart"));
    page->setNetwork(&host, &server, network, nullptr);
    page->setNetwork(&host, &server, nullptr, nullptr);
}

void BufferedRunTest::theStatusBarTellsOfTheRun() {
    OpenBuffered();
    EnableModules({1, 0});
    QVERIFY(Operator().Click("btnStart"));
    QCOMPARE(Activity(), QStringLiteral("Buffered mode runs, modules enabled: 2, 0 s"));
    Calls::Mark();
    QVERIFY(WaitUntil([this] { return Activity().endsWith(QLatin1String(", 1 s")); }));
    // Nobody asks the modules meanwhile.
    COMPARE_CALLS(Calls::Take(), {});
    QVERIFY(Operator().Click("btnStop"));
    const QRegularExpression outcome(QStringLiteral("^Buffered: 2 modules, \\d+\\.\\d s$"));
    QVERIFY2(outcome.match(Activity()).hasMatch(), qPrintable(Activity()));
}

void BufferedRunTest::failedStarts() {
    OpenBuffered();
    EnableModules({0});
    FailNext("Start", ForeignText());
    ExpectBox(ForeignText());
    QVERIFY(Operator().Click("btnStart"));
    QCOMPARE(Enabled(), Names("btnDisable btnStart"));
    QVERIFY(Operator().Find("listModules")->isEnabledTo(&Window()));
    QCOMPARE(Activity(), QString());
    SetModulePresent("Alpha", "KX00000001", false);
    ExpectBox(QStringLiteral("Module KX00000001 on network \"Alpha\" does not answer."));
    QVERIFY(Operator().Click("btnStart"));
    SetModulePresent("Alpha", "KX00000001", true);
    Run(0.1);
}

void BufferedRunTest::aFailureAfterTheStartLeavesItStoppable() {
    OpenBuffered();
    EnableModules({0});
    for (const char* operation : {"IsConnected", "Mode", "Identity", "EnabledCount", "MasterIndex"}) {
        FailNext(operation, ForeignText());
        ExpectBox(ForeignText());
        QVERIFY(Operator().Click("btnStart"));
        QCOMPARE(Enabled(), Names("btnStop"));
        QVERIFY(!Operator().Find("listModules")->isEnabledTo(&Window()));
        QVERIFY(Operator().Click("btnStop"));
        QCOMPARE(Enabled(), Names("btnDisable btnStart btnAllModules btnCurrentModule"));
    }
    QCOMPARE(boxes.Count(), 5);
}

void BufferedRunTest::failedSamples() {
    OpenBuffered();
    QVERIFY(Operator().Click("radioSample"));
    QVERIFY(Operator().Choose("cbMasterAddress", 2));
    EnableModules({0});
    QVERIFY(Operator().Click("btnStart"));
    ExpectBox(QStringLiteral("Module QTA0000004 triggers the samples of network \"Alpha\", not the controller."));
    QVERIFY(Operator().Click("btnSample"));
    QCOMPARE(Enabled(), Names("btnSample btnStop"));
    QVERIFY(Operator().Click("btnStop"));
}

void BufferedRunTest::failedStops() {
    OpenBuffered();
    EnableModules({0});
    QVERIFY(Operator().Click("btnStart"));
    FailNext("Stop", ForeignText());
    ExpectBox(ForeignText());
    QVERIFY(Operator().Click("btnStop"));
    QCOMPARE(Enabled(), Names("btnStop"));
    QVERIFY(!Activity().isEmpty());
    QVERIFY(Operator().Click("btnStop"));
    QCOMPARE(Enabled(), Names("btnDisable btnStart btnAllModules btnCurrentModule"));
    // A stop that fails because nothing is left to be stopped does not hold the window.
    QVERIFY(Operator().Click("btnStart"));
    SetNetworkPresent("Alpha", false);
    FailNext("Stop", ForeignText());
    ExpectBox(ForeignText());
    QVERIFY(Operator().Click("btnStop"));
    QVERIFY(IsOver());
    QVERIFY(Operator().Find("listModules")->isEnabledTo(&Window()));
}

// A network that does not even tell whether it runs must not hold the window.
void BufferedRunTest::aStopWithoutAnyAnswerGivesTheControlsBack() {
    OpenBuffered();
    EnableModules({0});
    QVERIFY(Operator().Click("btnStart"));
    for (const char* operation : {"Stop", "Status"}) {
        Fault silent;
        silent.operation = operation;
        silent.text = ForeignText().toStdString();
        AddFault(silent);
    }
    ExpectBox(ForeignText());
    QVERIFY(Operator().Click("btnStop"));
    QCOMPARE(FaultsTriggered(), std::uint64_t{2});
    QVERIFY(IsOver());
    QVERIFY(Operator().Find("listModules")->isEnabledTo(&Window()));
}

void BufferedRunTest::aFailureAfterTheStopGivesTheControlsBack() {
    OpenBuffered();
    EnableModules({0});
    for (const char* operation : {"IsConnected", "Mode", "Identity", "EnabledCount", "MasterIndex"}) {
        QVERIFY(Operator().Click("btnStart"));
        FailNext(operation, ForeignText());
        ExpectBox(ForeignText());
        QVERIFY(Operator().Click("btnStop"));
        QVERIFY(Operator().Find("listModules")->isEnabledTo(&Window()));
        QVERIFY(!On<QWidget>("btnStop")->isEnabled());
        QVERIFY(On<QWidget>("btnStart")->isEnabled());
        QVERIFY(IsOver());
    }
    QCOMPARE(boxes.Count(), 5);
}

void BufferedRunTest::theNetworkDropsOutInMidRun() {
    OpenBuffered();
    EnableModules({0});
    QVERIFY(Operator().Click("btnStart"));
    AdvanceClock(0.5);
    SetNetworkPresent("Alpha", false);
    QVERIFY(Operator().Click("btnStop"));
    QVERIFY(Operator().Find("listModules")->isEnabledTo(&Window()));
    QVERIFY(Operator().Find("btnConnectAll")->isEnabledTo(&Window()));
    QVERIFY(!On<QWidget>("btnStop")->isEnabled());
    SetNetworkPresent("Alpha", true);
    QVERIFY(Operator().SelectPage("tabServer"));
    QVERIFY(Operator().Click("btnConnectAll"));
    SelectModule(1);
    SelectModule(0);
    QCOMPARE(Enabled(), Names("btnDisable btnStart btnAllModules btnCurrentModule"));
}

void BufferedRunTest::aRunningNetworkThatIsShownFirstCanBeStopped() {
    OpenBuffered();
    EnableModules({0});
    {
        TavikLibrary::TavikServer other;
        other.Networks()->Network(0)->Buffered()->Start();
        SelectModule(1);
        SelectModule(0);
    }
    QCOMPARE(Enabled(), Names("btnDisable btnSample btnStop"));
    QVERIFY(Operator().Click("btnStop"));
    QCOMPARE(Enabled(), Names("btnDisable btnStart btnAllModules btnCurrentModule"));
}

void BufferedRunTest::closingStopsTheRun() {
    OpenBuffered();
    EnableModules({0});
    QVERIFY(Operator().Click("btnStart"));
    Calls::Mark();
    QVERIFY(Window().close());
    QCOMPARE(Calls::CountOf("Stop"), 2);
    QCOMPARE(boxes.Count(), 0);
}

TAVIK_TEST_MAIN(BufferedRunTest)
#include "BufferedRunTest.moc"
