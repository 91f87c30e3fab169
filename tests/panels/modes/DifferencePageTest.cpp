#include "tests/panels/modes/DifferencePage.h"

#include "library/TavikNetwork.h"
#include "library/TavikNetworks.h"
#include "library/TavikServer.h"
#include "panels/modes/DialogDifferenceResults.h"
#include "panels/modes/DifferenceModeWidget.h"

#include <QClipboard>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QTableWidget>
#include <QTextEdit>

using namespace TavikSimulator;

namespace {

QStringList HeadersOf(const QTableWidget& table, Qt::Orientation orientation) {
    QStringList headers;
    const int count = orientation == Qt::Horizontal ? table.columnCount() : table.rowCount();
    for (int section = 0; section < count; ++section) {
        headers.append(table.model()->headerData(section, orientation).toString());
    }
    return headers;
}

/// A probe whose part jumps between -0.75 and 1.25.
const QString movingProbe =
    QStringLiteral("<module type=\"KX\" identity=\"KX00000001\" stroke=\"4\" offset=\"-2\">"
                   "<signal motion=\"square\" base=\"0.25\" amplitude=\"1\" period=\"1\" noise=\"0\"/></module>");

QStringList ColumnOf(const QTableWidget& table, int column) {
    QStringList texts;
    for (int row = 0; row < table.rowCount(); ++row) {
        texts.append(table.item(row, column)->text());
    }
    return texts;
}

} // namespace

/// The page of difference mode, and the dialog of its results.
class DifferencePageTest : public DifferencePage {
    Q_OBJECT

private slots:
    void theForm();
    void pagesOpenOnTheirFirstCommand();
    void whatIsShownBeforeARun();
    void modulesAreEnabledOneByOne();
    void aRunIsWatchedUntilItIsStopped();
    void onlyStopIsOfferedDuringARun();
    void theValuesOfAMovingPart();
    void anotherModuleIsNotWatched();
    void aModuleWithoutDifferenceHasNoPage();
    void withoutAModuleTheTextsStay();
    void theStopFlagIsClearedAtStart();
    void disablingTheCommandsLeavesStopAlone();
    void theResultsOfAllModules();
    void theResultsOfAMovingPart();
    void resultsWithoutModules();
    void resultsAreCopied();

private:
    QString Value(const char* name) { return Operator().Text(name); }
};

void DifferencePageTest::theForm() {
    OpenPage(StillProbe(1));
    const std::vector<std::pair<const char*, const char*>> buttons = {{"btnEnable", "Enable"},
                                                                      {"btnDisable", "Disable"},
                                                                      {"btnStartDiff", "Start Diff"},
                                                                      {"btnStopDiff", "Stop Diff"},
                                                                      {"btnDisplayAllModuleResults", "All Modules"}};
    for (const auto& [name, text] : buttons) {
        QCOMPARE(Operator().Text(name), QLatin1String(text));
    }
    QCOMPARE(Operator().The<QTextEdit>("textEdit")->toPlainText(),
             QStringLiteral(
                 "Click 'Enable' to Enable the selected module for Difference mode.\n"
                 "Enable any other module(s) desired to be in difference mode using the same method.\n"
                 "Once all desired modules have been Enabled, Click 'Start Diff'. This will start Difference mode for "
                 "all Enabled modules on the selected network.\n"
                 "Click 'Stop Diff' to stop Difference mode for all Enabled modules on the selected network\n"
                 "Click 'All Modules' to get results for all modules on the selected network."));
    QVERIFY(Operator().The<QTextEdit>("textEdit")->isReadOnly());
}

void DifferencePageTest::pagesOpenOnTheirFirstCommand() {
    OpenPage(StillProbe(1));
    QVERIFY(Operator().Find("btnEnable")->hasFocus());
    QVERIFY(Operator().SelectPage("tabReadburst"));
    QVERIFY(Operator().Find("btnReadInUnits")->hasFocus());
}

