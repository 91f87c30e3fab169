#include "library/TavikModule.h"
#include "library/TavikNetwork.h"
#include "library/TavikNetworks.h"
#include "panels/module/TavikModuleWidget.h"
#include "tests/panels/types/PanelTest.h"
#include "tests/support/FakeHostWindow.h"
#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QListWidget>
#include <QRadioButton>

using namespace TavikSimulator;

namespace {

const QString readingError = QStringLiteral("Reading Error");

const QString wholeProbe = QStringLiteral(
    "<module type=\"KX\" identity=\"KX00000001\" device-type=\"Taster µ &lt;b&gt;\" software-version=\"9.8\" "
    "probe-identity=\"PP00000001\" stroke=\"2\" resolution=\"14\"/>");

} // namespace

/// What the module panel shows of a module, and single readings.
class ModulePanelTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void readingIsNotTakenForAnotherModules();
    void informationIsShown();
    void rangeWithAnOffset();
    void moduleWithoutProbeIdentity();
    void probeIdentityThatFailsOtherwise();
    void capabilitiesAreShown();
    void setUpAsksInOrder();
    void countsAreReadByDefault();
    void unitsAreReadWithTheirText();
    void readThatFailsClearsTheReading();
    void readOfAnotherKindOfFailure();
    void onlySomePanelsFollowReadings();
    void statusIsShown();
    void statusThatFails();
    void moduleThatDoesNotAnswerIsShown();
    void redisplayLeavesTheTypePanelsAlone();
    void typePanelsAreDeletedLater();
    void typePanelOfARemovedModuleIsGoneAtOnce();
    void panelInAnotherHost();
};

void ModulePanelTest::informationIsShown() {
    OpenModule(Benches::With(wholeProbe), 0);
    const std::string type = TavikLibrary::eModuleType_ToString(TavikLibrary::eModuleType::KX);
    const QVector<std::pair<const char*, QString>> fields = {{"tbTavikIdentity", QStringLiteral("KX00000001")},
                                                             {"tbModuleType", QString::fromStdString(type)},
                                                             {"tbDeviceType", QStringLiteral("Taster µ <b>")},
                                                             {"tbSoftwareVersion", QStringLiteral("9.8")},
                                                             {"tbProbeID", QStringLiteral("PP00000001")},
                                                             {"tbRange", QStringLiteral("2.00000")},
                                                             {"tbStroke", QStringLiteral("2.00000")},
                                                             {"tbOffset", QStringLiteral("0.00000")},
                                                             {"tbCPUOM", QStringLiteral("8192.00000")},
                                                             {"tbUOM", QStringLiteral("mm")},
                                                             {"tbReading", QString()}};
    for (const auto& [name, text] : fields) {
        QCOMPARE(Operator().Text(name), text);
        QVERIFY(Operator().Find(name)->property("readOnly").toBool());
    }
}

void ModulePanelTest::rangeWithAnOffset() {
    OpenModule(Benches::Two(), 1);
    QCOMPARE(Operator().Text("tbRange"), QStringLiteral("-2.50000 - 5.00000"));
    QCOMPARE(Operator().Text("tbOffset"), QStringLiteral("-2.50000"));
    QCOMPARE(Operator().Text("tbStroke"), QStringLiteral("5.00000"));
}

void ModulePanelTest::moduleWithoutProbeIdentity() {
    OpenModule(Benches::Two(), 1);
    QCOMPARE(Operator().Text("tbProbeID"), QStringLiteral("Not Available"));
    QCOMPARE(boxes.Count(), 0);
}

void ModulePanelTest::probeIdentityThatFailsOtherwise() {
    OpenNetwork(Benches::Two());
    FailNextWithCode("ProbeIdentity", 254, QStringLiteral("Unreadable."));
    boxes.ExpectError(&Window(), QStringLiteral("Tavik Library Test"), QStringLiteral("Unreadable."));
    QVERIFY(Operator().SelectRow("listModules", 0));
    QTRY_COMPARE(boxes.Count(), 1);
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    QCOMPARE(Pages().at(2), QStringLiteral("Module KX00000001"));
    QCOMPARE(ShownOrOffered(Operator().Find("moduleWidget")), QStringList());
}

