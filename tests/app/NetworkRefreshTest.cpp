#include "app/CapabilityLabel.h"
#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QListWidget>
#include <QTableWidget>

using namespace TavikSimulator;

namespace {

const QString programTitle = QStringLiteral("Tavik Library Test");
const QString silence = QStringLiteral("Silence.");
constexpr const char* rowCommands[] = {"btnMoveUp", "btnMoveDown", "btnDeleteModule", "btnSetSpeed"};

} // namespace

/// The network's page and the module's pages after a set-up or refresh that failed: what is shown is what is acted on.
class NetworkRefreshTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void failedRefreshLeavesThePageEmpty_data();
    void failedRefreshLeavesThePageEmpty();
    void failedSelectionLeavesNoPage_data();
    void failedSelectionLeavesNoPage();
    void failedRefreshAfterDeleteLeavesNoRow();
    void emptyPageStaysEmptyWhenTheControlsComeBack();
    void refreshedPageIsFilledAgain();
    void moduleIsSetUpAnewByAClickOnItsRow_data();
    void moduleIsSetUpAnewByAClickOnItsRow();
    void moduleIsSetUpAnewByReturn();
    void completeModuleIsNotSetUpAnew();
    void failedPageLeavesTheLaterPages_data();
    void failedPageLeavesTheLaterPages();
    void selectionAfterTheListBecameShorter();
    void moveAfterTheListBecameShorter();
    void failedMoveShowsTheListAnew();

private:
    void CompareEmpty() {
        QCOMPARE(Rows("listModules"), QStringList());
        QCOMPARE(Rows("listAvailableSpeeds"), QStringList());
        QCOMPARE(Operator().Text("editCurrentSpeed"), QString());
        const QList<CapabilityLabel*> labels = Window().findChildren<CapabilityLabel*>();
        QCOMPARE(labels.size(), 9);
        for (const CapabilityLabel* label : labels) {
            QVERIFY2(label->text().endsWith(QLatin1Char(':')), qPrintable(label->text()));
        }
        for (const char* command : rowCommands) {
            QVERIFY2(!Operator().Find(command)->isEnabledTo(&Window()), command);
        }
    }
    void CompareFilled() {
        QVERIFY(!Rows("listModules").isEmpty());
        QVERIFY(!Rows("listAvailableSpeeds").isEmpty());
        QVERIFY(!Operator().Text("editCurrentSpeed").isEmpty());
        for (const char* command : rowCommands) {
            QVERIFY2(Operator().Find(command)->isEnabledTo(&Window()), command);
        }
    }
    /// From now on the library says that a network has one module.
    static void ShortenList() {
        Fault shorter;
        shorter.operation = "ModuleCount";
        shorter.trigger = FaultTrigger::FromNth;
        shorter.effect = FaultEffect::Result;
        shorter.code = 1;
        AddFault(shorter);
    }
    void WaitForBox() {
        QTRY_COMPARE(boxes.Count(), 1);
        QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    }
};

void NetworkRefreshTest::failedRefreshLeavesThePageEmpty_data() {
    QTest::addColumn<QByteArray>("operation");
    for (const char* operation :
         {"BufferedCapable", "SpeedAvailable", "NetSpeed", "AvailableSpeeds", "ModuleCount", "GetModule", "Identity"}) {
        QTest::newRow(operation) << QByteArray(operation);
    }
}

/// Nothing of the network that was shown before is shown under the caption of the other one.
void NetworkRefreshTest::failedRefreshLeavesThePageEmpty() {
    QFETCH(QByteArray, operation);
    OpenModule(Benches::Two(), 0);
    QVERIFY(Operator().SelectPage("tabServer"));
    BoxReply reply;
    reply.meanwhile = [this](QDialog&) { CompareEmpty(); };
    boxes.ExpectError(&Window(), programTitle, silence, reply);
    FailNext(operation.constData(), silence);
    QVERIFY(Operator().SelectTableRow("tableNetworks", 1));
    WaitForBox();
    QCOMPARE(Pages(), QStringList({QStringLiteral("Server"), QStringLiteral("Simulated beta")}));
    CompareEmpty();
    QVERIFY(Operator().SelectTableRow("tableNetworks", 1));
    CompareFilled();
    QCOMPARE(Rows("listModules"), QStringList{QStringLiteral("HVX0000001")});
    Calls::Mark();
    QVERIFY(Operator().SelectTableRow("tableNetworks", 1));
    COMPARE_CALLS(Calls::Take(), {});
}

