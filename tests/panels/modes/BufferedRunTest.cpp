#include "library/TavikBuffered.h"
#include "library/TavikNetwork.h"
#include "library/TavikNetworks.h"
#include "library/TavikServer.h"
#include "panels/modes/BufferedModeWidget.h"
#include "tests/panels/modes/BufferedPage.h"
#include "tests/support/HostStandIn.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>

using namespace TavikSimulator;

namespace {

const char* const allTitle = "Results (in each module's unit of measure).";
const char* const currentTitle = "Results";

QString CellText(const QTableView* table, int row, int column) {
    return table->model()->index(row, column).data().toString();
}

QStringList ColumnTexts(const QTableView* table, int column) {
    QStringList texts;
    for (int row = 0; row < table->model()->rowCount(); ++row) {
        texts.append(CellText(table, row, column));
    }
    return texts;
}

QStringList Headers(const QTableView* table) {
    QStringList headers;
    for (int column = 0; column < table->model()->columnCount(); ++column) {
        headers.append(table->model()->headerData(column, Qt::Horizontal).toString());
    }
    return headers;
}

} // namespace

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
    void aFailureAfterTheStopGivesTheControlsBack();
    void theNetworkDropsOutInMidRun();
    void aRunningNetworkThatIsShownFirstCanBeStopped();
    void closingStopsTheRun();
    void resultsOfTheCurrentModule();
    void resultsOfAllModules();
    void resultsWithoutEnabledModules();
    void resultsWithCodes();
    void resultsThatCannotBeFetched_data();
    void resultsThatCannotBeFetched();
    void anExternalMasterFillsTheBuffers();

private:
    /// Enables modules, the one in the first row last, so that it stays selected.
    void EnableModules(const QList<int>& rows) {
        for (const int row : rows) {
            SelectModule(row);
            QVERIFY(Operator().Click("btnEnable"));
        }
        Calls::Mark();
    }
    /// A run of so many seconds.
    void Run(double seconds) {
        QVERIFY(Operator().Click("btnStart"));
        AdvanceClock(seconds);
        QVERIFY(Operator().Click("btnStop"));
        Calls::Mark();
    }
    void ExpectResults(const char* title, const std::function<void(QDialog& dialog, QTableView* table)>& look) {
        boxes.ExpectUse(Page(), QString::fromLatin1(title), [look](QDialog& dialog) {
            Settle();
            look(dialog, dialog.findChild<QTableView*>(QStringLiteral("tableResults")));
            QVERIFY(Hand(dialog).Click("btnClose"));
        });
    }
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
    UseBenchText(Bench().toStdString(), "bench of the test");
    UseManualClock();
    SetLatency(false);
    HostStandIn host;
    TavikLibrary::TavikServer server;
    server.Networks()->FindNetworks();
    server.Networks()->ConnectAll();
    TavikLibrary::TavikNetwork* network = server.Networks()->Network(0);
    auto* page = new BufferedModeWidget;
    page->setObjectName(QStringLiteral("bufferedModeWidget"));
    host.setCentralWidget(page);
    page->setNetwork(&host, &server, network, network->GetModule(0));
    host.show();
    Settle();
    Hand hand(host);
    QVERIFY(hand.Click("radioSample"));
    QVERIFY(hand.Click("btnEnable"));
    QVERIFY(hand.Click("btnStart"));
    QCOMPARE(host.disabled, 1);
    QCOMPARE(host.enabled, 0);
    QVERIFY(hand.IsEnabled("btnSample"));
    QVERIFY(hand.Click("btnStop"));
    QCOMPARE(host.enabled, 1);
    QVERIFY(!hand.IsEnabled("btnSample"));
    QVERIFY(!hand.IsEnabled("btnStop"));
    page->setCommandsEnabled(false);
    for (const char* name : {"radioSync", "btnEnable", "btnDisable", "btnStart", "btnAllModules", "tbTTU"}) {
        QVERIFY(!hand.IsEnabled(name));
    }
    page->setCommandsEnabled(true);
    QVERIFY(hand.IsEnabled("btnStart"));
    page->setNetwork(&host, &server, network, nullptr);
    page->setNetwork(&host, &server, nullptr, nullptr);
}

