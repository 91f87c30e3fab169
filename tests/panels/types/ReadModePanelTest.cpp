#include "library/TavikModuleHVX.h"
#include "library/TavikNetwork.h"
#include "library/TavikNetworks.h"
#include "library/TavikServer.h"
#include "panels/types/ModuleHVXWidget.h"
#include "tests/panels/types/PanelTest.h"
#include "tests/support/FakeHostWindow.h"

using namespace TavikLibrary;
using namespace TavikSimulator;

namespace {

const QString boxTitle = QStringLiteral("HVX Module");

QString ModeText(int mode) {
    return QString::fromStdString(eHvxReadMode_ToString(static_cast<eHvxReadMode>(mode)));
}

} // namespace

/// The panel of a module with selectable read modes.
class ReadModePanelTest : public PanelTest {
    Q_OBJECT

private slots:
    void theFormIsAsKnown();
    void opensWithTheModulesMode_data();
    void opensWithTheModulesMode();
    void fillingAsksOnce();
    void modeIsSetAndShownAsSent();
    void noCurrentRowIsSentAndRefused();
    void failedModeKeepsTheText();
    void sampleShowsNothing();
    void newReadingReadyAlwaysAnswers();
    void updatedInformationIsRedisplayed();
    void updateAsksTheHost();
    void failedUpdateSkipsTheRedisplay();
    void failedRedisplayIsThePanelsOwn();
    void failureShowsABox_data();
    void failureShowsABox();
    void enablingConcernsTheButtons();
    void failureWhileFilling();
    void tabIntoTheListChoosesNoRow();
};

void ReadModePanelTest::theFormIsAsKnown() {
    OpenPanel("HVX");
    const auto* panel = ThePanel<ModuleHVXWidget>();
    QCOMPARE(panel->windowTitle(), QStringLiteral("Form"));
    QCOMPARE(Titles(panel), QStringList{QStringLiteral("Read Mode")});
    QCOMPARE(Rows("listAvailableReadMode"),
             QStringLiteral("Read Continuous,Read On Switch,Read On Sample").split(QLatin1Char(',')));
    QVERIFY(!Operator().The<QListWidget>("listAvailableReadMode")->isSortingEnabled());
    QVERIFY(Operator().Find("tbCurrentReadMode")->property("readOnly").toBool());
    QCOMPARE(Operator().Text("btnSetReadMode"), QStringLiteral("Set"));
    QCOMPARE(Operator().Text("btnUpdateReadingInfo"), QStringLiteral("Update Reading Info"));
    QCOMPARE(Operator().Text("btnSample"), QStringLiteral("Sample"));
    QCOMPARE(Operator().Text("btnNewReadingReady"), QStringLiteral("New Reading Ready?"));
}

void ReadModePanelTest::opensWithTheModulesMode_data() {
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("row");
    for (const auto& [mode, row] :
         {std::pair(0, 0), std::pair(1, 1), std::pair(2, 2), std::pair(3, -1), std::pair(-1, -1)}) {
        QTest::addRow("mode %d", mode) << mode << row;
    }
}

void ReadModePanelTest::opensWithTheModulesMode() {
    QFETCH(int, mode);
    QFETCH(int, row);
    OpenNetwork(BenchWith("HVX", QString(), QString()));
    AnswerFrom(1, "ReadMode", mode);
    QVERIFY(Operator().SelectRow("listModules", 0));
    QCOMPARE(Operator().The<QListWidget>("listAvailableReadMode")->currentRow(), row);
    QCOMPARE(Operator().Text("tbCurrentReadMode"), ModeText(mode));
    QCOMPARE(boxes.Count(), 0);
}

void ReadModePanelTest::fillingAsksOnce() {
    OpenNetwork(BenchWith("HVX", QString(), QString()));
    QVERIFY(Operator().SelectRow("listModules", 0));
    const QStringList calls = ModuleCalls();
    const int place = calls.indexOf(QStringLiteral("ReadMode()"));
    COMPARE_CALLS(calls.mid(place - 1, 3),
                  {QStringLiteral("HotSwappable()"), QStringLiteral("ReadMode()"), QStringLiteral("Offset()")});
}

void ReadModePanelTest::modeIsSetAndShownAsSent() {
    OpenPanel("HVX");
    // The module may say something else: what was sent is shown.
    AnswerFrom(1, "ReadMode", 0);
    for (int row = 2; row >= 0; --row) {
        QVERIFY(Operator().SelectRow("listAvailableReadMode", row));
        QVERIFY(Operator().Click("btnSetReadMode"));
        COMPARE_CALLS(ModuleCalls(), {QStringLiteral("setReadMode(%1)").arg(row)});
        QCOMPARE(Operator().Text("tbCurrentReadMode"), ModeText(row));
    }
}

