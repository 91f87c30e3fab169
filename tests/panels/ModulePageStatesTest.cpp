#include "library/TavikModule.h"
#include "library/TavikNetwork.h"
#include "library/TavikNetworks.h"
#include "panels/module/TavikModuleWidget.h"
#include "tests/panels/types/PanelTest.h"
#include "tests/support/FakeHostWindow.h"

#include <QStatusBar>

using namespace TavikSimulator;

namespace {

const QString readingError = QStringLiteral("Reading Error");
const QString lastResort = QStringLiteral("Tavik Library Test");

/// A probe, and behind it a module of each type whose panel has no handler of its own for failures of its set-up.
const QString types = QStringLiteral("<module type=\"KX\" identity=\"KX00000001\"/>"
                                     "<module type=\"BWR\" identity=\"BWR0000001\"/>"
                                     "<module type=\"BWK\" identity=\"BWK0000001\"/>"
                                     "<module type=\"QTA\" identity=\"QTA0000001\"/>"
                                     "<module type=\"RN\" identity=\"RN00000001\"/>"
                                     "<module type=\"HVX\" identity=\"HVX0000001\"/>");

/// A module that answers as another one does, unless a test says otherwise.
class ScriptedModule : public TavikLibrary::TavikModule {
public:
    explicit ScriptedModule(TavikModule* answering) : TavikModule(nullptr), real(answering) {}

    std::string identity = "KX00000001";
    std::function<int()> read = [] { return 7; };

    bool BufferedCapable() override { return false; }
    bool BufferedMasterCapable() override { return false; }
    double CountsPerUnitOfMeasure() override { return 1.0; }
    std::string DeviceType() override { return "Scripted"; }
    bool DifferenceCapable() override { return false; }
    bool DynamicCapable() override { return false; }
    bool Dynamic2Capable() override { return false; }
    bool DynamicMasterCapable() override { return false; }
    bool HotSwappable() override { return true; }
    std::string ProbeIdentity() override { return "PP00000001"; }
    std::string Identity() override { return identity; }
    TavikLibrary::TavikModuleStatus* Status() override { return real->Status(); }
    TavikLibrary::eModuleType ModuleType() override { return TavikLibrary::eModuleType::KX; }
    double Offset() override { return 0.0; }
    bool ReadBurstCapable() override { return false; }
    int ReadInCounts() override { return read(); }
    double ReadInUnits() override { return read(); }
    void SetPosition(int) override {}
    bool SpeedAvailable(TavikLibrary::eNetSpeed) override { return true; }
    double Stroke() override { return 2.0; }
    std::string SoftwareVersion() override { return "1"; }
    std::string UnitsOfMeasure() override { return "mm"; }

private:
    TavikModule* real;
};

/// The module page in a window of its own, with a scripted module.
struct PageAlone {
    PageAlone() {
        UseStillBenchText(Benches::Two().toStdString(), "bench of the test");
        server.Networks()->FindNetworks();
        server.Networks()->ConnectAll();
        network = server.Networks()->Network(0);
        module = std::make_unique<ScriptedModule>(network->GetModule(0));
        host.setCentralWidget(page);
        host.show();
        SetUp();
    }
    void SetUp() { page->setNetwork(&host, &server, network, module.get()); }
    WidgetDriver Operator() { return WidgetDriver(host); }

    TavikLibrary::TavikServer server;
    TavikLibrary::TavikNetwork* network = nullptr;
    std::unique_ptr<ScriptedModule> module;
    FakeHostWindow host;
    TavikModuleWidget* page = new TavikModuleWidget;
};

} // namespace

/// The module page as empty, filled or running, whatever fails and whenever another module is selected.
class ModulePageStatesTest : public PanelTest {
    Q_OBJECT

private slots:
    void failedSetUpLeavesThePageEmpty_data();
    void failedSetUpLeavesThePageEmpty();
    void pageIsFilledAfterAFailedSetUp();
    void otherIdentityInTheSameObjectHasNoReading();
    void failedRedisplayLeavesNothingOld();
    void anyExceptionGivesTheControlsBack();
    void anyExceptionOfAReadClearsTheReading();
    void startAfterStopGoesOn();
    void thirdFailureInARowEndsTheReading();
    void refreshThatSucceedsBeginsTheCountAnew();
    void pulledCableIsToldOnce();
    void moduleSelectedBehindTheBoxOfARead();
    void moduleSelectedBehindTheBoxOfAPass();
    void noModuleBehindTheBoxOfAPass();
    void moduleSelectedBehindTheBoxOfASetUp();
    void endedReadingLeavesALine();
    void longTextsShowTheirBeginning();
    void pageOpensOnRead();

private:
    QWidget* Page() { return Operator().Find("moduleWidget"); }
    void SelectModule(int row) { Operator().The<QListWidget>("listModules")->setCurrentRow(row); }
    /// The next refreshes of a digital I/O panel fail at the last pin.
    static void FailRefreshes(int first = 1, bool forGood = true) {
        Fault pin;
        pin.operation = "DebounceTime";
        pin.trigger = forGood ? FaultTrigger::FromNth : FaultTrigger::Nth;
        pin.n = static_cast<std::uint64_t>(first);
        pin.text = "Pin lost.";
        AddFault(pin);
    }
    void OpenTwoDigital() {
        OpenModule(Benches::With(QStringLiteral("<module type=\"SWAX\" identity=\"SWAX000001\"/>"
                                                "<module type=\"SWAX2\" identity=\"SWAX200002\"/>")),
                   0);
    }
};

