#include "library/TavikNetwork.h"
#include "library/TavikNetworks.h"
#include "library/TavikServer.h"
#include "panels/modes/ReadBurstWidget.h"
#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QClipboard>
#include <QGroupBox>
#include <QHeaderView>
#include <QPushButton>
#include <QStatusBar>
#include <QTableWidget>
#include <QTextBrowser>

using namespace TavikSimulator;

namespace {

QString Probe(int number) {
    return QStringLiteral("<module type=\"KX\" identity=\"KX0000000%1\" stroke=\"2\"/>").arg(number);
}

const QString pins = QStringLiteral("<module type=\"SWAX\" identity=\"SWAX000001\"/>");

void HoldProbe(int number, double position) {
    HoldPosition("Alpha", "KX0000000" + std::to_string(number), position);
}

} // namespace

/// The page of read bursts.
class ReadBurstPageTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void theForm();
    void withoutANetworkNothingIsOffered();
    void capableModulesAreCounted();
    void setsAreReadInUnitsAndCounts();
    void everyModuleShowsItsResult_data();
    void everyModuleShowsItsResult();
    void aBurstOfNoModulesShowsNothing();
    void aBurstThatFails();
    void rowsBeforeAFailureStay();
    void readingsAreCopied();
    void selectingAModuleClearsTheTable();
    void aLongOperationDisablesTheCommands();
    void droppedNetworkLeavesThePageEmpty();
    void failedSetUpLeavesThePageEmpty();
    void rowsWithoutAModule();
    void theRateOfFiveSeconds();
    void aFailedTimingShowsBothBoxes_data();
    void aFailedTimingShowsBothBoxes();

private:
    void OpenPage(const QString& modules) {
        OpenModule(Benches::With(modules), 0);
        QVERIFY(Operator().SelectPage("tabReadburst"));
        Calls::Mark();
    }
    QTableWidget* Table() { return Operator().The<QTableWidget>("tableReadings"); }
    QStringList Row(int row) {
        QStringList texts;
        for (int column = 0; column < 3; ++column) {
            const QTableWidgetItem* item = Table()->item(row, column);
            texts.append(item != nullptr ? item->text() : QStringLiteral("-"));
        }
        return texts;
    }
    void GoToSecondModule() {
        QVERIFY(Operator().SelectPage("tabNetwork"));
        QVERIFY(Operator().SelectRow("listModules", 1));
        QVERIFY(Operator().SelectPage("tabReadburst"));
    }
    void CompareEmpty() {
        QCOMPARE(Operator().Text("tbContCapModules"), QString());
        QCOMPARE(Operator().Text("tbTotalCapmodules"), QString());
        QCOMPARE(Table()->rowCount(), 0);
        for (const char* name : {"btnReadInUnits", "btnReadInCounts", "btnTimeReadings"}) {
            QVERIFY2(!Operator().IsEnabled(name), name);
        }
    }
    QWidget* Page() { return Operator().Find("readBurstWidget"); }
};

void ReadBurstPageTest::theForm() {
    OpenPage(Probe(1));
    QCOMPARE(Page()->windowTitle(), QStringLiteral("Form"));
    QCOMPARE(Operator().Text("btnReadInUnits"), QStringLiteral("Read in Units"));
    QCOMPARE(Operator().Text("btnReadInCounts"), QStringLiteral("Read in Counts"));
    QCOMPARE(Operator().Text("btnTimeReadings"), QStringLiteral("Time Readings"));
    QCOMPARE(Operator().Text("lblContCapModules"), QStringLiteral("Contiguous Capable Modules"));
    QCOMPARE(Operator().Text("lblTotalCapModules"), QStringLiteral("Total Capable Modules"));
    QCOMPARE(Table()->columnCount(), 3);
    QCOMPARE(Table()->horizontalHeaderItem(0)->text(), QStringLiteral("Module ID"));
    QCOMPARE(Table()->horizontalHeaderItem(1)->text(), QStringLiteral("Reading"));
    QCOMPARE(Table()->horizontalHeaderItem(2)->text(), QStringLiteral("Status"));
    QCOMPARE(Table()->editTriggers(), QAbstractItemView::EditTriggers(QAbstractItemView::NoEditTriggers));
    QCOMPARE(Table()->horizontalHeader()->sectionResizeMode(0), QHeaderView::Stretch);
    QCOMPARE(Table()->rowCount(), 0);
    QCOMPARE(
        Operator().The<QTextBrowser>("textBrowser")->toPlainText(),
        QStringLiteral("Readburst Mode is a fast and efficient method for obtaining syncronised readings from all, "
                       "contiguous, read burst capable modules on the selected network.\n\nClick 'Read in Counts' "
                       "or 'Read in Units' to ReadBurst a single set of readings.\n\nClick 'Time Readings' to "
                       "obtain the actual reading rate measured."));
}