void ModulePanelTest::capabilitiesAreShown() {
    const QVector<std::pair<const char*, QString>> words = {
        {"lblCanDoBuffered", QStringLiteral("buffered")},
        {"lblCanDoBufferedMaster", QStringLiteral("buffered-master")},
        {"lblCanDoDynamic", QStringLiteral("dynamic")},
        {"lblCanDoDynamic2", QStringLiteral("dynamic2")},
        {"lblCanDoDynamicMaster", QStringLiteral("dynamic-master")},
        {"lblCanDoDifference", QStringLiteral("difference")},
        {"lblCanDoReadburst", QStringLiteral("readburst")}};
    QString modules;
    for (int index = 0; index < words.size(); ++index) {
        modules += QStringLiteral("<module type=\"RN\" identity=\"RN0000000%1\" capabilities=\"%2\"/>")
                       .arg(index)
                       .arg(words.at(index).second);
    }
    OpenNetwork(Benches::With(modules));
    for (int row = 0; row < words.size(); ++row) {
        QVERIFY(Operator().SelectRow("listModules", row));
        for (const auto& [name, word] : words) {
            const bool can = word == words.at(row).second;
            QCOMPARE(Operator().Text(name), can ? QStringLiteral("True") : QStringLiteral("False"));
        }
    }
    Drop();
    OpenModule(Benches::With(QStringLiteral("<module type=\"RN\" identity=\"RN00000001\" speeds=\"low\" "
                                            "hot-swappable=\"yes\"/><module type=\"RN\" identity=\"RN00000002\" "
                                            "speeds=\"low high ultra-high\" hot-swappable=\"no\"/>"),
                             QStringLiteral("speed=\"low\"")),
               0);
    QStringList values;
    for (int row = 0; row < 2; ++row) {
        QVERIFY(Operator().SelectPage("tabNetwork"));
        QVERIFY(Operator().SelectRow("listModules", row));
        for (const char* name :
             {"lblCanDoSpeedLow", "lblCanDoSpeedHigh", "lblCanDoSpeedUltraHigh", "lblCanDoHotswap"}) {
            values.append(Operator().Text(name).at(0));
        }
    }
    QCOMPARE(values.join(QString()), QStringLiteral("TFFTTTTF"));
}

void ModulePanelTest::setUpAsksInOrder() {
    // Without pages of modes, which ask on their own behalf.
    OpenNetwork(Benches::With(QStringLiteral("<module type=\"KX\" identity=\"KX00000001\" capabilities=\"\" "
                                             "probe-identity=\"PP00000001\"/>"),
                              QStringLiteral("capabilities=\"\"")));
    QVERIFY(Operator().SelectRow("listModules", 0));
    QStringList calls;
    for (const JournalEntry& entry : Calls::Entries()) {
        calls.append(QString::fromStdString(entry.operation + (entry.arguments.empty() ? "" : " " + entry.arguments)));
    }
    const QString order = QStringLiteral(
        "ModuleCount,GetModule 0,Identity,Identity,ModuleType,DeviceType,SoftwareVersion,ProbeIdentity,BufferedCapable,"
        "BufferedMasterCapable,DynamicCapable,Dynamic2Capable,DynamicMasterCapable,DifferenceCapable,"
        "ReadBurstCapable,SpeedAvailable Low,SpeedAvailable High,SpeedAvailable Ultra High,HotSwappable,"
        "Resolution,Averaging,AvailableResolutions,AvailableAveragings,Offset,Stroke,CountsPerUnitOfMeasure,"
        "UnitsOfMeasure,Status,UpdateStatus,Status,ErrorCode,ErrorString,BufferedCapable,DifferenceCapable,"
        "DynamicCapable,Dynamic2Capable,ReadBurstCapable");
    COMPARE_CALLS(calls, order.split(QLatin1Char(',')));
}

void ModulePanelTest::countsAreReadByDefault() {
    OpenModule(Benches::With(wholeProbe), 0);
    HoldPosition("Alpha", "KX00000001", 1.0);
    QVERIFY(Operator().The<QRadioButton>("radioCounts")->isChecked());
    QVERIFY(Operator().Click("btnRead"));
    const std::vector<JournalEntry> entries = Calls::Entries();
    QCOMPARE(QString::fromStdString(entries.front().operation), QStringLiteral("ReadInCounts"));
    QCOMPARE(Operator().Text("tbReading"), QString::fromStdString(entries.front().result));
    QVERIFY(qAbs(Operator().Text("tbReading").toInt() - 8192) <= 1);
    COMPARE_CALLS(Calls::Take(), {QStringLiteral("module KX00000001.ReadInCounts()"),
                                  QStringLiteral("module KX00000001.ModuleType()")});
}

void ModulePanelTest::unitsAreReadWithTheirText() {
    OpenModule(Benches::With(QStringLiteral("<module type=\"KX\" identity=\"KX00000001\" unit=\"µm\"/>")), 0);
    HoldPosition("Alpha", "KX00000001", 0.5);
    QVERIFY(Operator().Click("radioUnits"));
    QVERIFY(Operator().Click("btnRead"));
    QCOMPARE(Operator().Text("tbReading"), QStringLiteral("0.50000 µm"));
    COMPARE_CALLS(Calls::Take(), {QStringLiteral("module KX00000001.ReadInUnits()"),
                                  QStringLiteral("module KX00000001.UnitsOfMeasure()"),
                                  QStringLiteral("module KX00000001.ModuleType()")});
}