void ModulePageStatesTest::failedSetUpLeavesThePageEmpty_data() {
    QTest::addColumn<int>("row");
    for (int row = 1; row < types.count(QStringLiteral("<module")); ++row) {
        QTest::addRow("module %d", row) << row;
    }
}

void ModulePageStatesTest::failedSetUpLeavesThePageEmpty() {
    QFETCH(int, row);
    OpenModule(Benches::With(types, QStringLiteral("capabilities=\"\"")), 0);
    boxes.Tolerate(true);
    // The list of pages asks for the count, the module and its identity before it sets up this page.
    constexpr int callsBefore = 3;
    Calls::Mark();
    SelectModule(row);
    const QStringList calls = Calls::Take().filter(QRegularExpression(QStringLiteral("^(module|status) ")));
    const int callsOfPage = calls.indexOf(QRegularExpression(QStringLiteral(".*ErrorString\\(\\)"))) + 1;
    QVERIFY(callsOfPage > 20);
    for (int call = 1; call <= callsOfPage; ++call) {
        SelectModule(0);
        QVERIFY(Operator().SelectPage("tabModule"));
        QVERIFY(Operator().Click("btnRead"));
        FailCall(static_cast<std::uint64_t>(call + callsBefore - 1), 0x2101, "Part of the way.");
        SelectModule(row);
        ProcessAllEvents();
        ClearFaults();
        if (call > 1) {
            QCOMPARE(ShownOrOffered(Page()), QStringList());
        }
        const QVector<SeenBox> seen = boxes.Take();
        QCOMPARE(seen.size(), 1);
        QCOMPARE(seen.first().title, lastResort);
    }
}

void ModulePageStatesTest::pageIsFilledAfterAFailedSetUp() {
    OpenModule(Benches::Two(), 0);
    boxes.Tolerate(true);
    FailNext("UpdateStatus", QStringLiteral("Silence."));
    SelectModule(1);
    ProcessAllEvents();
    // Gives the controls back to an empty page.
    Window().DisableControls(QStringLiteral("test")).Release();
    QCOMPARE(ShownOrOffered(Page()), QStringList());
    SelectModule(2);
    SelectModule(1);
    QVERIFY(Operator().SelectPage("tabModule"));
    QVERIFY(Operator().Click("btnRead"));
    QVERIFY(!Operator().Text("tbReading").isEmpty());
    QVERIFY(Operator().Click("btnSetResolution"));
}

void ModulePageStatesTest::otherIdentityInTheSameObjectHasNoReading() {
    PageAlone alone;
    QVERIFY(alone.Operator().Click("btnRead"));
    alone.SetUp();
    QCOMPARE(alone.Operator().Text("tbReading"), QStringLiteral("7"));
    alone.module->identity = "KX00000077";
    for (int time = 0; time < 2; ++time) {
        alone.SetUp();
        QCOMPARE(alone.Operator().Text("tbReading"), QString());
    }
}

void ModulePageStatesTest::failedRedisplayLeavesNothingOld() {
    OpenModule(Benches::Two(), 0);
    FailNext("ProbeIdentity", QStringLiteral("Unreadable."));
    boxes.ExpectError(&Window(), lastResort, QStringLiteral("Unreadable."));
    QMetaObject::invokeMethod(
        this, [this] { Window().RedisplayModuleInformation(); }, Qt::QueuedConnection);
    QTRY_COMPARE(boxes.Count(), 1);
    QCOMPARE(Operator().Text("tbTavikIdentity"), QStringLiteral("KX00000001"));
    for (const char* field : {"tbProbeID", "tbRange", "tbStroke", "tbOffset", "tbCPUOM", "tbUOM", "lblCanDoBuffered"}) {
        QCOMPARE(Operator().Text(field), QString());
    }
}

