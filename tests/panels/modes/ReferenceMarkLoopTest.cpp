#include "library/TavikNetwork.h"
#include "library/TavikNetworks.h"
#include "library/TavikServer.h"
#include "panels/modes/ReferenceMarkWidget.h"
#include "tests/panels/modes/ReferenceMarkPage.h"

#include <QListWidget>
#include <QRadioButton>
#include <QSignalSpy>

using namespace TavikSimulator;

namespace {

const QString boxTitle = QStringLiteral("Ref Mark Mode");

} // namespace

/// What can happen while the page that searches the reference mark waits for it.
class ReferenceMarkLoopTest : public ReferenceMarkPage {
    Q_OBJECT

private slots:
    void controlsWhileSearching();
    void statusBarWhileSearching();
    void findWhileSearchingDoesNothing();
    void modeIsThatOfTheStart();
    void failures_data();
    void failures();
    void failingStopGoesOnSearching();
    void searchAfterAFailure();
    void moduleThatDropsOut();
    void networkThatDropsOut();
    void anotherModuleEndsTheWaiting();
    void removedModuleIsNotAsked();
    void closingEndsTheSearch();
    void closingAfterTheSearchWasLeft();
    void closingWhenTheModuleCannotBeTold();
    void closingWithAnErrorBoxOpen();
    void continuousReadingKeepsFindDisabled();
    void stopWithoutASearch();
    void searchEndsUnderAnotherHold();
    void failedSetUpLeavesThePageEmpty();
};

void ReferenceMarkLoopTest::controlsWhileSearching() {
    OpenPage();
    FindAndAfter(1, [this] {
        QVERIFY(Operator().IsEnabled("btnStop"));
        QVERIFY(Operator().Find("btnStop")->hasFocus());
        for (const char* name : {"btnFind", "sbRecallValue", "btnRead", "btnPresetinCounts", "listModules",
                                 "tableNetworks", "btnConnectAll"}) {
            QVERIFY2(!Operator().IsEnabled(name), name);
        }
        for (const char* name : {"radioLearn", "radioRecall", "radioCounts", "radioUnits"}) {
            QVERIFY2(Operator().IsEnabled(name), name);
        }
        QVERIFY(QApplication::overrideCursor() == nullptr);
    });
    CompareIdle();
}

void ReferenceMarkLoopTest::statusBarWhileSearching() {
    OpenPage(QStringLiteral("hand=\"never\""));
    const QSignalSpy messages(Window().statusBar(), &QStatusBar::messageChanged);
    QElapsedTimer time;
    time.start();
    bool stopped = false;
    Find([&] {
        if (!stopped && time.elapsed() > 1200) {
            stopped = true;
            QVERIFY(Operator().Click("btnStop"));
        }
    });
    QStringList seen;
    for (const QList<QVariant>& message : messages) {
        seen.append(message.constFirst().toString());
    }
    seen.removeDuplicates();
    QCOMPARE(seen.mid(0, 2),
             QStringList({QStringLiteral("Searching for the reference mark of module RN00000001: 0 s so far"),
                          QStringLiteral("Searching for the reference mark of module RN00000001: 1 s so far")}));
    CompareOutcome(QStringLiteral("not found"));
}

void ReferenceMarkLoopTest::findWhileSearchingDoesNothing() {
    OpenPage();
    FindAndAfter(1, [this] {
        QVERIFY(QMetaObject::invokeMethod(Page(), "on_btnFind_clicked"));
        QVERIFY(Operator().IsEnabled("btnStop"));
    });
    QCOMPARE(Calls::TakeOperation("FindRefMark_Counts").size(), 1);
    QCOMPARE(Reading(), QStringLiteral("40000.00000"));
    CompareIdle();
}

void ReferenceMarkLoopTest::modeIsThatOfTheStart() {
    OpenPage();
    FindAndAfter(1, [this] {
        Operator().The<QRadioButton>("radioRecall")->click();
        Operator().The<QRadioButton>("radioRecall")->setChecked(true);
        QVERIFY(!RecallValue()->isEnabled());
    });
    QCOMPARE(RecallValue()->value(), 40000.0);
    QVERIFY(RecallValue()->isEnabled());
}

void ReferenceMarkLoopTest::failures_data() {
    QTest::addColumn<QString>("operation");
    for (const char* operation : {"FindRefMark_Counts", "RefmarkInProgress", "RefmarkFound", "ReadInCountsAtRefmark"}) {
        QTest::newRow(operation) << QString::fromLatin1(operation);
    }
}

