#include "tests/app/BlockedWindow.h"
#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QInputDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStatusBar>

using namespace TavikSimulator;

namespace {

const QString first = QStringLiteral("KX00000001");
const QString second = QStringLiteral("KX00000002");
const QString third = QStringLiteral("RN00000003");
const QString addTitle = QStringLiteral("Add module by ID");
const QString addLabel = QStringLiteral("Enter the module tavik identity.");

} // namespace

/// The module list of a network and the buttons that change it.
class NetworkPageTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void modulesStandInNetworkOrder();
    void selectionBuildsThePagesInOrder();
    void pagesFollowTheCapabilities();
    void dynamicPageFollowsTheSecondCapabilityToo();
    void noModuleNoPages();
    void moduleIsNeverAskedForBeyondTheCount();
    void moveUpSwapsAndFollows();
    void moveDownSwapsAndFollows();
    void movesAtTheEndsDoNothing();
    void movesWithNoRowDoNothing();
    void deleteRemovesTheRow();
    void deletingTheLastRowRemovesThePages();
    void deleteWithNoRowDoesNothing();
    void clearModules();
    void clearTcons();
    void addUpperCasesTheIdentity();
    void addCancelled();
    void addOfNothingGoesToTheLibrary();
    void addThatIsRefused();
    void hotSwappedModuleTakesItsPlace();
    void ping();
    void setSpeed();
    void setSpeedWithNothingChosen();
    void setSpeedThatFailsDoesNotRefresh();
    void refreshKeepsTheSelectedModule();
    void numbersOfCallsOfARefresh();
    void focusChoosesNoModule();
    void eachPageHoldsItsOwnPanel();

private:
    void Answer(const QString& identity, bool accept = true) {
        BoxReply reply;
        reply.accept = accept;
        reply.typed = identity;
        boxes.ExpectTextInput(&Window(), addTitle, addLabel, reply);
    }
    int CurrentRow() { return Operator().The<QListWidget>("listModules")->currentRow(); }
    static bool Refreshed(const QStringList& calls) {
        return calls.contains(QStringLiteral("network Alpha.AvailableSpeeds()"));
    }
};

void NetworkPageTest::modulesStandInNetworkOrder() {
    OpenNetwork(Benches::Two());
    QCOMPARE(Rows("listModules"), QStringList({first, second, third}));
}

void NetworkPageTest::selectionBuildsThePagesInOrder() {
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().SelectRow("listModules", third));
    QCOMPARE(Pages(), QStringList({QStringLiteral("Server"), QStringLiteral("Simulated alpha, R7"),
                                   QStringLiteral("Module RN00000003"), QStringLiteral("Buffered Mode"),
                                   QStringLiteral("Ref Mark Mode"), QStringLiteral("Difference Mode"),
                                   QStringLiteral("Dynamic Mode"), QStringLiteral("Readburst Mode")}));
    const QStringList calls = Calls::Take();
    COMPARE_CALLS(calls.mid(0, 3),
                  {QStringLiteral("network Alpha.ModuleCount()"), QStringLiteral("network Alpha.GetModule(2)"),
                   QStringLiteral("module RN00000003.Identity()")});
    // The module's page, which comes first, asks most of this too.
    const int pageIsFilled = calls.indexOf(QStringLiteral("status RN00000003.ErrorString()"));
    QVERIFY(pageIsFilled > 0);
    COMPARE_CALLS(
        calls.mid(pageIsFilled)
            .filter(QRegularExpression(QStringLiteral("^(module RN00000003|network Alpha)\\."
                                                      "(Buffered|Difference|Dynamic|ReadBurst)Capable\\(")))
            .mid(0, 4),
        {QStringLiteral("module RN00000003.BufferedCapable()"), QStringLiteral("module RN00000003.DifferenceCapable()"),
         QStringLiteral("network Alpha.DynamicCapable()"), QStringLiteral("network Alpha.ReadBurstCapable()")});
    QVERIFY(Operator().SelectRow("listModules", first));
    QVERIFY(!Pages().contains(QStringLiteral("Ref Mark Mode")));
    QCOMPARE(Pages().size(), 7);
}

void NetworkPageTest::pagesFollowTheCapabilities() {
    OpenNetwork(Benches::Two(), 1);
    QVERIFY(Operator().SelectRow("listModules", 0));
    QCOMPARE(Pages(), QStringList({QStringLiteral("Server"), QStringLiteral("Simulated beta"),
                                   QStringLiteral("Module HVX0000001")}));
}