void ReadBurstPageTest::withoutANetworkNothingIsOffered() {
    Open(Benches::With(Probe(1)));
    auto* page = Window().findChild<ReadBurstWidget*>();
    const QList<QPushButton*> buttons = page->findChildren<QPushButton*>();
    QCOMPARE(buttons.size(), 3);
    Calls::Mark();
    for (QPushButton* button : buttons) {
        QVERIFY(!button->isEnabled());
        button->setEnabled(true);
        button->click();
    }
    COMPARE_CALLS(Calls::Take(), {});
    Drop();
    OpenPage(Probe(1));
    for (const char* name : {"btnReadInUnits", "btnReadInCounts", "btnTimeReadings"}) {
        QVERIFY(Operator().IsEnabled(name));
    }
}

void ReadBurstPageTest::capableModulesAreCounted() {
    OpenPage(Probe(1) + Probe(2) + pins + Probe(3) + Probe(4));
    QCOMPARE(Operator().Text("tbContCapModules"), QStringLiteral("2"));
    QCOMPARE(Operator().Text("tbTotalCapmodules"), QStringLiteral("4"));
    Operator().SelectPage("tabNetwork");
    Calls::Mark();
    Operator().SelectRow("listModules", 1);
    QStringList calls = Calls::Take();
    while (!calls.isEmpty() && !calls.first().endsWith(QLatin1String("ReadBurstCapableCount()"))) {
        calls.removeFirst();
    }
    QStringList expected = {QStringLiteral("network Alpha.ReadBurstCapableCount()")};
    const QStringList identities = {QStringLiteral("KX00000001"), QStringLiteral("KX00000002"),
                                    QStringLiteral("SWAX000001"), QStringLiteral("KX00000003"),
                                    QStringLiteral("KX00000004")};
    for (int index = 0; index < identities.size(); ++index) {
        expected += QStringList{QStringLiteral("network Alpha.ModuleCount()"),
                                QStringLiteral("network Alpha.GetModule(%1)").arg(index),
                                QStringLiteral("module %1.ReadBurstCapable()").arg(identities.at(index))};
    }
    expected += {QStringLiteral("network Alpha.ModuleCount()"), QStringLiteral("network Alpha.IsConnected()")};
    COMPARE_CALLS(calls, expected);
}

void ReadBurstPageTest::setsAreReadInUnitsAndCounts() {
    OpenPage(Probe(1) + Probe(2) + pins + Probe(3));
    HoldProbe(1, 1.0);
    HoldProbe(2, 0.1506);
    QVERIFY(Operator().Click("btnReadInCounts"));
    QCOMPARE(Table()->rowCount(), 2);
    const QString good = QStringLiteral("No error.");
    QCOMPARE(Row(0), QStringList({QStringLiteral("KX00000001"), QStringLiteral("8192.00000"), good}));
    QCOMPARE(Row(1), QStringList({QStringLiteral("KX00000002"), QStringLiteral("1234.00000"), good}));
    COMPARE_CALLS(
        Calls::Take(),
        {QStringLiteral("network Alpha.Readburst()"), QStringLiteral("network Alpha.ModuleCount()"),
         QStringLiteral("network Alpha.GetModule(0)"), QStringLiteral("module KX00000001.Identity()"),
         QStringLiteral("module KX00000001.LastResultCode()"), QStringLiteral("server.GetErrorDescription(0)"),
         QStringLiteral("module KX00000001.LastReadingInCounts()"), QStringLiteral("network Alpha.GetModule(1)"),
         QStringLiteral("module KX00000002.Identity()"), QStringLiteral("module KX00000002.LastResultCode()"),
         QStringLiteral("server.GetErrorDescription(0)"), QStringLiteral("module KX00000002.LastReadingInCounts()")});
    QVERIFY(Operator().Click("btnReadInUnits"));
    QCOMPARE(Row(0), QStringList({QStringLiteral("KX00000001"), QStringLiteral("1.00000"), good}));
    QCOMPARE(Row(1), QStringList({QStringLiteral("KX00000002"), QStringLiteral("0.15063"), good}));
    QCOMPARE(Calls::CountOf("LastReadingInCounts"), 0);
}