void NetworkRefreshTest::failedSelectionLeavesNoPage_data() {
    QTest::addColumn<QByteArray>("operation");
    for (const char* operation : {"Networks", "Network", "IsConnected", "Description"}) {
        QTest::newRow(operation) << QByteArray(operation);
    }
}

void NetworkRefreshTest::failedSelectionLeavesNoPage() {
    QFETCH(QByteArray, operation);
    OpenModule(Benches::Two(), 0);
    QVERIFY(Operator().SelectPage("tabServer"));
    boxes.ExpectError(&Window(), programTitle, silence);
    FailNext(operation.constData(), silence);
    QVERIFY(Operator().SelectTableRow("tableNetworks", 1));
    WaitForBox();
    QCOMPARE(Pages(), QStringList{QStringLiteral("Server")});
    QVERIFY(Operator().SelectTableRow("tableNetworks", 1));
    QVERIFY(Pages().contains(QStringLiteral("Simulated beta")));
    CompareFilled();
}

/// A second Delete must not take the module that moved up.
void NetworkRefreshTest::failedRefreshAfterDeleteLeavesNoRow() {
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().SelectRow("listModules", 0));
    FailNext("AvailableSpeeds", silence);
    boxes.ExpectError(&Window(), programTitle, silence);
    QVERIFY(Operator().Click("btnDeleteModule"));
    WaitForBox();
    CompareEmpty();
    QCOMPARE(Window().focusWidget(), Operator().Find("listModules"));
    QTest::keyClick(&Window(), Qt::Key_D, Qt::AltModifier);
    ProcessAllEvents();
    QCOMPARE(Calls::CountOf("DeleteModule"), 1);
    QCOMPARE(ListedModules("Alpha").size(), std::size_t(2));
}

void NetworkRefreshTest::emptyPageStaysEmptyWhenTheControlsComeBack() {
    OpenNetwork(Benches::Two());
    FailNext("NetSpeed", silence);
    boxes.ExpectError(&Window(), QStringLiteral("Error!"), silence);
    QVERIFY(Operator().Click("btnPing"));
    WaitForBox();
    auto hold = Window().DisableControls(QStringLiteral("test"));
    hold.Release();
    CompareEmpty();
    QVERIFY(Operator().IsEnabled("btnPing"));
}

void NetworkRefreshTest::refreshedPageIsFilledAgain() {
    OpenNetwork(Benches::Two());
    FailNext("NetSpeed", silence);
    boxes.ExpectError(&Window(), QStringLiteral("Error!"), silence);
    QVERIFY(Operator().Click("btnPing"));
    WaitForBox();
    CompareEmpty();
    QVERIFY(Operator().Click("btnPing"));
    CompareFilled();
}

void NetworkRefreshTest::moduleIsSetUpAnewByAClickOnItsRow_data() {
    QTest::addColumn<QByteArray>("operation");
    QTest::addColumn<QByteArray>("object");
    QTest::newRow("no pages") << QByteArray("GetModule") << QByteArray("network Alpha");
    QTest::newRow("no identity") << QByteArray("Identity") << QByteArray("module KX00000002");
    QTest::newRow("a page is missing") << QByteArray("DifferenceCapable") << QByteArray("module KX00000002");
    QTest::newRow("a page is empty") << QByteArray("Stroke") << QByteArray("module KX00000002");
}

void NetworkRefreshTest::moduleIsSetUpAnewByAClickOnItsRow() {
    QFETCH(QByteArray, operation);
    QFETCH(QByteArray, object);
    OpenNetwork(Benches::Two());
    FailNext(operation.constData(), silence, object.constData());
    boxes.ExpectError(&Window(), programTitle, silence);
    QVERIFY(Operator().SelectRow("listModules", 1));
    WaitForBox();
    Calls::Mark();
    QVERIFY(Operator().SelectRow("listModules", 1));
    QCOMPARE(Pages().size(), 7);
    QVERIFY(Calls::CountOf("GetModule") > 0);
    QVERIFY(Operator().SelectPage("tabModule"));
    QVERIFY(Operator().Click("btnRead"));
    QVERIFY(!Operator().Text("tbReading").isEmpty());
}