void DifferencePageTest::whatIsShownBeforeARun() {
    OpenPage(StillProbe(1));
    QCOMPARE(Value("tbModuleID"), QStringLiteral("KX00000001"));
    QCOMPARE(Value("tbEnabled"), QStringLiteral("False"));
    for (const char* name : {"tbCountMax", "tbCountMin", "tbCountSum", "tbCountDiff", "tbNumReads", "tbEnabledCount"}) {
        QCOMPARE(Value(name), QStringLiteral("0"));
    }
    for (const char* name : {"tbUnitMax", "tbUnitMin", "tbUnitSum", "tbUnitDiff"}) {
        QCOMPARE(Value(name), QStringLiteral("0.00000"));
    }
    QCOMPARE(Value("tbErrMsg"), QStringLiteral("No error."));
    QCOMPARE(Offered(), QStringList{QStringLiteral("Enable")});
    QVERIFY(ControlsAreOn());
}

void DifferencePageTest::modulesAreEnabledOneByOne() {
    OpenPage(StillProbe(1) + StillProbe(2));
    QVERIFY(Operator().Click("btnEnable"));
    QCOMPARE(Value("tbEnabled"), QStringLiteral("True"));
    QCOMPARE(Value("tbEnabledCount"), QStringLiteral("1"));
    QCOMPARE(Offered(), QStringList({QStringLiteral("Disable"), QStringLiteral("StartDiff")}));
    COMPARE_CALLS(Calls::Take(), {QStringLiteral("module KX00000001.Difference()"),
                                  QStringLiteral("difference KX00000001.setEnabled(true)"),
                                  QStringLiteral("network Alpha.IsConnected()"),
                                  QStringLiteral("module KX00000001.Identity()"),
                                  QStringLiteral("module KX00000001.Difference()"),
                                  QStringLiteral("difference KX00000001.Enabled()"),
                                  QStringLiteral("network Alpha.Difference()"),
                                  QStringLiteral("difference Alpha.Status()"),
                                  QStringLiteral("difference KX00000001.MaxCounts()"),
                                  QStringLiteral("difference KX00000001.MinCounts()"),
                                  QStringLiteral("difference KX00000001.SumCounts()"),
                                  QStringLiteral("difference KX00000001.DiffCounts()"),
                                  QStringLiteral("difference KX00000001.Max()"),
                                  QStringLiteral("difference KX00000001.Min()"),
                                  QStringLiteral("difference KX00000001.Sum()"),
                                  QStringLiteral("difference KX00000001.Diff()"),
                                  QStringLiteral("difference KX00000001.ReadingCount()"),
                                  QStringLiteral("difference KX00000001.Error()"),
                                  QStringLiteral("server.GetErrorDescription(0)"),
                                  QStringLiteral("network Alpha.Difference()"),
                                  QStringLiteral("difference Alpha.Count()")});
    GoTo(1);
    QCOMPARE(Value("tbModuleID"), QStringLiteral("KX00000002"));
    QCOMPARE(Value("tbEnabled"), QStringLiteral("False"));
    QCOMPARE(Offered(), QStringList({QStringLiteral("Enable"), QStringLiteral("StartDiff")}));
    QVERIFY(Operator().Click("btnEnable"));
    QCOMPARE(Value("tbEnabledCount"), QStringLiteral("2"));
    QVERIFY(Operator().Click("btnDisable"));
    QCOMPARE(Value("tbEnabled"), QStringLiteral("False"));
    QCOMPARE(Value("tbEnabledCount"), QStringLiteral("1"));
}