void ModulePageStatesTest::anyExceptionGivesTheControlsBack() {
    PageAlone alone;
    alone.module->read = []() -> int { throw 1; };
    boxes.ExpectError(&alone.host, lastResort, QStringLiteral("An error of an unknown kind has occurred."));
    QVERIFY(alone.Operator().Click("btnStartContinuous"));
    QTRY_COMPARE(boxes.Count(), 1);
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    QVERIFY(!alone.host.ControlsAreHeld());
    QVERIFY(!alone.Operator().IsEnabled("btnStopContinuous"));
}

void ModulePageStatesTest::anyExceptionOfAReadClearsTheReading() {
    PageAlone alone;
    QVERIFY(alone.Operator().Click("btnRead"));
    alone.module->read = []() -> int { throw std::out_of_range("Beyond."); };
    boxes.ExpectError(&alone.host, lastResort, QStringLiteral("Beyond."));
    QVERIFY(alone.Operator().Click("btnRead"));
    QTRY_COMPARE(boxes.Count(), 1);
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    QCOMPARE(alone.Operator().Text("tbReading"), QString());
}

void ModulePageStatesTest::startAfterStopGoesOn() {
    OpenModule(Benches::Two(), 0);
    int readings = 0;
    const auto watch = Repeatedly([&] {
        const int now = Calls::CountOf("ReadInCounts");
        if (now == 1 && readings == 0) {
            QVERIFY(QMetaObject::invokeMethod(Page(), "on_btnStopContinuous_clicked"));
            QVERIFY(QMetaObject::invokeMethod(Page(), "on_btnStartContinuous_clicked"));
        } else if (now == 3 && readings < 3) {
            QVERIFY(QMetaObject::invokeMethod(Page(), "on_btnStartContinuous_clicked"));
            QVERIFY(QMetaObject::invokeMethod(Page(), "on_btnStopContinuous_clicked"));
        }
        readings = now;
    });
    Calls::Mark();
    QVERIFY(Operator().Click("btnStartContinuous"));
    QCOMPARE(Calls::CountOf("ReadInCounts"), 3);
    QVERIFY(Operator().IsEnabled("btnRead"));
}

void ModulePageStatesTest::thirdFailureInARowEndsTheReading() {
    OpenTwoDigital();
    FailRefreshes();
    for (int failure = 0; failure < 3; ++failure) {
        boxes.ExpectError(ThePanel<TypePanel>(), QStringLiteral("SWAX Module"), QStringLiteral("Pin lost."));
    }
    QVERIFY(Operator().Click("btnStartContinuous"));
    QCOMPARE(boxes.Count(), 3);
    QCOMPARE(Calls::CountOf("ReadInCounts"), 3);
    QVERIFY(Operator().IsEnabled("btnRead"));
    QVERIFY(!Operator().IsEnabled("btnStopContinuous"));
}

void ModulePageStatesTest::refreshThatSucceedsBeginsTheCountAnew() {
    OpenTwoDigital();
    // Two fail, one succeeds, two fail: each fault counts the refreshes that no fault before it strikes.
    for (const int refresh : {1, 1, 2, 2}) {
        FailRefreshes(refresh, false);
        boxes.ExpectError(ThePanel<TypePanel>(), QStringLiteral("SWAX Module"), QStringLiteral("Pin lost."));
    }
    When(
        &Window(), [] { return Calls::CountOf("ReadInCounts") == 7; },
        [this] { Operator().Click("btnStopContinuous"); });
    QVERIFY(Operator().Click("btnStartContinuous"));
    QCOMPARE(Calls::CountOf("ReadInCounts"), 7);
    QCOMPARE(boxes.Count(), 4);
}

void ModulePageStatesTest::pulledCableIsToldOnce() {
    OpenModule(Benches::Two(), 0);
    boxes.Tolerate(true);
    When(
        &Window(), [] { return Calls::CountOf("ErrorString") == 1; },
        [] { FailCall(1, 0x2101, "Cable pulled.", true); });
    Calls::Mark();
    QVERIFY(Operator().Click("btnStartContinuous"));
    ProcessAllEvents();
    QVERIFY(WaitUntil([] { return QApplication::activeModalWidget() == nullptr; }));
    const QVector<SeenBox> seen = boxes.Take();
    QCOMPARE(seen.size(), 1);
    QCOMPARE(seen.first().title, readingError);
    // The reading, and the refreshes of the pages of modes.
    const std::vector<JournalEntry> calls = Calls::Entries();
    QVERIFY(std::count_if(calls.begin(), calls.end(), [](const JournalEntry& call) { return call.failed; }) > 2);
    // What the page offers is offered again, and the failure of a press is told again.
    QVERIFY(Operator().Click("btnRead"));
    QCOMPARE(boxes.Take().size(), 1);
}