void BufferedRunTest::theStatusBarTellsOfTheRun() {
    OpenBuffered();
    EnableModules({1, 0});
    QVERIFY(Operator().Click("btnStart"));
    QCOMPARE(Activity(), QStringLiteral("Buffered mode runs: 2 modules enabled, 0 s"));
    Calls::Mark();
    QVERIFY(WaitUntil([this] { return Activity().endsWith(QLatin1String(", 1 s")); }));
    // Nobody asks the modules meanwhile.
    COMPARE_CALLS(Calls::Take(), {});
    QVERIFY(Operator().Click("btnStop"));
    QCOMPARE(Activity(), QString());
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
    QCOMPARE(Activity(), QString());
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
        QCOMPARE(Activity(), QString());
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

void BufferedRunTest::resultsOfTheCurrentModule() {
    OpenBuffered();
    QVERIFY(Operator().Enter("sbInterval", QStringLiteral("40960")));
    Operator().Press(Qt::Key_Tab);
    EnableModules({0});
    HoldPosition("Alpha", "KX00000001", 0.5);
    Run(1.0);
    ExpectResults(currentTitle, [](QDialog& dialog, QTableView* table) {
        QCOMPARE(dialog.findChild<QLabel*>(QStringLiteral("lblModuleID"))->text(), QStringLiteral("KX00000001"));
        QCOMPARE(Headers(table), (QStringList{QStringLiteral("Reading (UOM)"), QStringLiteral("Reading (Counts)"),
                                              QStringLiteral("Status")}));
        QCOMPARE(table->model()->rowCount(), 24);
        QCOMPARE(CellText(table, 23, 0), QStringLiteral("0.50000"));
        QCOMPARE(CellText(table, 23, 1), QStringLiteral("4096"));
        QCOMPARE(CellText(table, 23, 2), QStringLiteral("No error."));
        QCOMPARE(table->editTriggers(), QAbstractItemView::NoEditTriggers);
        table->setFocus();
        table->selectRow(0);
        QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier);
        QVERIFY(QApplication::clipboard()->text().contains(QStringLiteral("0.50000\t4096\tNo error.")));
    });
    QVERIFY(Operator().Click("btnCurrentModule"));
    QCOMPARE(boxes.Count(), 1);
    const QStringList calls = Calls::TakeObject("buffered KX00000001");
    QCOMPARE(calls.first(), QStringLiteral("buffered KX00000001.BufferedDataLength()"));
    QCOMPARE(calls.last(), QStringLiteral("buffered KX00000001.GetBufferedItem(23)"));
}

void BufferedRunTest::resultsOfAllModules() {
    OpenBuffered();
    EnableModules({1, 3, 0});
    HoldPosition("Alpha", "KX00000001", 0.5);
    HoldPosition("Alpha", "KX00000002", 1.25);
    Run(0.1);
    ExpectResults(allTitle, [](QDialog&, QTableView* table) {
        QCOMPARE(Headers(table), Names("KX00000001 KX00000002 QTA0000004"));
        QCOMPARE(table->model()->rowCount(), 24);
        QCOMPARE(CellText(table, 23, 0), QStringLiteral("0.50000"));
        QCOMPARE(CellText(table, 3, 1), QStringLiteral("1.25000"));
        // A buffer of five readings is full: the last tells so, and there are none after it.
        QCOMPARE(CellText(table, 4, 1), QStringLiteral("The module's buffer was full; later readings were lost."));
        QCOMPARE(ColumnTexts(table, 1).mid(5), QVector<QString>(19).toList());
        QCOMPARE(CellText(table, 23, 2), QStringLiteral("39.00000"));
    });
    QVERIFY(Operator().Click("btnAllModules"));
    QCOMPARE(boxes.Count(), 1);
}

void BufferedRunTest::resultsWithoutEnabledModules() {
    OpenBuffered();
    EnableModules({0});
    Run(0.1);
    QVERIFY(Operator().Click("btnDisable"));
    ExpectResults(allTitle, [](QDialog&, QTableView* table) {
        QCOMPARE(table->model()->columnCount(), 0);
        QCOMPARE(table->model()->rowCount(), 0);
    });
    QVERIFY(Operator().Click("btnAllModules"));
    // The module's own readings are there all the same.
    ExpectResults(currentTitle, [](QDialog&, QTableView* table) { QCOMPARE(table->model()->rowCount(), 24); });
    QVERIFY(Operator().Click("btnCurrentModule"));
    SelectModule(1);
    ExpectResults(currentTitle, [](QDialog& dialog, QTableView* table) {
        QCOMPARE(table->model()->rowCount(), 0);
        QCOMPARE(table->model()->columnCount(), 3);
        QCOMPARE(dialog.findChild<QLabel*>(QStringLiteral("lblModuleID"))->text(), QStringLiteral("KX00000002"));
    });
    QVERIFY(Operator().Click("btnCurrentModule"));
    QCOMPARE(boxes.Count(), 3);
}