void ModulePanelTest::readThatFailsClearsTheReading() {
    OpenModule(Benches::Two(), 0);
    QVERIFY(Operator().Click("btnRead"));
    for (const char* operation : {"ReadInCounts", "ModuleType"}) {
        QVERIFY(Operator().Click("btnRead"));
        QVERIFY(!Operator().Text("tbReading").isEmpty());
        FailNext(operation, QStringLiteral("Kein Meßwert <hr>"));
        boxes.ExpectError(Operator().Find("moduleWidget"), readingError, QStringLiteral("Kein Meßwert <hr>"));
        QVERIFY(Operator().Click("btnRead"));
        QCOMPARE(Operator().Text("tbReading"), QString());
    }
    QVERIFY(Operator().Click("radioUnits"));
    for (const char* operation : {"ReadInUnits", "UnitsOfMeasure"}) {
        FailNext(operation, QStringLiteral("No reading."));
        boxes.ExpectError(Operator().Find("moduleWidget"), readingError, QStringLiteral("No reading."));
        QVERIFY(Operator().Click("btnRead"));
        QCOMPARE(Operator().Text("tbReading"), QString());
    }
}

void ModulePanelTest::readOfAnotherKindOfFailure() {
    OpenModule(Benches::Two(), 0);
    FailCallPlainly(1, "Not of the library.");
    boxes.ExpectError(Operator().Find("moduleWidget"), readingError, QStringLiteral("Not of the library."));
    QVERIFY(Operator().Click("btnRead"));
}

void ModulePanelTest::onlySomePanelsFollowReadings() {
    OpenModule(Benches::With(QStringLiteral("<module type=\"SWAX2\" identity=\"SWAX200001\"/>"
                                            "<module type=\"BW\" identity=\"BW00000002\"/>")),
               0);
    QVERIFY(Operator().Click("btnRead"));
    QCOMPARE(Calls::TakeOperation("DebounceTime"), QStringList{QStringLiteral("module SWAX200001.DebounceTime()")});
    QVERIFY(Operator().SelectPage("tabNetwork"));
    QVERIFY(Operator().SelectRow("listModules", 1));
    QVERIFY(Operator().SelectPage("tabModule"));
    Calls::Mark();
    QVERIFY(Operator().Click("btnRead"));
    COMPARE_CALLS(Calls::Take(), {QStringLiteral("module BW00000002.ReadInCounts()"),
                                  QStringLiteral("module BW00000002.ModuleType()")});
}

void ModulePanelTest::statusIsShown() {
    OpenModule(Benches::Two(), 0);
    QVERIFY(Operator().Click("btnGetStatus"));
    const std::vector<JournalEntry> entries = Calls::Entries();
    QCOMPARE(Operator().Text("tbStatus"), QString::fromStdString(entries.at(2).result));
    QCOMPARE(Operator().Text("tbErrorCode"), QString::fromStdString(entries.at(3).result));
    QCOMPARE(QLatin1Char('"') + Operator().Text("tbErrorText") + QLatin1Char('"'),
             QString::fromStdString(entries.at(4).result));
    COMPARE_CALLS(Calls::Take(),
                  {QStringLiteral("module KX00000001.Status()"), QStringLiteral("status KX00000001.UpdateStatus()"),
                   QStringLiteral("status KX00000001.Status()"), QStringLiteral("status KX00000001.ErrorCode()"),
                   QStringLiteral("status KX00000001.ErrorString()")});
    for (const auto& [operation, result] : {std::pair{"Status", 17}, std::pair{"ErrorCode", -258}}) {
        Fault code;
        code.object = "status *";
        code.operation = operation;
        code.effect = FaultEffect::Result;
        code.code = result;
        AddFault(code);
    }
    QVERIFY(Operator().Click("btnGetStatus"));
    QCOMPARE(Operator().Text("tbStatus"), QStringLiteral("17"));
    QCOMPARE(Operator().Text("tbErrorCode"), QStringLiteral("-258"));
}

void ModulePanelTest::statusThatFails() {
    OpenModule(Benches::Two(), 0);
    FailNext("UpdateStatus", QStringLiteral("Silence."));
    boxes.ExpectError(&Window(), QStringLiteral("Tavik Library Test"), QStringLiteral("Silence."));
    QVERIFY(Operator().Click("btnGetStatus"));
    QTRY_COMPARE(boxes.Count(), 1);
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    QVERIFY(Operator().Click("btnGetStatus"));
}