void ReadModePanelTest::noCurrentRowIsSentAndRefused() {
    OpenPanel("HVX");
    Operator().The<QListWidget>("listAvailableReadMode")->setCurrentRow(-1);
    boxes.Tolerate(true);
    QVERIFY(Operator().Click("btnSetReadMode"));
    COMPARE_CALLS(ModuleCalls(), {QStringLiteral("setReadMode(-1)")});
    const QVector<SeenBox> seen = boxes.Take();
    QCOMPARE(seen.size(), 1);
    QCOMPARE(seen.first().title, boxTitle);
    QVERIFY(seen.first().text.contains(QLatin1String("-1")));
    QCOMPARE(Operator().Text("tbCurrentReadMode"), ModeText(0));
}

void ReadModePanelTest::failedModeKeepsTheText() {
    OpenPanel("HVX");
    QVERIFY(Operator().SelectRow("listAvailableReadMode", 2));
    FailNext("setReadMode", ForeignText());
    boxes.ExpectError(ThePanel<ModuleHVXWidget>(), boxTitle, ForeignText());
    QVERIFY(Operator().Click("btnSetReadMode"));
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(Operator().Text("tbCurrentReadMode"), ModeText(0));
}

void ReadModePanelTest::sampleShowsNothing() {
    OpenPanel("HVX", QStringLiteral("read-mode=\"sample\""));
    QVERIFY(Operator().Click("btnSample"));
    COMPARE_CALLS(ModuleCalls(), {QStringLiteral("SampleReading()")});
    QCOMPARE(boxes.Count(), 0);
    QVERIFY(Operator().Click("btnRead"));
    QCOMPARE(Operator().Text("tbReading"), QStringLiteral("12500"));
}

void ReadModePanelTest::newReadingReadyAlwaysAnswers() {
    OpenPanel("HVX", QStringLiteral("read-mode=\"sample\""));
    auto* panel = ThePanel<ModuleHVXWidget>();
    boxes.ExpectInformation(panel, boxTitle, QStringLiteral("Reading Not Available"));
    QVERIFY(Operator().Click("btnNewReadingReady"));
    QVERIFY(Operator().Click("btnSample"));
    boxes.ExpectInformation(panel, boxTitle, QStringLiteral("Reading Available"));
    QVERIFY(Operator().Click("btnNewReadingReady"));
    boxes.ExpectInformation(panel, boxTitle, QStringLiteral("Reading Not Available"));
    QVERIFY(Operator().Click("btnNewReadingReady"));
    FailNext("NewReadingReady", ForeignText());
    boxes.ExpectError(panel, boxTitle, ForeignText());
    QVERIFY(Operator().Click("btnNewReadingReady"));
    QCOMPARE(boxes.Count(), 4);
}

void ReadModePanelTest::updatedInformationIsRedisplayed() {
    OpenPanel("HVX", QStringLiteral("software-version=\"1.21\""),
              QStringLiteral("<change at=\"10\" software-version=\"1.22\" probe-identity=\"PP00000001\"/>"));
    AdvanceClock(10.0);
    auto* panel = ThePanel<ModuleHVXWidget>();
    QCOMPARE(Operator().Text("tbSoftwareVersion"), QStringLiteral("1.21"));
    QVERIFY(Operator().Click("btnUpdateReadingInfo"));
    QCOMPARE(Operator().Text("tbSoftwareVersion"), QStringLiteral("1.22"));
    QCOMPARE(Operator().Text("tbProbeID"), QStringLiteral("PP00000001"));
    // The panel itself has not been made anew.
    QCOMPARE(ThePanel<ModuleHVXWidget>(), panel);
    const QStringList calls = ModuleCalls();
    QCOMPARE(calls.first(), QStringLiteral("UpdateInfo()"));
    QCOMPARE(calls.at(1), QStringLiteral("Identity()"));
    QVERIFY(!calls.contains(QStringLiteral("ReadMode()")));
}

