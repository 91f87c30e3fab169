#include "library/TavikDynamic.h"
#include "library/TavikNetwork.h"
#include "library/TavikNetworks.h"
#include "library/TavikServer.h"
#include "tests/panels/modes/DynamicPage.h"

#include <QDialog>
#include <QTableView>

using namespace TavikSimulator;

namespace {

/// Runs a function when a dialog is about to be shown, before its event loop handles what is queued.
class BeforeDialog : public QObject {
public:
    explicit BeforeDialog(std::function<void()> function) : run(std::move(function)) { qApp->installEventFilter(this); }
    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (event->type() == QEvent::Show && qobject_cast<QDialog*>(receiver) != nullptr) {
            run();
        }
        return false;
    }

private:
    std::function<void()> run;
};

} // namespace

/// Who holds the window's controls around a dynamic collection, and until when.
class DynamicStopTest : public DynamicPage {
    Q_OBJECT

private slots:
    void eachNetworksEndReleasesItsOwnHoldOnly();
    void failedStopOnALostNetworkReleasesTheControls();
    void stopOnALostNetworkReleasesTheControls();
    void failedStopOfAnEndedCollectionReleasesTheControls_data();
    void failedStopOfAnEndedCollectionReleasesTheControls();
    void startThatFailsHalfwayCanBeStopped();
    void failedRefreshLeavesThePageUsable();
    void startFocusesStop();
    void resultsAfterTheListShrank();

private:
    QStringList Holders() { return Window().Holders(); }
    const QStringList ownHold{QStringLiteral("dynamic mode")};
};

void DynamicStopTest::eachNetworksEndReleasesItsOwnHoldOnly() {
    const QString networkOf = QStringLiteral("<network name=\"%1\" controller=\"%1\" description=\"%1\">"
                                             "<module type=\"KX\" identity=\"KX0000000%2\"/></network>");
    OpenModule(QStringLiteral("<bench>%1%2</bench>")
                   .arg(networkOf.arg(QStringLiteral("Alpha"), QStringLiteral("1")),
                        networkOf.arg(QStringLiteral("Beta"), QStringLiteral("2"))),
               0);
    ShowPage();
    {
        TavikLibrary::TavikServer other;
        TavikLibrary::TavikDynamic* beta = other.Networks()->Network(1)->Dynamic();
        beta->setCollectionSize(0);
        beta->setEnabled(true);
        beta->Prepare();
    }
    Enter("sbNumSyncs", 100);
    Start();
    const auto hold = Window().DisableControls(QStringLiteral("test"));
    Changes();
    // The library reports the end of Alpha, whose handling ends Beta.
    AdvanceClock(1.0);
    QTRY_COMPARE(Calls::CountOf("StopAllDynamic"), 2);
    QCOMPARE(Holders(), QStringList{QStringLiteral("test")});
    QCOMPARE(Usable(), QStringList());
    QVERIFY(!Operator().IsEnabled("listModules"));
}

// The library's report of the end waits in the queue: it plays no part here.
void DynamicStopTest::failedStopOnALostNetworkReleasesTheControls() {
    OpenPage();
    Start();
    QCOMPARE(Holders(), ownHold);
    SetNetworkPresent("Alpha", false);
    FailNext("StopAllDynamic", QStringLiteral("No answer"));
    ExpectBox(QStringLiteral("No answer"));
    QStringList holdersAtTheBox = ownHold;
    const BeforeDialog look([&] { holdersAtTheBox = Holders(); });
    QVERIFY(QMetaObject::invokeMethod(Page(), "on_btnStop_clicked"));
    QCOMPARE(holdersAtTheBox, QStringList());
    QVERIFY(!Operator().IsEnabled("btnStop"));
    QVERIFY(Operator().Find("btnConnectAll")->isEnabledTo(&Window()));
}

void DynamicStopTest::stopOnALostNetworkReleasesTheControls() {
    OpenPage();
    Start();
    SetNetworkPresent("Alpha", false);
    QVERIFY(QMetaObject::invokeMethod(Page(), "on_btnStop_clicked"));
    QCOMPARE(Holders(), QStringList());
    QVERIFY(!Operator().IsEnabled("btnStop"));
}