void DifferencePageTest::aRunIsWatchedUntilItIsStopped() {
    OpenPage(StillProbe(1));
    QVERIFY(Operator().Click("btnEnable"));
    Calls::Mark();
    StartAndThen({[] {},
                  [this] {
                      // 976 readings in the first second, one every 1.024 ms.
                      QCOMPARE(Value("tbNumReads"), QStringLiteral("976"));
                      QCOMPARE(Value("tbCountMax"), QStringLiteral("8192"));
                      QCOMPARE(Value("tbCountMin"), QStringLiteral("8192"));
                      QCOMPARE(Value("tbCountDiff"), QStringLiteral("0"));
                      QCOMPARE(Value("tbCountSum"), QString::number(976 * 8192));
                      QCOMPARE(Value("tbUnitMax"), QStringLiteral("1.00000"));
                      QCOMPARE(Value("tbUnitSum"), QStringLiteral("976.00000"));
                      QCOMPARE(Activity(), QStringLiteral("Difference mode: modules enabled: 1, readings so far: 976, "
                                                          "seconds: 0"));
                  },
                  Stop()});
    QVERIFY(ControlsAreOn());
    CompareOutcome(QStringLiteral("1 module"));
    QCOMPARE(Value("tbNumReads"), QStringLiteral("2929"));
    QCOMPARE(Offered(), QStringList({QStringLiteral("Disable"), QStringLiteral("StartDiff"),
                                     QStringLiteral("DisplayAllModuleResults")}));
    const QStringList calls = Calls::Take();
    QCOMPARE(calls.filter(QStringLiteral("Alpha.Start()")).size(), 1);
    QCOMPARE(calls.filter(QStringLiteral("Alpha.Stop()")).size(), 1);
    QVERIFY(calls.indexOf(QStringLiteral("difference KX00000001.ReadDifference()")) >
            calls.indexOf(QStringLiteral("difference Alpha.Start()")));
    QVERIFY(calls.lastIndexOf(QStringLiteral("difference KX00000001.ReadDifference()")) <
            calls.indexOf(QStringLiteral("difference Alpha.Stop()")));
}

void DifferencePageTest::onlyStopIsOfferedDuringARun() {
    OpenPage(StillProbe(1));
    QVERIFY(Operator().Click("btnEnable"));
    StartAndThen({[this] {
                      QCOMPARE(Offered(), QStringList{QStringLiteral("StopDiff")});
                      QVERIFY(Operator().Find("btnStopDiff")->hasFocus());
                      QVERIFY(!ControlsAreOn());
                      QVERIFY(!Window().findChild<QWidget*>(QStringLiteral("btnConnectAll"))->isEnabled());
                      QVERIFY(!Window().findChild<QWidget*>(QStringLiteral("btnRead"))->isEnabled());
                      QVERIFY(!Window().findChild<QWidget*>(QStringLiteral("btnReadInUnits"))->isEnabled());
                      // Other pages can be looked at.
                      QVERIFY(Operator().SelectPage("tabModule"));
                  },
                  [this] {
                      QVERIFY(Operator().SelectPage("tabDifference"));
                      Stop()();
                  }});
    QVERIFY(ControlsAreOn());
    QVERIFY(Operator().IsEnabled("btnStartDiff"));
}

void DifferencePageTest::theValuesOfAMovingPart() {
    OpenPage(movingProbe);
    QVERIFY(Operator().Click("btnEnable"));
    StartAndThen({Stop()});
    QCOMPARE(Value("tbUnitMax"), QStringLiteral("1.25000"));
    QCOMPARE(Value("tbUnitMin"), QStringLiteral("-0.75000"));
    QCOMPARE(Value("tbUnitDiff"), QStringLiteral("2.00000"));
    QCOMPARE(Value("tbCountMax"), QStringLiteral("13312"));
    QCOMPARE(Value("tbCountMin"), QStringLiteral("5120"));
    QCOMPARE(Value("tbCountDiff"), QStringLiteral("8192"));
}

void DifferencePageTest::anotherModuleIsNotWatched() {
    OpenPage(StillProbe(1) + StillProbe(2));
    QVERIFY(Operator().Click("btnEnable"));
    GoTo(1);
    QVERIFY(Operator().Click("btnStartDiff"));
    // The selected module takes no part: nothing to watch, but the run is on.
    QCOMPARE(Offered(), QStringList{QStringLiteral("StopDiff")});
    QVERIFY(!ControlsAreOn());
    QVERIFY(Activity().contains(QLatin1String("until it is stopped")));
    QCOMPARE(Value("tbNumReads"), QStringLiteral("0"));
    AdvanceClock(1.0);
    QVERIFY(Operator().Click("btnStopDiff"));
    QVERIFY(ControlsAreOn());
    CompareOutcome(QStringLiteral("1 module"));
    GoTo(0);
    QCOMPARE(Value("tbNumReads"), QStringLiteral("976"));
}