void ReadBurstPageTest::everyModuleShowsItsResult_data() {
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("reading");
    QTest::newRow("good") << 0 << "1.00000";
    QTest::newRow("under range") << 0x2112 << "1.00000";
    QTest::newRow("over range") << 0x2113 << "1.00000";
    QTest::newRow("unsettled") << 0x10001 << "1.00000";
    QTest::newRow("another warning") << 0x10002 << "-";
    QTest::newRow("no answer") << 0x2101 << "-";
    QTest::newRow("beam off") << 0x2115 << "-";
    QTest::newRow("unknown") << 4711 << "-";
}

void ReadBurstPageTest::everyModuleShowsItsResult() {
    QFETCH(int, code);
    QFETCH(QString, reading);
    OpenPage(Probe(1) + Probe(2));
    HoldProbe(1, 1.0);
    HoldProbe(2, 3.0);
    Fault fault;
    fault.object = "module KX00000001";
    fault.operation = "LastResultCode";
    fault.effect = FaultEffect::Result;
    fault.code = code;
    AddFault(fault);
    QVERIFY(Operator().Click("btnReadInUnits"));
    const std::vector<JournalEntry> calls = Calls::Entries();
    const auto described = std::find_if(
        calls.begin(), calls.end(), [](const JournalEntry& call) { return call.operation == "GetErrorDescription"; });
    QVERIFY(described != calls.end());
    QString text = QString::fromStdString(described->result);
    text = text.mid(1, text.size() - 2);
    QVERIFY(!text.isEmpty());
    QCOMPARE(Row(0), QStringList({QStringLiteral("KX00000001"), reading, text}));
    QCOMPARE(Row(1), QStringList({QStringLiteral("KX00000002"), QStringLiteral("2.00000"),
                                  QStringLiteral("The reading lies above the module's measuring range.")}));
    QCOMPARE(Table()->item(1, 2)->toolTip(), Row(1).at(2));
}

void ReadBurstPageTest::aBurstOfNoModulesShowsNothing() {
    OpenPage(pins + Probe(1));
    QVERIFY(Operator().Click("btnReadInUnits"));
    QCOMPARE(Table()->rowCount(), 0);
    QCOMPARE(boxes.Count(), 0);
    QCOMPARE(Calls::CountOf("Readburst"), 1);
    QCOMPARE(Operator().Text("tbContCapModules"), QStringLiteral("0"));
    QCOMPARE(Operator().Text("tbTotalCapmodules"), QStringLiteral("1"));
}

void ReadBurstPageTest::aBurstThatFails() {
    OpenPage(Probe(1));
    QVERIFY(Operator().Click("btnReadInUnits"));
    QCOMPARE(Table()->rowCount(), 1);
    Fault fault;
    fault.operation = "Readburst";
    fault.effect = FaultEffect::Result;
    fault.code = 0x1006;
    AddFault(fault);
    boxes.ExpectError(Page(), QStringLiteral("Readburst"),
                      QStringLiteral("Error: Readings are being collected; stop that first."));
    QVERIFY(Operator().Click("btnReadInUnits"));
    QCOMPARE(Table()->rowCount(), 0);
    FailNext("Readburst", QStringLiteral("The <b>wires</b> are cut."));
    boxes.ExpectError(Page(), QStringLiteral("Readburst"), QStringLiteral("Error: The <b>wires</b> are cut."));
    QVERIFY(Operator().Click("btnReadInCounts"));
    QCOMPARE(Table()->rowCount(), 0);
    SetNetworkPresent("Alpha", false);
    boxes.ExpectError(Page(), QStringLiteral("Readburst"),
                      QStringLiteral("Error: Network \"Alpha\" is not connected."));
    QVERIFY(Operator().Click("btnReadInCounts"));
}