void ModulePanelTest::moduleThatDoesNotAnswerIsShown() {
    OpenModule(Benches::Two(), 0);
    SetModulePresent("Alpha", "KX00000001", false);
    boxes.Tolerate(true);
    QVERIFY(Operator().Click("btnRead"));
    QCOMPARE(boxes.Take().constFirst().title, readingError);
    SetModulePresent("Alpha", "KX00000001", true);
    QVERIFY(Operator().Click("btnRead"));
    QVERIFY(!Operator().Text("tbReading").isEmpty());
}

void ModulePanelTest::redisplayLeavesTheTypePanelsAlone() {
    OpenModule(Benches::Two(), 0);
    const QList<QWidget*> before = Operator().Find("moduleWidget")->findChildren<QWidget*>();
    Window().RedisplayModuleInformation();
    QStringList calls;
    for (const JournalEntry& entry : Calls::Entries()) {
        calls.append(QString::fromStdString(entry.operation));
    }
    QCOMPARE(calls.size(), 20);
    QCOMPARE(calls.first(), QStringLiteral("Identity"));
    QVERIFY(!calls.contains(QStringLiteral("Resolution")));
    QVERIFY(!calls.contains(QStringLiteral("UpdateStatus")));
    QCOMPARE(Operator().Find("moduleWidget")->findChildren<QWidget*>(), before);
}

void ModulePanelTest::typePanelsAreDeletedLater() {
    OpenModule(Benches::Two(), 0);
    const QPointer<QWidget> panel = Operator().Find("ModuleKXwidget");
    QVERIFY(panel != nullptr);
    bool wasThere = false;
    QMetaObject::invokeMethod(
        this,
        [&] {
            Operator().The<QListWidget>("listModules")->setCurrentRow(2);
            wasThere = panel != nullptr && !panel->isVisible();
        },
        Qt::QueuedConnection);
    ProcessAllEvents();
    QVERIFY(wasThere);
    QVERIFY(panel == nullptr);
}

void ModulePanelTest::typePanelOfARemovedModuleIsGoneAtOnce() {
    OpenModule(Benches::Two(), 0);
    QVERIFY(Operator().SelectPage("tabNetwork"));
    boxes.Tolerate(true);
    FailNextWithCode("ProbeIdentity", 254, QStringLiteral("Unreadable."));
    QVERIFY(Operator().Click("btnDeleteModule"));
    QTRY_COMPARE(boxes.Count(), 1);
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    QVERIFY(Operator().SelectPage("tabModule"));
    ProcessAllEvents();
    // The panel of the probe that was deleted must not be there for the operator to use.
    QVERIFY(Window().findChildren<QWidget*>(QStringLiteral("ModuleKXwidget")).isEmpty());
}

void ModulePanelTest::panelInAnotherHost() {
    UseBenchText(Benches::Two().toStdString(), "bench of the test");
    SetLatency(false);
    TavikLibrary::TavikServer server;
    server.Networks()->FindNetworks();
    server.Networks()->ConnectAll();
    TavikLibrary::TavikNetwork* network = server.Networks()->Network(0);
    FakeHostWindow host;
    auto* panel = new TavikModuleWidget(&host);
    host.setCentralWidget(panel);
    host.show();
    panel->setNetwork(&host, &server, network, network->GetModule(0));
    When(
        panel, [&] { return host.disabled == 1; }, [&] { WidgetDriver(host).Click("btnStopContinuous"); });
    QVERIFY(WidgetDriver(host).Click("btnStartContinuous"));
    QCOMPARE(host.disabled, 1);
    QCOMPARE(host.enabled, 1);
}

void ModulePanelTest::readingIsNotTakenForAnotherModules() {
    OpenModule(Benches::Two(), 0);
    QVERIFY(Operator().Click("btnRead"));
    const QString reading = Operator().Text("tbReading");
    QVERIFY(!reading.isEmpty());
    QVERIFY(Operator().SelectPage("tabNetwork"));
    QVERIFY(Operator().Click("btnPing"));
    QVERIFY(Operator().SelectPage("tabModule"));
    QCOMPARE(Operator().Text("tbReading"), reading);
    QVERIFY(Operator().SelectPage("tabNetwork"));
    QVERIFY(Operator().SelectRow("listModules", 1));
    for (int time = 0; time < 2; ++time) {
        QVERIFY(Operator().SelectPage("tabModule"));
        QCOMPARE(Operator().Text("tbReading"), QString());
        // Sets up the same module's page again.
        QVERIFY(Operator().SelectPage("tabNetwork"));
        QVERIFY(Operator().Click("btnPing"));
    }
}

TAVIK_TEST_MAIN(ModulePanelTest)

#include "ModulePanelTest.moc"