void DifferencePageTest::aModuleWithoutDifferenceHasNoPage() {
    OpenPage(StillProbe(1) + QStringLiteral("<module type=\"SWAX\" identity=\"SWAX000002\"/>"));
    QVERIFY(Pages().contains(QStringLiteral("Difference Mode")));
    QVERIFY(Operator().SelectPage("tabNetwork"));
    QVERIFY(Operator().SelectRow("listModules", 1));
    QVERIFY(!Pages().contains(QStringLiteral("Difference Mode")));
}

void DifferencePageTest::withoutAModuleTheTextsStay() {
    OpenPage(StillProbe(1));
    QVERIFY(Operator().Click("btnEnable"));
    auto* page = qobject_cast<DifferenceModeWidget*>(Page());
    Operator().SelectPage("tabNetwork");
    Operator().The<QListWidget>("listModules")->setCurrentRow(-1);
    Calls::Mark();
    page->setCommandsEnabled(true);
    QCOMPARE(Calls::Take(), QStringList());
    QCOMPARE(page->findChild<QLineEdit*>(QStringLiteral("tbModuleID"))->text(), QStringLiteral("KX00000001"));
    QCOMPARE(page->findChild<QLineEdit*>(QStringLiteral("tbEnabled"))->text(), QStringLiteral("True"));
}

void DifferencePageTest::theStopFlagIsClearedAtStart() {
    OpenPage(StillProbe(1));
    QVERIFY(Operator().Click("btnEnable"));
    auto* page = qobject_cast<DifferenceModeWidget*>(Page());
    page->Stop();
    StartAndThen({[] {}, [] {}, Stop()});
    QCOMPARE(Value("tbNumReads"), QStringLiteral("2929"));
    // Raised during a run it ends the watching, and the run goes on.
    StartAndThen({[page] { page->Stop(); }});
    QCOMPARE(Offered(), QStringList{QStringLiteral("StopDiff")});
    QVERIFY(!ControlsAreOn());
    QVERIFY(Operator().Click("btnStopDiff"));
    QVERIFY(ControlsAreOn());
}

void DifferencePageTest::disablingTheCommandsLeavesStopAlone() {
    OpenPage(StillProbe(1));
    QVERIFY(Operator().Click("btnEnable"));
    ControlsHold hold = Window().DisableControls(QStringLiteral("test"));
    QCOMPARE(Offered(), QStringList());
    hold.Release();
    QCOMPARE(Offered(), QStringList({QStringLiteral("Disable"), QStringLiteral("StartDiff")}));
    StartAndThen({[this, &hold] {
                      hold = Window().DisableControls(QStringLiteral("test"));
                      QCOMPARE(Offered(), QStringList{QStringLiteral("StopDiff")});
                  },
                  Stop()});
}

void DifferencePageTest::theResultsOfAllModules() {
    OpenPage(StillProbe(1) + StillProbe(2) + StillProbe(3));
    QVERIFY(Operator().Click("btnEnable"));
    GoTo(2);
    QVERIFY(Operator().Click("btnEnable"));
    HoldPosition("Alpha", "KX00000001", 3.0);
    StartAndThen({Stop()});
    Calls::Mark();
    BoxReply reply;
    reply.meanwhile = [](QDialog& dialog) {
        QVERIFY(dialog.isModal());
        QVERIFY(!dialog.windowIcon().isNull());
        const auto* table = dialog.findChild<QTableWidget*>(QStringLiteral("tableResults"));
        QCOMPARE(HeadersOf(*table, Qt::Vertical),
                 QStringList({QStringLiteral("Error Msg"), QStringLiteral("Maximum"), QStringLiteral("Minimum"),
                              QStringLiteral("Difference"), QStringLiteral("Reads"), QStringLiteral("Sum Of")}));
        QCOMPARE(HeadersOf(*table, Qt::Horizontal),
                 QStringList({QStringLiteral("KX00000001"), QStringLiteral("KX00000003")}));
        QCOMPARE(ColumnOf(*table, 0),
                 QStringList({QStringLiteral("The reading lies above the module's measuring range."),
                              QStringLiteral("2.00000"), QStringLiteral("2.00000"), QStringLiteral("0.00000"),
                              QStringLiteral("976"), QStringLiteral("1952.00000")}));
        QCOMPARE(ColumnOf(*table, 1),
                 QStringList({QStringLiteral("No error."), QStringLiteral("1.00000"), QStringLiteral("1.00000"),
                              QStringLiteral("0.00000"), QStringLiteral("976"), QStringLiteral("976.00000")}));
        QVERIFY(WidgetDriver(dialog).Click("btnClose"));
    };
    boxes.ExpectDialog(Page(), QStringLiteral("Difference Mode Results"), reply);
    QVERIFY(Operator().Click("btnDisplayAllModuleResults"));
    QCOMPARE(Calls::CountOf("ReadDifference"), 0);
    QCOMPARE(Calls::CountOf("Count"), 1);
}