void ReadBurstPageTest::rowsBeforeAFailureStay() {
    OpenPage(Probe(1) + Probe(2) + Probe(3));
    HoldProbe(1, 1.0);
    FailNext("LastResultCode", QStringLiteral("Gone."), "module KX00000002");
    boxes.ExpectError(Page(), QStringLiteral("Readburst"), QStringLiteral("Error: Gone."));
    QVERIFY(Operator().Click("btnReadInUnits"));
    QCOMPARE(Table()->rowCount(), 3);
    QCOMPARE(Row(0).at(1), QStringLiteral("1.00000"));
    QCOMPARE(Row(1), QStringList({QStringLiteral("KX00000002"), QStringLiteral("-"), QStringLiteral("-")}));
    QCOMPARE(Row(2).at(0), QStringLiteral("-"));
}

void ReadBurstPageTest::readingsAreCopied() {
    OpenPage(Probe(1) + Probe(2));
    HoldProbe(1, 1.0);
    HoldProbe(2, 0.5);
    QVERIFY(Operator().Click("btnReadInUnits"));
    Table()->setFocus();
    Operator().Press(Qt::Key_A, Qt::ControlModifier);
    Operator().Press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(),
             QStringLiteral("Module ID\tReading\tStatus\nKX00000001\t1.00000\tNo error.\n"
                            "KX00000002\t0.50000\tNo error.\n"));
}

void ReadBurstPageTest::selectingAModuleClearsTheTable() {
    OpenPage(Probe(1) + Probe(2));
    QVERIFY(Operator().Click("btnReadInUnits"));
    GoToSecondModule();
    QCOMPARE(Table()->rowCount(), 0);
}

void ReadBurstPageTest::aLongOperationDisablesTheCommands() {
    OpenPage(Probe(1));
    ControlsHold hold = Window().DisableControls(QStringLiteral("test"));
    for (const char* name : {"btnReadInUnits", "btnReadInCounts", "btnTimeReadings"}) {
        QVERIFY(!Operator().IsEnabled(name));
    }
    hold.Release();
    for (const char* name : {"btnReadInUnits", "btnReadInCounts", "btnTimeReadings"}) {
        QVERIFY(Operator().IsEnabled(name));
    }
}

void ReadBurstPageTest::droppedNetworkLeavesThePageEmpty() {
    OpenPage(Probe(1) + Probe(2));
    TavikLibrary::TavikServer server;
    TavikLibrary::TavikNetwork* network = server.Networks()->Network(0);
    SetNetworkPresent("Alpha", false);
    auto* page = qobject_cast<ReadBurstWidget*>(Page());
    QVERIFY_EXCEPTION_THROWN(page->setNetwork(&Window(), &server, network, nullptr), std::runtime_error);
    CompareEmpty();
    page->Forget();
}

void ReadBurstPageTest::failedSetUpLeavesThePageEmpty() {
    OpenPage(Probe(1) + Probe(2));
    FailNext("ReadBurstCapableCount", QStringLiteral("Lost."));
    boxes.ExpectError(&Window(), QStringLiteral("Tavik Library Test"), QStringLiteral("Lost."));
    GoToSecondModule();
    CompareEmpty();
}

void ReadBurstPageTest::rowsWithoutAModule() {
    OpenPage(Probe(1) + Probe(2) + Probe(3));
    HoldProbe(1, 1.0);
    Fault shrunk;
    shrunk.operation = "ModuleCount";
    shrunk.effect = FaultEffect::Result;
    shrunk.code = 1;
    AddFault(shrunk);
    QVERIFY(Operator().Click("btnReadInUnits"));
    QCOMPARE(Table()->rowCount(), 3);
    QCOMPARE(Row(0).at(1), QStringLiteral("1.00000"));
    QCOMPARE(Row(1), QStringList({QStringLiteral("Module 2"), QStringLiteral("-"), QStringLiteral("-")}));
    QCOMPARE(Row(2).at(0), QStringLiteral("Module 3"));
    QCOMPARE(Calls::TakeOperation("GetModule"), QStringList{QStringLiteral("network Alpha.GetModule(0)")});
}