void NetworkRefreshTest::moduleIsSetUpAnewByReturn() {
    OpenNetwork(Benches::Two());
    FailNext("GetModule", silence);
    boxes.ExpectError(&Window(), programTitle, silence);
    QVERIFY(Operator().SelectRow("listModules", 1));
    WaitForBox();
    QCOMPARE(Pages().size(), 2);
    Operator().Find("listModules")->setFocus();
    Operator().Press(Qt::Key_Return);
    QCOMPARE(Pages().size(), 7);
}

void NetworkRefreshTest::completeModuleIsNotSetUpAnew() {
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().SelectRow("listModules", 1));
    Calls::Mark();
    QVERIFY(Operator().SelectRow("listModules", 1));
    Operator().Press(Qt::Key_Return);
    COMPARE_CALLS(Calls::Take(), {});
}

void NetworkRefreshTest::failedPageLeavesTheLaterPages_data() {
    QTest::addColumn<QByteArray>("operation");
    QTest::addColumn<QString>("missing");
    QTest::newRow("module page") << QByteArray("Stroke") << QString();
    QTest::newRow("buffered") << QByteArray("BufferedCapable") << QStringLiteral("Buffered Mode");
    QTest::newRow("difference") << QByteArray("DifferenceCapable") << QStringLiteral("Difference Mode");
}

void NetworkRefreshTest::failedPageLeavesTheLaterPages() {
    QFETCH(QByteArray, operation);
    QFETCH(QString, missing);
    QStringList expected = {QStringLiteral("Module KX00000002"), QStringLiteral("Buffered Mode"),
                            QStringLiteral("Difference Mode"), QStringLiteral("Dynamic Mode"),
                            QStringLiteral("Readburst Mode")};
    expected.removeAll(missing);
    OpenNetwork(Benches::Two());
    Fault fault;
    fault.object = "module KX00000002";
    fault.operation = operation.toStdString();
    fault.trigger = FaultTrigger::FromNth;
    fault.text = silence.toStdString();
    AddFault(fault);
    boxes.Tolerate(true);
    QVERIFY(Operator().SelectRow("listModules", 1));
    WaitForBox();
    QCOMPARE(Pages().mid(2), expected);
}

void NetworkRefreshTest::selectionAfterTheListBecameShorter() {
    OpenNetwork(Benches::Two());
    ShortenList();
    QVERIFY(Operator().SelectRow("listModules", 2));
    ProcessAllEvents();
    QVERIFY(!Calls::Take().contains(QStringLiteral("network Alpha.GetModule(2)")));
    QCOMPARE(Rows("listModules"), QStringList{QStringLiteral("KX00000001")});
    QCOMPARE(Pages().size(), 2);
}

void NetworkRefreshTest::moveAfterTheListBecameShorter() {
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().SelectRow("listModules", 0));
    Calls::Mark();
    ShortenList();
    QVERIFY(Operator().Click("btnMoveDown"));
    QCOMPARE(Calls::CountOf("SetPosition"), 0);
    COMPARE_CALLS(Calls::Take().mid(0, 2),
                  {QStringLiteral("network Alpha.ModuleCount()"), QStringLiteral("network Alpha.BufferedCapable()")});
    QCOMPARE(Rows("listModules"), QStringList{QStringLiteral("KX00000001")});
    QCOMPARE(Operator().The<QListWidget>("listModules")->currentRow(), 0);
}

void NetworkRefreshTest::failedMoveShowsTheListAnew() {
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().SelectRow("listModules", 0));
    FailNext("ApplyRemap", silence);
    boxes.ExpectError(&Window(), programTitle, silence);
    Calls::Mark();
    QVERIFY(Operator().Click("btnMoveDown"));
    WaitForBox();
    QVERIFY(Calls::CountOf("AvailableSpeeds") == 1);
    QCOMPARE(Operator().The<QListWidget>("listModules")->currentRow(), 0);
}

TAVIK_TEST_MAIN(NetworkRefreshTest)

#include "NetworkRefreshTest.moc"