void ReferenceMarkLoopTest::failures() {
    QFETCH(QString, operation);
    OpenPage();
    FailNext(qPrintable(operation), QStringLiteral("Geht nicht: <u>größer</u> als 5 µm."));
    boxes.ExpectError(Page(), boxTitle, QStringLiteral("Error: Geht nicht: <u>größer</u> als 5 µm."));
    Find();
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(Reading(), QString());
    QCOMPARE(RecallValue()->value(), 0.0);
    CompareIdle();
}

void ReferenceMarkLoopTest::failingStopGoesOnSearching() {
    OpenPage();
    FailNext("StopRefMark", QStringLiteral("No stop."));
    boxes.ExpectError(Page(), boxTitle, QStringLiteral("Error: No stop."));
    FindAndAfter(1, [this] { QVERIFY(Operator().Click("btnStop")); });
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(Reading(), QStringLiteral("40000.00000"));
    CompareIdle();
}

void ReferenceMarkLoopTest::searchAfterAFailure() {
    OpenPage();
    FailNext("RefmarkInProgress", QStringLiteral("Once."));
    boxes.ExpectError(Page(), boxTitle, QStringLiteral("Error: Once."));
    Find();
    Find();
    QCOMPARE(Reading(), QStringLiteral("40000.00000"));
    CompareIdle();
}

void ReferenceMarkLoopTest::moduleThatDropsOut() {
    OpenPage(QStringLiteral("hand=\"never\""));
    boxes.Tolerate(true);
    FindAndAfter(1, [] { SetModulePresent("Alpha", "RN00000001", false); });
    const QVector<SeenBox> seen = boxes.Take();
    QCOMPARE(seen.size(), 1);
    QCOMPARE(seen.first().title, boxTitle);
    QVERIFY(seen.first().text.startsWith(QStringLiteral("Error: ")));
    CompareIdle();
}

void ReferenceMarkLoopTest::networkThatDropsOut() {
    OpenPage(QStringLiteral("hand=\"never\""));
    boxes.Tolerate(true);
    FindAndAfter(1, [] { SetNetworkPresent("Alpha", false); });
    QCOMPARE(boxes.Take().size(), 1);
    QVERIFY(Operator().Find("btnFind")->isEnabled());
    QVERIFY(!Operator().IsEnabled("btnStop"));
    QVERIFY(Operator().Find("btnConnectAll")->isEnabledTo(&Window()));
}

void ReferenceMarkLoopTest::anotherModuleEndsTheWaiting() {
    OpenPage(QStringLiteral("hand=\"never\""));
    FindAndAfter(1, [this] { Operator().The<QListWidget>("listModules")->setCurrentRow(1); });
    QCOMPARE(Operator().Text("tbRefMarkModuleID"), QStringLiteral("RN00000002"));
    QCOMPARE(Calls::CountOf("RefmarkFound"), 0);
    // The search that was left is stopped in its encoder.
    QCOMPARE(Calls::TakeOperation("StopRefMark"), QStringList{Call("StopRefMark()")});
    QCOMPARE(Activity(), QString());
    CompareIdle();
}

void ReferenceMarkLoopTest::removedModuleIsNotAsked() {
    OpenPage(QStringLiteral("hand=\"never\""));
    FindAndAfter(1, [this] { QVERIFY(QMetaObject::invokeMethod(&Window(), "on_btnDeleteModule_clicked")); });
    QCOMPARE(Rows("listModules").size(), 1);
    QCOMPARE(CallsOnRemovedModules(), std::uint64_t{0});
    // While the module still existed.
    const QStringList calls = Calls::Take();
    const int stop = calls.indexOf(Call("StopRefMark()"));
    QVERIFY(stop > 0);
    QVERIFY(stop < calls.indexOf(QStringLiteral("network Alpha.DeleteModule(0)")));
    QVERIFY(!Operator().IsEnabled("btnStop"));
}

void ReferenceMarkLoopTest::closingEndsTheSearch() {
    OpenPage(QStringLiteral("hand=\"never\""));
    FindAndAfter(2, [this] { Window().close(); });
    QVERIFY(!Window().isVisible());
    const QStringList calls = Calls::Take();
    const int stop = calls.indexOf(Call("StopRefMark()"));
    QVERIFY(stop > 0);
    QVERIFY(calls.mid(stop).filter(QStringLiteral("module RN00000001")).size() == 1);
    QCOMPARE(calls.last(), QStringLiteral("networks.DisconnectAll()"));
    QCOMPARE(boxes.Count(), 0);
}