void ReadBurstPageTest::theRateOfFiveSeconds() {
    OpenPage(Probe(1) + Probe(2) + Probe(3));
    QVERIFY(Operator().Click("btnReadInUnits"));
    Calls::Mark();
    UseRealClock();
    Fault slow;
    slow.operation = "Readburst";
    slow.effect = FaultEffect::Slow;
    slow.trigger = FaultTrigger::FromNth;
    slow.delay = 0.24;
    AddFault(slow);
    bool cursorAtBox = true;
    BoxReply reply;
    reply.meanwhile = [&](QDialog&) { cursorAtBox = QApplication::overrideCursor() != nullptr; };
    boxes.ExpectInformation(Page(), QStringLiteral("Readburst Timer"),
                            QStringLiteral("4 read bursts per second with 3 modules.\n"
                                           "Total number of module reads per second: 12."),
                            reply);
    // What blocks says so first.
    bool saidFirst = false;
    const auto said = connect(Window().statusBar(), &QStatusBar::messageChanged, this, [&](const QString& text) {
        saidFirst =
            saidFirst || (text == QLatin1String("Timing read bursts for 5 s...") && Calls::CountOf("Readburst") == 0);
    });
    QVERIFY(Operator().Click("btnTimeReadings"));
    // 21 of them, or fewer on a computer that is late each time.
    const int bursts = Calls::TakeOperation("Readburst").size();
    QVERIFY2(bursts >= 20 && bursts <= 21, qPrintable(QString::number(bursts)));
    disconnect(said);
    QVERIFY(saidFirst);
    QCOMPARE(Window().statusBar()->currentMessage(), QString());
    QVERIFY(!cursorAtBox);
    QCOMPARE(Table()->rowCount(), 3);
}

void ReadBurstPageTest::aFailedTimingShowsBothBoxes_data() {
    QTest::addColumn<bool>("thrown");
    QTest::addColumn<int>("goodBursts");
    QTest::addColumn<QString>("rate");
    const QString none = QStringLiteral("0 read bursts per second with 0 modules.\n"
                                        "Total number of module reads per second: 0.");
    const QString some = QStringLiteral("2 read bursts per second with 3 modules.\n"
                                        "Total number of module reads per second: 6.");
    QTest::newRow("a code at once") << false << 0 << none;
    QTest::newRow("an exception at once") << true << 0 << none;
    QTest::newRow("a code later") << false << 14 << some;
    QTest::newRow("an exception later") << true << 14 << some;
}

void ReadBurstPageTest::aFailedTimingShowsBothBoxes() {
    QFETCH(bool, thrown);
    QFETCH(int, goodBursts);
    QFETCH(QString, rate);
    OpenPage(Probe(1) + Probe(2) + Probe(3));
    Fault fault;
    fault.operation = "Readburst";
    fault.trigger = FaultTrigger::Nth;
    fault.n = static_cast<std::uint64_t>(goodBursts) + 1;
    fault.effect = thrown ? FaultEffect::ThrowPlain : FaultEffect::Result;
    fault.code = 0x2101;
    fault.text = "The module does not answer.";
    AddFault(fault);
    bool cursorAtBox = true;
    BoxReply reply;
    reply.meanwhile = [&](QDialog&) { cursorAtBox = QApplication::overrideCursor() != nullptr; };
    boxes.ExpectError(Page(), QStringLiteral("Readburst Error"), QStringLiteral("The module does not answer."), reply);
    boxes.ExpectInformation(Page(), QStringLiteral("Readburst Timer"), rate);
    QVERIFY(Operator().Click("btnTimeReadings"));
    QCOMPARE(Calls::TakeOperation("Readburst").size(), goodBursts + 1);
    QVERIFY(!cursorAtBox);
}

TAVIK_TEST_MAIN(ReadBurstPageTest)
#include "ReadBurstPageTest.moc"