void ModulePageStatesTest::moduleSelectedBehindTheBoxOfARead() {
    OpenTwoDigital();
    FailRefreshes(1, false);
    BoxReply reply;
    // The box is deleted with its panel.
    reply.leave = true;
    reply.meanwhile = [this](QDialog&) { SelectModule(1); };
    boxes.ExpectError(ThePanel<TypePanel>(), QStringLiteral("SWAX Module"), QStringLiteral("Pin lost."), reply);
    QVERIFY(Operator().Click("btnRead"));
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(Operator().Text("tbTavikIdentity"), QStringLiteral("SWAX200002"));
    QCOMPARE(Operator().Text("tbReading"), QString());
    QVERIFY(Operator().SelectPage("tabModule"));
    QVERIFY(Operator().Click("btnRead"));
}

void ModulePageStatesTest::moduleSelectedBehindTheBoxOfAPass() {
    OpenTwoDigital();
    FailRefreshes(1, false);
    BoxReply reply;
    reply.leave = true;
    reply.meanwhile = [this](QDialog&) {
        SelectModule(1);
        Calls::Mark();
    };
    boxes.ExpectError(ThePanel<TypePanel>(), QStringLiteral("SWAX Module"), QStringLiteral("Pin lost."), reply);
    QVERIFY(Operator().Click("btnStartContinuous"));
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(Calls::CountOf("UpdateStatus"), 0);
    QCOMPARE(Operator().Text("tbTavikIdentity"), QStringLiteral("SWAX200002"));
    QVERIFY(Operator().SelectPage("tabModule"));
    QVERIFY(Operator().Click("btnRead"));
}

void ModulePageStatesTest::noModuleBehindTheBoxOfAPass() {
    OpenTwoDigital();
    FailRefreshes(1, false);
    BoxReply reply;
    reply.leave = true;
    reply.meanwhile = [this](QDialog&) { SelectModule(-1); };
    boxes.ExpectError(ThePanel<TypePanel>(), QStringLiteral("SWAX Module"), QStringLiteral("Pin lost."), reply);
    QVERIFY(Operator().Click("btnStartContinuous"));
    QCOMPARE(boxes.Count(), 1);
    QVERIFY(!Window().ControlsAreHeld());
    QCOMPARE(Pages().size(), 2);
}

void ModulePageStatesTest::moduleSelectedBehindTheBoxOfASetUp() {
    OpenTwoDigital();
    for (const int row : {1, -1}) {
        SelectModule(1);
        FailRefreshes(1, false);
        bool wasOpen = false;
        const auto select = [&, this] {
            wasOpen = QApplication::activeModalWidget() != nullptr;
            SelectModule(row);
        };
        QMetaObject::invokeMethod(this, select, Qt::QueuedConnection);
        SelectModule(0);
        QVERIFY(wasOpen);
        QCOMPARE(Operator().Text("tbTavikIdentity"), row < 0 ? QString() : QStringLiteral("SWAX200002"));
        QCOMPARE(ShownOrOffered(Page()).isEmpty(), row < 0);
    }
    QCOMPARE(boxes.Count(), 0);
}

void ModulePageStatesTest::endedReadingLeavesALine() {
    OpenModule(Benches::Two(), 0);
    When(
        &Window(), [] { return Calls::CountOf("ErrorString") == 2; },
        [this] { Operator().Click("btnStopContinuous"); });
    Calls::Mark();
    QVERIFY(Operator().Click("btnStartContinuous"));
    const QRegularExpression line(QStringLiteral("^Read continuously: 2 passes, [0-9]+\\.[0-9] s$"));
    QVERIFY(line.match(Window().statusBar()->currentMessage()).hasMatch());
}

void ModulePageStatesTest::longTextsShowTheirBeginning() {
    OpenModule(Benches::With(QStringLiteral("<module type=\"RN\" identity=\"RN00000001\"/>")), 0);
    QVERIFY(Operator().Click("radioUnits"));
    for (const auto& [operation, number] : {std::pair("ReadInUnits", -123456), std::pair("Stroke", 2000000000)}) {
        AnswerFrom(1, operation, number);
    }
    QVERIFY(Operator().Click("btnRead"));
    const auto fields = Page()->findChildren<QLineEdit*>();
    for (QLineEdit* field : fields) {
        if (!field->isReadOnly()) {
            continue;
        }
        QCOMPARE(field->cursorPosition(), 0);
        QVERIFY2(field->text().isEmpty() || field->toolTip().contains(field->text()), qPrintable(field->objectName()));
    }
}

void ModulePageStatesTest::pageOpensOnRead() {
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().SelectRow("listModules", 0));
    QVERIFY(Operator().Find("listModules")->hasFocus());
    QVERIFY(Operator().SelectPage("tabModule"));
    QCOMPARE(QApplication::focusWidget(), Operator().Find("btnRead"));
}

TAVIK_TEST_MAIN(ModulePageStatesTest)

#include "ModulePageStatesTest.moc"