void ReferenceMarkLoopTest::closingAfterTheSearchWasLeft() {
    OpenPage(QStringLiteral("hand=\"never\""));
    FindAndAfter(1, [this] {
        Operator().The<QListWidget>("listModules")->setCurrentRow(1);
        Window().close();
    });
    QVERIFY(!Window().isVisible());
    QCOMPARE(Calls::TakeOperation("StopRefMark"), QStringList{Call("StopRefMark()")});
}

void ReferenceMarkLoopTest::closingWhenTheModuleCannotBeTold() {
    OpenPage(QStringLiteral("hand=\"never\""));
    FindAndAfter(1, [this] {
        FailNext("StopRefMark", QStringLiteral("Deaf."));
        Window().close();
    });
    QVERIFY(!Window().isVisible());
    QCOMPARE(Calls::Take().constLast(), QStringLiteral("networks.DisconnectAll()"));
    QCOMPARE(boxes.Count(), 0);
}

void ReferenceMarkLoopTest::closingWithAnErrorBoxOpen() {
    OpenPage(QStringLiteral("hand=\"never\""));
    FailNext("RefmarkInProgress", QStringLiteral("Lost."));
    BoxReply reply;
    reply.meanwhile = [this](QDialog&) { Window().close(); };
    boxes.ExpectError(Page(), boxTitle, QStringLiteral("Error: Lost."), reply);
    Find();
    QVERIFY(!Window().isVisible());
}

void ReferenceMarkLoopTest::continuousReadingKeepsFindDisabled() {
    OpenPage();
    QVERIFY(Operator().SelectPage("tabModule"));
    bool looked = false;
    const auto watch = Repeatedly([&] {
        if (!looked && Calls::CountOf("ErrorString") >= 1) {
            looked = true;
            QVERIFY(!Operator().IsEnabled("btnFind"));
            QVERIFY(Operator().Click("btnStopContinuous"));
        }
    });
    QVERIFY(Operator().Click("btnStartContinuous"));
    QVERIFY(looked);
    CompareIdle();
}

void ReferenceMarkLoopTest::stopWithoutASearch() {
    OpenPage();
    QVERIFY(QMetaObject::invokeMethod(Page(), "on_btnStop_clicked"));
    COMPARE_CALLS(Calls::Take(), {Call("StopRefMark()")});
    CompareIdle();
}

void ReferenceMarkLoopTest::searchEndsUnderAnotherHold() {
    OpenPage();
    ControlsHold restart;
    FindAndAfter(1, [&] { restart = Window().DisableControls(QStringLiteral("wireless restart")); });
    QCOMPARE(Reading(), QStringLiteral("40000.00000"));
    QCOMPARE(Window().Holders(), QStringList{QStringLiteral("wireless restart")});
    for (const char* name : {"btnFind", "btnStop", "btnRead", "listModules"}) {
        QVERIFY2(!Operator().Find(name)->isEnabledTo(&Window()), name);
    }
    restart.Release();
    CompareIdle();
}

void ReferenceMarkLoopTest::failedSetUpLeavesThePageEmpty() {
    OpenPage();
    Find();
    TavikLibrary::TavikServer server;
    TavikLibrary::TavikNetwork* network = server.Networks()->Network(0);
    TavikLibrary::TavikModule* encoder = network->GetModule(0);
    auto* page = qobject_cast<ReferenceMarkWidget*>(Page());
    FailNext("Identity", QStringLiteral("Lost."));
    QVERIFY_EXCEPTION_THROWN(page->setNetwork(&Window(), &server, network, encoder), std::runtime_error);
    QCOMPARE(Operator().Text("tbRefMarkModuleID"), QString());
    QCOMPARE(Reading(), QString());
    for (const char* name : {"btnFind", "btnStop", "sbRecallValue"}) {
        QVERIFY2(!Operator().IsEnabled(name), name);
    }
    Calls::Mark();
    QVERIFY(QMetaObject::invokeMethod(page, "on_btnFind_clicked"));
    QVERIFY(QMetaObject::invokeMethod(page, "on_btnStop_clicked"));
    COMPARE_CALLS(Calls::Take(), {});
    page->setNetwork(&Window(), &server, network, encoder);
    QCOMPARE(Reading(), QStringLiteral("40000.00000"));
    page->Forget();
}

TAVIK_TEST_MAIN(ReferenceMarkLoopTest)

#include "ReferenceMarkLoopTest.moc"