// Asked for in the order of the rows.
void DifferencePageTest::theResultsOfAMovingPart() {
    OpenPage(movingProbe);
    QVERIFY(Operator().Click("btnEnable"));
    StartAndThen({Stop()});
    const QString sum = Value("tbUnitSum");
    const QString reads = Value("tbNumReads");
    Calls::Mark();
    BoxReply reply;
    reply.meanwhile = [&](QDialog& dialog) {
        const auto* table = dialog.findChild<QTableWidget*>(QStringLiteral("tableResults"));
        QCOMPARE(ColumnOf(*table, 0), QStringList({QStringLiteral("No error."), QStringLiteral("1.25000"),
                                                   QStringLiteral("-0.75000"), QStringLiteral("2.00000"), reads, sum}));
        QVERIFY(WidgetDriver(dialog).Click("btnClose"));
    };
    boxes.ExpectDialog(Page(), QStringLiteral("Difference Mode Results"), reply);
    QVERIFY(Operator().Click("btnDisplayAllModuleResults"));
    const QString difference = QStringLiteral("difference KX00000001.");
    COMPARE_CALLS(Calls::TakeObject("difference KX00000001"),
                  {difference + QStringLiteral("Enabled()"), difference + QStringLiteral("Error()"),
                   difference + QStringLiteral("Max()"), difference + QStringLiteral("Min()"),
                   difference + QStringLiteral("Diff()"), difference + QStringLiteral("ReadingCount()"),
                   difference + QStringLiteral("Sum()")});
}

void DifferencePageTest::resultsWithoutModules() {
    Open(Benches::With(StillProbe(1)));
    TavikLibrary::TavikServer server;
    server.Networks()->FindNetworks();
    TavikLibrary::TavikNetwork* network = server.Networks()->Network(0);
    network->Connect();
    DialogDifferenceResults dialog;
    dialog.fill(&server, network);
    const auto* table = dialog.findChild<QTableWidget*>(QStringLiteral("tableResults"));
    QCOMPARE(table->columnCount(), 0);
    QCOMPARE(table->rowCount(), 6);
    QCOMPARE(HeadersOf(*table, Qt::Vertical).constFirst(), QStringLiteral("Error Msg"));
}

void DifferencePageTest::resultsAreCopied() {
    OpenPage(StillProbe(1));
    QVERIFY(Operator().Click("btnEnable"));
    StartAndThen({Stop()});
    BoxReply reply;
    reply.meanwhile = [](QDialog& dialog) {
        auto* table = dialog.findChild<QTableWidget*>(QStringLiteral("tableResults"));
        table->setFocus();
        WidgetDriver(dialog).Press(Qt::Key_A, Qt::ControlModifier);
        WidgetDriver(dialog).Press(Qt::Key_C, Qt::ControlModifier);
    };
    boxes.ExpectDialog(Page(), QStringLiteral("Difference Mode Results"), reply);
    QVERIFY(Operator().Click("btnDisplayAllModuleResults"));
    QCOMPARE(QGuiApplication::clipboard()->text(),
             QStringLiteral("\tKX00000001\nError Msg\tNo error.\nMaximum\t1.00000\nMinimum\t1.00000\n"
                            "Difference\t0.00000\nReads\t976\nSum Of\t976.00000\n"));
}

TAVIK_TEST_MAIN(DifferencePageTest)
#include "DifferencePageTest.moc"