void BufferedRunTest::resultsWithCodes() {
    OpenBuffered();
    QVERIFY(Operator().Click("radioSample"));
    EnableModules({0});
    QVERIFY(Operator().Click("btnStart"));
    for (const double position : {0.5, 3.0, -1.0}) {
        HoldPosition("Alpha", "KX00000001", position);
        QVERIFY(Operator().Click("btnSample"));
    }
    SetModulePresent("Alpha", "KX00000001", false);
    QVERIFY(Operator().Click("btnSample"));
    QVERIFY(Operator().Click("btnStop"));
    const QStringList status{QStringLiteral("No error."),
                             QStringLiteral("The reading lies above the module's measuring range."),
                             QStringLiteral("The reading lies below the module's measuring range."),
                             QStringLiteral("The module dropped out of the collection.")};
    ExpectResults(allTitle, [&](QDialog&, QTableView* table) {
        QCOMPARE(ColumnTexts(table, 0), QStringList{QStringLiteral("0.50000")} + status.mid(1));
    });
    QVERIFY(Operator().Click("btnAllModules"));
    ExpectResults(currentTitle, [&](QDialog&, QTableView* table) {
        QCOMPARE(ColumnTexts(table, 0), Names("0.50000 2.00000 0.00000 0.00000"));
        QCOMPARE(ColumnTexts(table, 1), Names("4096 16384 0 0"));
        QCOMPARE(ColumnTexts(table, 2), status);
    });
    QVERIFY(Operator().Click("btnCurrentModule"));
    QCOMPARE(boxes.Count(), 2);
}

void BufferedRunTest::resultsThatCannotBeFetched_data() {
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("button");
    for (const char* operation : {"Identity", "Buffered", "BufferedDataLength", "GetBufferedItem"}) {
        QTest::addRow("current: %s", operation) << QString::fromLatin1(operation) << QStringLiteral("btnCurrentModule");
        QTest::addRow("all: %s", operation) << QString::fromLatin1(operation) << QStringLiteral("btnAllModules");
    }
    for (const char* operation : {"EnabledCount", "ModuleCount", "GetModule", "Enabled"}) {
        QTest::addRow("all: %s", operation) << QString::fromLatin1(operation) << QStringLiteral("btnAllModules");
    }
}

void BufferedRunTest::resultsThatCannotBeFetched() {
    QFETCH(QString, operation);
    QFETCH(QString, button);
    OpenBuffered();
    EnableModules({0});
    Run(0.1);
    FailNth(operation == QLatin1String("GetBufferedItem") ? 20 : 1, operation.toLatin1().constData(), ForeignText());
    ExpectBox(ForeignText());
    QVERIFY(Operator().Click(button.toLatin1().constData()));
    QCOMPARE(boxes.Count(), 1);
    QVERIFY(Page()->findChildren<QDialog*>().isEmpty());
    QCOMPARE(Enabled(), Names("btnDisable btnStart btnAllModules btnCurrentModule"));
}

void BufferedRunTest::anExternalMasterFillsTheBuffers() {
    OpenBuffered();
    QVERIFY(Operator().Click("radioSample"));
    QVERIFY(Operator().Choose("cbMasterAddress", 2));
    QVERIFY(Operator().Enter("sbCountsPerSample", QStringLiteral("40")));
    Operator().Press(Qt::Key_Return);
    EnableModules({0});
    Run(1.05);
    ExpectResults(currentTitle, [](QDialog&, QTableView* table) { QCOMPARE(table->model()->rowCount(), 10); });
    QVERIFY(Operator().Click("btnCurrentModule"));
    QCOMPARE(boxes.Count(), 1);
}

TAVIK_TEST_MAIN(BufferedRunTest)
#include "BufferedRunTest.moc"