void NetworkPageTest::dynamicPageFollowsTheSecondCapabilityToo() {
    OpenNetwork(Benches::With(QStringLiteral("<module type=\"KX\" identity=\"KX00000001\" capabilities=\"\"/>"),
                              QStringLiteral("capabilities=\"dynamic2\"")));
    QVERIFY(Operator().SelectRow("listModules", 0));
    QCOMPARE(Pages().mid(3), QStringList{QStringLiteral("Dynamic Mode")});
}

void NetworkPageTest::noModuleNoPages() {
    OpenModule(Benches::Two(), 0);
    QVERIFY(Pages().size() > 2);
    Operator().The<QListWidget>("listModules")->setCurrentRow(-1);
    QCOMPARE(Pages().size(), 2);
    COMPARE_CALLS(Calls::Take(), {});
}

void NetworkPageTest::moduleIsNeverAskedForBeyondTheCount() {
    OpenModule(Benches::Two(), 2);
    QVERIFY(Operator().SelectPage("tabNetwork"));
    QVERIFY(Operator().Click("btnDeleteModule"));
    QVERIFY(Operator().Click("btnClearModules"));
    for (const JournalEntry& entry : Calls::Entries()) {
        QVERIFY2(!entry.failed, entry.error.c_str());
    }
}

void NetworkPageTest::moveUpSwapsAndFollows() {
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().SelectRow("listModules", 1));
    Calls::Mark();
    QVERIFY(Operator().Click("btnMoveUp"));
    QCOMPARE(Rows("listModules"), QStringList({second, first, third}));
    QCOMPARE(CurrentRow(), 0);
    COMPARE_CALLS(Calls::Take().mid(0, 7),
                  {QStringLiteral("network Alpha.ModuleCount()"), QStringLiteral("network Alpha.GetModule(1)"),
                   QStringLiteral("module KX00000002.SetPosition(0)"), QStringLiteral("network Alpha.GetModule(0)"),
                   QStringLiteral("module KX00000001.SetPosition(1)"), QStringLiteral("network Alpha.ApplyRemap()"),
                   QStringLiteral("network Alpha.BufferedCapable()")});
    QVERIFY(Pages().contains(QStringLiteral("Module KX00000002")));
}

void NetworkPageTest::moveDownSwapsAndFollows() {
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().SelectRow("listModules", 0));
    Calls::Mark();
    QVERIFY(Operator().Click("btnMoveDown"));
    QCOMPARE(Rows("listModules"), QStringList({second, first, third}));
    QCOMPARE(CurrentRow(), 1);
    COMPARE_CALLS(Calls::Take().mid(0, 6),
                  {QStringLiteral("network Alpha.ModuleCount()"), QStringLiteral("network Alpha.GetModule(0)"),
                   QStringLiteral("module KX00000001.SetPosition(1)"), QStringLiteral("network Alpha.GetModule(1)"),
                   QStringLiteral("module KX00000002.SetPosition(0)"), QStringLiteral("network Alpha.ApplyRemap()")});
    QVERIFY(Pages().contains(QStringLiteral("Module KX00000001")));
}

void NetworkPageTest::movesAtTheEndsDoNothing() {
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().SelectRow("listModules", 0));
    Calls::Mark();
    QVERIFY(Operator().Click("btnMoveUp"));
    COMPARE_CALLS(Calls::Take(), {});
    QVERIFY(Operator().SelectRow("listModules", 2));
    Calls::Mark();
    QVERIFY(Operator().Click("btnMoveDown"));
    COMPARE_CALLS(Calls::Take(), {});
}

void NetworkPageTest::movesWithNoRowDoNothing() {
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().Click("btnMoveUp"));
    QVERIFY(Operator().Click("btnMoveDown"));
    COMPARE_CALLS(Calls::Take(), {});
}

void NetworkPageTest::deleteRemovesTheRow() {
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().SelectRow("listModules", 0));
    Calls::Mark();
    QVERIFY(Operator().Click("btnDeleteModule"));
    QCOMPARE(Rows("listModules"), QStringList({second, third}));
    QCOMPARE(CurrentRow(), 0);
    QVERIFY(Pages().contains(QStringLiteral("Module KX00000002")));
    QCOMPARE(Calls::Take().constFirst(), QStringLiteral("network Alpha.DeleteModule(0)"));
}

void NetworkPageTest::deletingTheLastRowRemovesThePages() {
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().SelectRow("listModules", 2));
    QVERIFY(Operator().Click("btnDeleteModule"));
    QCOMPARE(Rows("listModules"), QStringList({first, second}));
    QCOMPARE(CurrentRow(), -1);
    QCOMPARE(Pages().size(), 2);
}

void NetworkPageTest::deleteWithNoRowDoesNothing() {
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().Click("btnDeleteModule"));
    COMPARE_CALLS(Calls::Take(), {});
    QCOMPARE(Rows("listModules").size(), 3);
}