void DynamicStopTest::failedStopOfAnEndedCollectionReleasesTheControls_data() {
    QTest::addColumn<bool>("answers");
    QTest::newRow("idle") << true;
    QTest::newRow("no answer") << false;
}

void DynamicStopTest::failedStopOfAnEndedCollectionReleasesTheControls() {
    QFETCH(bool, answers);
    OpenPage();
    Start();
    Fault state;
    state.operation = "DynamicState";
    state.trigger = FaultTrigger::FromNth;
    state.effect = answers ? FaultEffect::Result : FaultEffect::ThrowPlain;
    state.code = 0;
    state.text = "No state";
    AddFault(state);
    FailNext("StopAllDynamic", QStringLiteral("No answer"));
    if (!answers) {
        boxes.Tolerate(true);
    } else {
        ExpectBox(QStringLiteral("No answer"));
    }
    Click("btnStop");
    QCOMPARE(Holders(), QStringList());
    QVERIFY(Operator().IsEnabled("listModules"));
    ClearFaults();
}

void DynamicStopTest::startThatFailsHalfwayCanBeStopped() {
    OpenPage();
    Enable();
    Click("btnPrepare");
    {
        TavikLibrary::TavikServer other;
        other.StartAllDynamic(nullptr);
    }
    ExpectBox(QStringLiteral("No network is prepared for a dynamic collection."));
    Click("btnStart");
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(Text("lblStatus"), QStringLiteral("Running"));
    QVERIFY(Operator().IsEnabled("btnStop"));
    QVERIFY(!Operator().IsEnabled("btnStart"));
    QCOMPARE(Holders(), QStringList());
    Changes();
    Click("btnStop");
    QCOMPARE(Changes(), QStringList{QStringLiteral("server.StopAllDynamic()")});
}

void DynamicStopTest::failedRefreshLeavesThePageUsable() {
    OpenPage();
    const QStringList usable = Usable();
    auto hold = Window().DisableControls(QStringLiteral("test"));
    QCOMPARE(Usable(), QStringList());
    boxes.ExpectError(&Window(), QStringLiteral("Tavik Library Test"), QStringLiteral("No answer"));
    FailNext("DynamicState", QStringLiteral("No answer"));
    hold.Release();
    QTRY_COMPARE(boxes.Count(), 1);
    QCOMPARE(Usable(), usable);
    Enable();
    QCOMPARE(Text("lblNetEnabled"), QStringLiteral("True"));
}

void DynamicStopTest::startFocusesStop() {
    OpenPage();
    Start();
    QCOMPARE(QApplication::focusWidget(), Operator().Find("btnStop"));
    Changes();
    Operator().Press(Qt::Key_Space);
    QTRY_VERIFY(Holders().isEmpty());
    QVERIFY(Changes().contains(QStringLiteral("server.StopAllDynamic()")));
}

void DynamicStopTest::resultsAfterTheListShrank() {
    OpenPage();
    Enter("sbNumSyncs", 3);
    Start();
    AdvanceClock(1.0);
    QTRY_VERIFY(Holders().isEmpty());
    Fault shrunk;
    shrunk.object = "network *";
    shrunk.operation = "ModuleCount";
    shrunk.trigger = FaultTrigger::FromNth;
    shrunk.effect = FaultEffect::Result;
    shrunk.code = 1;
    AddFault(shrunk);
    boxes.ExpectUse(Page(), QStringLiteral("Results (in each module's unit of measure)."), [](QDialog& dialog) {
        const auto* model = dialog.findChild<QTableView*>(QStringLiteral("tableResults"))->model();
        QCOMPARE(model->columnCount(), 2);
        QCOMPARE(model->headerData(0, Qt::Horizontal).toString(), QStringLiteral("KX00000001"));
        QCOMPARE(model->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Module 2"));
        QVERIFY(!model->index(2, 1).data().toString().isEmpty());
        dialog.close();
    });
    Calls::Mark();
    Click("btnAllResults");
    QCOMPARE(boxes.Count(), 1);
    QVERIFY(!Calls::Take().contains(QStringLiteral("network Alpha.GetModule(1)")));
}

TAVIK_TEST_MAIN(DynamicStopTest)

#include "DynamicStopTest.moc"