void ReadModePanelTest::updateAsksTheHost() {
    UseBenchText(BenchWith("HVX", QString(), QString()).toStdString(), "bench of the test");
    SetLatency(false);
    TavikServer server;
    server.Networks()->FindNetworks();
    server.Networks()->ConnectAll();
    TavikNetwork* network = server.Networks()->Network(0);
    FakeHostWindow host;
    auto* panel = new ModuleHVXWidget(&host);
    panel->SetModule(&host, &server, network, dynamic_cast<TavikModuleHVX*>(network->GetModule(0)));
    host.show();
    panel->findChild<QAbstractButton*>(QStringLiteral("btnUpdateReadingInfo"))->click();
    QCOMPARE(host.redisplayed, 1);
    panel->findChild<QAbstractButton*>(QStringLiteral("btnSample"))->setEnabled(true);
    QCOMPARE(host.disabled + host.enabled, 0);
}

void ReadModePanelTest::failedUpdateSkipsTheRedisplay() {
    OpenPanel("HVX");
    FailNext("UpdateInfo", ForeignText());
    boxes.ExpectError(ThePanel<ModuleHVXWidget>(), boxTitle, ForeignText());
    QVERIFY(Operator().Click("btnUpdateReadingInfo"));
    QCOMPARE(boxes.Count(), 1);
    COMPARE_CALLS(ModuleCalls(), {QStringLiteral("UpdateInfo()")});
}

void ReadModePanelTest::failedRedisplayIsThePanelsOwn() {
    OpenPanel("HVX");
    FailNext("DeviceType", ForeignText());
    boxes.ExpectError(ThePanel<ModuleHVXWidget>(), boxTitle, ForeignText());
    QVERIFY(Operator().Click("btnUpdateReadingInfo"));
    QCOMPARE(boxes.Count(), 1);
}

void ReadModePanelTest::failureShowsABox_data() {
    QTest::addColumn<QByteArray>("operation");
    QTest::addColumn<QByteArray>("button");
    QTest::newRow("mode") << QByteArray("setReadMode") << QByteArray("btnSetReadMode");
    QTest::newRow("update") << QByteArray("UpdateInfo") << QByteArray("btnUpdateReadingInfo");
    QTest::newRow("sample") << QByteArray("SampleReading") << QByteArray("btnSample");
    QTest::newRow("ready") << QByteArray("NewReadingReady") << QByteArray("btnNewReadingReady");
}

void ReadModePanelTest::failureShowsABox() {
    QFETCH(QByteArray, operation);
    QFETCH(QByteArray, button);
    OpenPanel("HVX");
    FailCallPlainly(1, ForeignText().toStdString());
    boxes.ExpectError(ThePanel<ModuleHVXWidget>(), boxTitle, ForeignText());
    QVERIFY(Operator().Click(button.constData()));
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(QByteArray::fromStdString(LastFaultedCall().operation), operation);
}

void ReadModePanelTest::enablingConcernsTheButtons() {
    OpenPanel("HVX");
    const QStringList all =
        QStringLiteral("btnNewReadingReady,btnSample,btnSetReadMode,btnUpdateReadingInfo").split(QLatin1Char(','));
    QCOMPARE(EnabledButtons(ThePanel<ModuleHVXWidget>()), all);
    auto hold = Window().DisableControls(QStringLiteral("test"));
    QCOMPARE(EnabledButtons(ThePanel<ModuleHVXWidget>()), QStringList());
    QVERIFY(Operator().IsEnabled("listAvailableReadMode") && Operator().IsEnabled("tbCurrentReadMode"));
    hold.Release();
    QCOMPARE(EnabledButtons(ThePanel<ModuleHVXWidget>()), all);
}

void ReadModePanelTest::failureWhileFilling() {
    const QVector<SeenBox> seen = OpenFailingPanel("HVX", [] { FailNext("ReadMode", ForeignText()); });
    QCOMPARE(seen.size(), 1);
    QCOMPARE(seen.first().title, QStringLiteral("Tavik Library Test"));
    QCOMPARE(seen.first().text, ForeignText());
    CompareFailedAt(QStringLiteral("ReadMode"));
}

void ReadModePanelTest::tabIntoTheListChoosesNoRow() {
    OpenNetwork(BenchWith("HVX", QString(), QString()));
    boxes.Tolerate(true);
    AnswerFrom(1, "ReadMode", 3);
    QVERIFY(Operator().SelectRow("listModules", 0));
    QVERIFY(Operator().SelectPage("tabModule"));
    Operator().Find("listAvailableReadMode")->setFocus(Qt::TabFocusReason);
    ModuleCalls();
    QVERIFY(Operator().Click("btnSetReadMode"));
    COMPARE_CALLS(ModuleCalls(), {QStringLiteral("setReadMode(-1)")});
}

TAVIK_TEST_MAIN(ReadModePanelTest)

#include "ReadModePanelTest.moc"