void NetworkPageTest::clearModules() {
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().SelectRow("listModules", 1));
    Calls::Mark();
    QVERIFY(Operator().Click("btnClearModules"));
    QCOMPARE(Rows("listModules"), QStringList());
    QCOMPARE(Pages().size(), 2);
    const QStringList calls = Calls::Take();
    QCOMPARE(calls.first(), QStringLiteral("network Alpha.ClearModules()"));
    QVERIFY(Refreshed(calls));
}

void NetworkPageTest::clearTcons() {
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().Click("btnClearTcons"));
    const QStringList calls = Calls::Take();
    QCOMPARE(calls.first(), QStringLiteral("network Alpha.ClearTCons()"));
    QVERIFY(Refreshed(calls));
    QCOMPARE(Rows("listModules"), QStringList({first, second, third}));
}

void NetworkPageTest::addUpperCasesTheIdentity() {
    OpenNetwork(Benches::Two());
    BoxReply reply;
    reply.typed = QStringLiteral("kx00000004");
    reply.meanwhile = [](QDialog& box) {
        const auto* entry = box.findChild<QLineEdit*>();
        QCOMPARE(entry->text(), QString());
        QCOMPARE(entry->echoMode(), QLineEdit::Normal);
    };
    boxes.ExpectTextInput(&Window(), addTitle, addLabel, reply);
    QVERIFY(Operator().Click("btnAddModule"));
    const QStringList calls = Calls::Take();
    QCOMPARE(calls.first(), QStringLiteral("network Alpha.AddModule(\"KX00000004\", \"\")"));
    QVERIFY(Refreshed(calls));
    QCOMPARE(Rows("listModules").constLast(), QStringLiteral("KX00000004"));
}

void NetworkPageTest::addCancelled() {
    OpenNetwork(Benches::Two());
    Answer(QStringLiteral("KX00000004"), false);
    QVERIFY(Operator().Click("btnAddModule"));
    COMPARE_CALLS(Calls::Take(), {});
    QCOMPARE(Rows("listModules").size(), 3);
}

void NetworkPageTest::addOfNothingGoesToTheLibrary() {
    OpenNetwork(Benches::Two());
    FailNext("AddModule", QStringLiteral("An empty identity names no module."));
    Answer(QString());
    boxes.ExpectError(&Window(), QStringLiteral("Add Module"),
                      QStringLiteral("Error: An empty identity names no module."));
    QVERIFY(Operator().Click("btnAddModule"));
    const QStringList calls = Calls::Take();
    QCOMPARE(calls.first(), QStringLiteral("network Alpha.AddModule(\"\", \"\")"));
    QVERIFY(Refreshed(calls));
}

void NetworkPageTest::addThatIsRefused() {
    OpenNetwork(Benches::Two());
    Answer(QStringLiteral("grüße"));
    boxes.Tolerate(true);
    QVERIFY(Operator().Click("btnAddModule"));
    QCOMPARE(boxes.Count(), 2);
    const SeenBox box = boxes.Take().constLast();
    QCOMPARE(box.title, QStringLiteral("Add Module"));
    QVERIFY(box.text.startsWith(QStringLiteral("Error: ")));
    const std::vector<JournalEntry> entries = Calls::Entries();
    QCOMPARE(QString::fromStdString(entries.front().arguments),
             QString(QLatin1Char('"') + QStringLiteral("grüße").toUpper() + QStringLiteral("\", \"\"")));
    QCOMPARE(box.text, QString(QStringLiteral("Error: ") + QString::fromStdString(entries.front().error)));
    QVERIFY(Refreshed(Calls::Take()));
}

void NetworkPageTest::hotSwappedModuleTakesItsPlace() {
    OpenNetwork(Benches::Two());
    ReplaceModule("Alpha", "KX00000002", "KX00000099");
    QVERIFY(Operator().SelectRow("listModules", 0));
    Calls::Mark();
    QVERIFY(Operator().Click("btnHotswap"));
    const QStringList calls = Calls::Take();
    QCOMPARE(calls.first(), QStringLiteral("network Alpha.FindHotswapped()"));
    QVERIFY(Refreshed(calls));
    QCOMPARE(Rows("listModules"), QStringList({first, QStringLiteral("KX00000099"), third}));
}

void NetworkPageTest::ping() {
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().Click("btnPing"));
    const QStringList calls = Calls::Take();
    QCOMPARE(calls.first(), QStringLiteral("network Alpha.Ping()"));
    QVERIFY(Refreshed(calls));
}

void NetworkPageTest::setSpeed() {
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().SelectRow("listAvailableSpeeds", QStringLiteral("Ultra High")));
    QVERIFY(Operator().Click("btnSetSpeed"));
    const QStringList calls = Calls::Take();
    QCOMPARE(calls.first(), QStringLiteral("network Alpha.setNetSpeed(Ultra High)"));
    QVERIFY(Refreshed(calls));
    QCOMPARE(Operator().Text("editCurrentSpeed"), QStringLiteral("Ultra High"));
}

void NetworkPageTest::setSpeedWithNothingChosen() {
    OpenNetwork(Benches::Two());
    boxes.ExpectError(&Window(), QStringLiteral("Error!"), QStringLiteral("A speed to set has not been selected."));
    QVERIFY(Operator().Click("btnSetSpeed"));
    COMPARE_CALLS(Calls::Take(), {});
}

void NetworkPageTest::setSpeedThatFailsDoesNotRefresh() {
    OpenNetwork(Benches::Two());
    FailNext("setNetSpeed", QStringLiteral("Zu schnell für <i>KX00000002</i>."));
    QVERIFY(Operator().SelectRow("listAvailableSpeeds", QStringLiteral("Low")));
    boxes.ExpectError(&Window(), QStringLiteral("Error!"), QStringLiteral("Zu schnell für <i>KX00000002</i>."));
    QVERIFY(Operator().Click("btnSetSpeed"));
    COMPARE_CALLS(Calls::Take(), {QStringLiteral("network Alpha.setNetSpeed(Low)")});
    QCOMPARE(Operator().Text("editCurrentSpeed"), QStringLiteral("High"));
}

void NetworkPageTest::refreshKeepsTheSelectedModule() {
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().SelectRow("listModules", 1));
    QVERIFY(Operator().Click("btnPing"));
    QCOMPARE(CurrentRow(), 1);
    QVERIFY(Pages().contains(QStringLiteral("Module KX00000002")));
}

void NetworkPageTest::numbersOfCallsOfARefresh() {
    OpenNetwork(Benches::With(QStringLiteral("<module type=\"RN\" identity=\"RN00000003\"/>")));
    QVERIFY(Operator().Click("btnClearTcons"));
    const QString network = QStringLiteral("network Alpha.");
    COMPARE_CALLS(
        Calls::Take(),
        {network + QStringLiteral("ClearTCons()"), network + QStringLiteral("BufferedCapable()"),
         network + QStringLiteral("BufferedExternalSourceCapable()"), network + QStringLiteral("DynamicCapable()"),
         network + QStringLiteral("DynamicCapable()"), network + QStringLiteral("DynamicExternalSourceCapable()"),
         network + QStringLiteral("ReadBurstCapable()"), network + QStringLiteral("SpeedAvailable(Low)"),
         network + QStringLiteral("SpeedAvailable(High)"), network + QStringLiteral("SpeedAvailable(Ultra High)"),
         network + QStringLiteral("NetSpeed()"), network + QStringLiteral("AvailableSpeeds()"),
         network + QStringLiteral("ModuleCount()"), network + QStringLiteral("GetModule(0)"),
         QStringLiteral("module RN00000003.Identity()"), network + QStringLiteral("ModuleCount()")});
}

void NetworkPageTest::focusChoosesNoModule() {
    OpenNetwork(Benches::Two());
    auto* list = Operator().The<QListWidget>("listModules");
    list->clearFocus();
    list->setFocus(Qt::TabFocusReason);
    QCOMPARE(list->currentRow(), -1);
    QVERIFY(list->selectedItems().isEmpty());
    COMPARE_CALLS(Calls::Take(), {});
    for (const int row : {0, 1}) {
        Operator().Press(Qt::Key_Down);
        QCOMPARE(list->currentRow(), row);
        QCOMPARE(list->selectedItems(), QList<QListWidgetItem*>{list->item(row)});
    }
}

/// The second press would delete the module that moved up, which the operator has not seen there.
/// The status bar is painted with what blocks the window before the library is called.
void NetworkPageTest::eachPageHoldsItsOwnPanel() {
    OpenNetwork(Benches::Two());
    QVERIFY(Operator().SelectRow("listModules", third));
    const QStringList panels = {QStringLiteral("moduleWidget"),  QStringLiteral("bufferedModeWidget"),
                                QStringLiteral("refMarkWidget"), QStringLiteral("differenceModeWidget"),
                                QStringLiteral("dynamicWidget"), QStringLiteral("readBurstWidget")};
    const auto* tabs = Operator().The<QTabWidget>("tabWidget");
    QCOMPARE(tabs->count(), 2 + panels.size());
    for (int page = 0; page < panels.size(); ++page) {
        QVERIFY2(tabs->widget(2 + page)->findChild<QWidget*>(panels[page]) != nullptr, qPrintable(panels[page]));
    }
}

TAVIK_TEST_MAIN(NetworkPageTest)

#include "NetworkPageTest.moc"
