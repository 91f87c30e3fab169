#include "library/TavikModuleRLK.h"
#include "panels/common/BackgroundCalls.h"
#include "panels/wireless/moduleRLKWidget.h"
#include "tests/panels/wireless/FailingThreads.h"
#include "tests/panels/wireless/WirelessBench.h"
#include "tests/support/ProgramFixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QSignalSpy>
#include <QStatusBar>

#include <atomic>
#include <cstring>
#include <dlfcn.h>

using namespace TavikSimulator;
using namespace WirelessBench;

namespace {

const QString moduleTitle = QStringLiteral("RLK Module");
const QString lastResort = QStringLiteral("Tavik Library Test");

constexpr std::chrono::seconds longEnough(20);

std::atomic<bool> restartThrowsANumber{false};

} // namespace

/// Applying the settings of a wireless connection module: writing them, and the restart on its own thread.
class RestartTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void writesAllSixIdentitiesAndNames();
    void writesWhatWasTyped();
    void failureWhileWriting_data();
    void failureWhileWriting();
    void threadThatCannotBeStarted();
    void waitsUntilTheModuleIsBack();
    void restartsOnAThreadOfItsOwn();
    void newToolIsConnected();
    void failedRestart_data();
    void failedRestart();
    void moduleThatFailsToRestart();
    void restartThatThrowsNoException();
    void controlsComeBackWithTheLastHold();
    void failureWhileFillingAgain_data();
    void failureWhileFillingAgain();
    void failureWhileEnablingAgain();
    void applyWhileRestartingDoesNothing();
    void repeatedRestarts();

private:
    void Apply() { QVERIFY(Operator().Click("btnApplySettings")); }
    bool Waits() { return Operator().Find("lblWait")->isVisible(); }
    QString Activity() { return Window().statusBar()->currentMessage(); }
    moduleRLKWidget* Panel() { return Operator().The<moduleRLKWidget>("moduleRLKWidget"); }
    void AwaitEnd() {
        QTRY_VERIFY(!Waits());
        QVERIFY(BackgroundCalls::WaitForEnd(longEnough));
    }
    void CompareIdle() {
        for (const char* name : {"btnRead1", "btnConfig1", "tbName1", "btnApplySettings", "btnRead", "listModules",
                                 "tableNetworks", "btnNotify", "btnSetSpeed"}) {
            QVERIFY2(Operator().Find(name)->isEnabled(), name);
        }
        QVERIFY(!Waits());
        const bool restarted = Activity().startsWith(QLatin1String("Wireless connection module restarted, "));
        QVERIFY2(restarted || Activity().isEmpty(), qPrintable(Activity()));
    }
};

// Stands before the library's function, to throw what is no std::exception.
void TavikLibrary::TavikModuleRLK::Restart() {
    if (restartThrowsANumber) {
        throw 1;
    }
    static const auto restart =
        reinterpret_cast<void (*)(TavikModuleRLK*)>(dlsym(RTLD_NEXT, "_ZN12TavikLibrary14TavikModuleRLK7RestartEv"));
    restart(this);
}

void RestartTest::writesAllSixIdentitiesAndNames() {
    OpenModule(Usual(), 0);
    Apply();
    AwaitEnd();
    const QStringList identities = {QStringLiteral("KRV0000001"),
                                    QStringLiteral("KRX0000002"),
                                    QStringLiteral("KRV0000003"),
                                    QString(),
                                    QString(),
                                    QString()};
    const QStringList names = {
        QStringLiteral("Bore gauge"), QString::fromUtf8("Größe"), QString(), QString(), QString(), QString()};
    QStringList expected;
    for (int slot = 1; slot <= 6; ++slot) {
        expected += OfSlot(QStringLiteral("device"),
                           {QStringLiteral("setTavikIdentity(\"%1\")").arg(identities.at(slot - 1))}, slot);
    }
    for (int slot = 1; slot <= 6; ++slot) {
        expected +=
            OfSlot(QStringLiteral("device"), {QStringLiteral("setDeviceName(\"%1\")").arg(names.at(slot - 1))}, slot);
    }
    expected.append(QStringLiteral("module RLK0000001.Restart()"));
    COMPARE_CALLS(TakeToolCalls().mid(0, expected.size()), expected);
    CompareIdle();
}

void RestartTest::writesWhatWasTyped() {
    OpenModule(Usual(), 0);
    QVERIFY(Operator().Click("tbTavikID1"));
    Operator().Press(Qt::Key_A, Qt::ControlModifier);
    Operator().Press(Qt::Key_Delete);
    QVERIFY(Operator().Click("tbName4"));
    Operator().Type(QString::fromUtf8("Längenmaß"));
    Apply();
    AwaitEnd();
    QVERIFY(Calls::TakeOperation("setTavikIdentity")
                .contains(QStringLiteral("device RLK0000001.1.setTavikIdentity(\"\")")));
    QCOMPARE(Operator().Text("tbTavikID1"), QString());
    QCOMPARE(Operator().Text("tbName4"), QString::fromUtf8("Längenmaß"));
    QVERIFY(!Operator().IsEnabled("btnRead1"));
}

void RestartTest::failureWhileWriting_data() {
    QTest::addColumn<QString>("object");
    QTest::addColumn<QString>("operation");
    QTest::addColumn<int>("identitiesWritten");
    QTest::addColumn<int>("namesWritten");
    const QString third = QStringLiteral("device RLK0000001.3");
    QTest::newRow("devices") << QStringLiteral("*") << QStringLiteral("Devices") << 0 << 0;
    QTest::newRow("device") << QStringLiteral("*") << QStringLiteral("GetDevice") << 0 << 0;
    QTest::newRow("third identity") << third << QStringLiteral("setTavikIdentity") << 2 << 0;
    QTest::newRow("third name") << third << QStringLiteral("setDeviceName") << 6 << 2;
}

void RestartTest::failureWhileWriting() {
    QFETCH(QString, object);
    QFETCH(QString, operation);
    QFETCH(int, identitiesWritten);
    QFETCH(int, namesWritten);
    OpenModule(Usual(), 0);
    FailNext(qPrintable(operation), QStringLiteral("No."), qPrintable(object));
    BoxReply reply;
    reply.meanwhile = [this](QDialog&) {
        QVERIFY(Operator().IsEnabled("listModules"));
        QVERIFY(!Waits());
    };
    boxes.ExpectError(Panel(), moduleTitle, QStringLiteral("No."), reply);
    Apply();
    CompareIdle();
    int identities = 0;
    int names = 0;
    for (const JournalEntry& entry : Calls::Entries()) {
        identities += entry.operation == "setTavikIdentity" && !entry.failed;
        names += entry.operation == "setDeviceName" && !entry.failed;
        QVERIFY(entry.operation != "Restart");
    }
    QCOMPARE(identities, identitiesWritten);
    QCOMPARE(names, namesWritten);
}

void RestartTest::threadThatCannotBeStarted() {
    OpenModule(Usual(), 0);
    boxes.ExpectError(Panel(), moduleTitle, QString::fromUtf8(std::strerror(EAGAIN)));
    {
        const FailingThreads failing;
        Apply();
    }
    QCOMPARE(boxes.Count(), 1);
    CompareIdle();
    QCOMPARE(Calls::TakeOperation("Restart"), QStringList());
    Apply();
    AwaitEnd();
    QCOMPARE(Calls::TakeOperation("Restart").size(), 1);
}

void RestartTest::waitsUntilTheModuleIsBack() {
    OpenModule(Usual(), 0);
    SlowRestart(2.0);
    Apply();
    QVERIFY(Waits());
    QVERIFY(Activity().startsWith(QLatin1String("Restarting the wireless connection module, ")));
    for (const char* name : {"btnRead1", "btnConfig1", "tbName1", "tbDeviceType1", "btnApplySettings", "listModules",
                             "tableNetworks", "btnRead", "btnStartContinuous", "btnNotify"}) {
        QVERIFY2(!Operator().Find(name)->isEnabled(), name);
    }
    QVERIFY(Operator().IsEnabled("tbTavikID1"));
    QTest::qWait(200);
    QVERIFY(Waits());
    QVERIFY(Operator().Click("tbTavikID6"));
    AwaitEnd();
    CompareIdle();
}

void RestartTest::restartsOnAThreadOfItsOwn() {
    OpenModule(Usual(), 0);
    QSignalSpy finished(Panel(), &moduleRLKWidget::restartFinished);
    Apply();
    AwaitEnd();
    QCOMPARE(finished.count(), 1);
    int guiThread = 0;
    int restartThread = 0;
    for (const JournalEntry& entry : Calls::Entries()) {
        if (entry.operation == "Restart") {
            restartThread = entry.thread;
        } else {
            QVERIFY(guiThread == 0 || guiThread == entry.thread);
            guiThread = entry.thread;
        }
    }
    QVERIFY(restartThread != 0);
    QVERIFY(restartThread != guiThread);
}

void RestartTest::newToolIsConnected() {
    OpenModule(Usual(), 0);
    QVERIFY(!Operator().IsEnabled("btnRead6"));
    QVERIFY(Operator().Click("tbTavikID6"));
    Operator().Type(QStringLiteral("KRV0000004"));
    Apply();
    AwaitEnd();
    QCOMPARE(Operator().Text("tbDeviceType6"), QStringLiteral("KRV"));
    QVERIFY(Operator().IsEnabled("btnRead6"));
    QVERIFY(Operator().IsEnabled("btnConfig6"));
}

void RestartTest::failedRestart_data() {
    QTest::addColumn<bool>("plain");
    QTest::newRow("by the library") << false;
    QTest::newRow("otherwise") << true;
}

void RestartTest::failedRestart() {
    QFETCH(bool, plain);
    OpenModule(Usual(), 0);
    Fault fault;
    fault.operation = "Restart";
    fault.effect = plain ? FaultEffect::ThrowPlain : FaultEffect::ThrowLibrary;
    fault.text = "Kein <b>Funk</b>: größer.";
    AddFault(fault);
    QSignalSpy finished(Panel(), &moduleRLKWidget::restartFinished);
    BoxReply reply;
    reply.meanwhile = [&](QDialog&) {
        QTest::qWait(50);
        QCOMPARE(finished.count(), 0);
        QVERIFY(Waits());
        QVERIFY(!Operator().IsEnabled("listModules"));
    };
    boxes.ExpectError(&Window(), moduleTitle, QStringLiteral("Kein <b>Funk</b>: größer."), reply);
    Apply();
    AwaitEnd();
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(finished.count(), 1);
    CompareIdle();
}

void RestartTest::moduleThatFailsToRestart() {
    OpenModule(Usual(QStringLiteral("failed-restarts=\"1\"")), 0);
    boxes.Tolerate(true);
    QVERIFY(Operator().Click("tbTavikID6"));
    Operator().Type(QStringLiteral("KRV0000004"));
    Apply();
    AwaitEnd();
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(boxes.Take().constFirst().title, moduleTitle);
    // The identity has been written, but the tool is not connected.
    QCOMPARE(Operator().Text("tbTavikID6"), QStringLiteral("KRV0000004"));
    QVERIFY(!Operator().IsEnabled("btnConfig6"));
    Apply();
    AwaitEnd();
    QVERIFY(Operator().IsEnabled("btnConfig6"));
}

void RestartTest::restartThatThrowsNoException() {
    OpenModule(Usual(), 0);
    boxes.ExpectError(&Window(), moduleTitle, QStringLiteral("An error of an unknown kind has occurred."));
    restartThrowsANumber = true;
    Apply();
    AwaitEnd();
    restartThrowsANumber = false;
    QCOMPARE(boxes.Count(), 1);
    CompareIdle();
}

/// Another run that ends meanwhile does not give the controls back under the restart.
void RestartTest::controlsComeBackWithTheLastHold() {
    OpenModule(Usual(), 0);
    SlowRestart(1.0);
    Apply();
    QCOMPARE(Window().Holders(), QStringList(QStringLiteral("wireless restart")));
    auto hold = Window().DisableControls(QStringLiteral("test"));
    hold.Release();
    for (const char* name : {"btnApplySettings", "btnRead1", "listModules"}) {
        QVERIFY2(!Operator().Find(name)->isEnabled(), name);
    }
    AwaitEnd();
    CompareIdle();
    QCOMPARE(Window().Holders(), QStringList());
}

void RestartTest::failureWhileFillingAgain_data() {
    QTest::addColumn<QString>("operation");
    for (const char* operation : {"UpdateDeviceFieldData", "DeviceType", "DeviceName"}) {
        QTest::newRow(operation) << QString::fromLatin1(operation);
    }
}

/// Apply would write what is shown: nothing is shown and nothing can be applied until the panel is filled.
void RestartTest::failureWhileFillingAgain() {
    QFETCH(QString, operation);
    OpenModule(Usual(), 0);
    SlowRestart(0.2);
    Apply();
    Fault fault;
    fault.operation = operation.toStdString();
    // Slot 4 is empty: it is asked for its type by the filling only.
    fault.object = "device RLK0000001.4";
    fault.text = "Lost.";
    AddFault(fault);
    boxes.ExpectError(&Window(), lastResort, QStringLiteral("Lost."));
    QTRY_COMPARE(boxes.Count(), 1);
    AwaitEnd();
    QVERIFY(!Waits());
    QVERIFY(Operator().IsEnabled("listModules"));
    for (int number = 1; number <= 6; ++number) {
        for (const char* name : {"tbTavikID", "tbName", "tbDeviceType"}) {
            QCOMPARE(Operator().Text((name + QByteArray::number(number)).constData()), QString());
        }
        for (const char* name : {"btnRead", "btnConfig", "tbName"}) {
            QVERIFY(!Operator().IsEnabled((name + QByteArray::number(number)).constData()));
        }
    }
    QVERIFY(!Operator().IsEnabled("btnApplySettings"));
    // A hold that ends does not enable what is not filled.
    Window().DisableControls(QStringLiteral("test")).Release();
    QVERIFY(!Operator().IsEnabled("btnApplySettings"));
    Calls::Mark();
    QVERIFY(QMetaObject::invokeMethod(Panel(), "on_btnApplySettings_clicked"));
    QCOMPARE(Calls::Take(), QStringList());

    QVERIFY(Operator().SelectPage("tabNetwork"));
    QVERIFY(Operator().SelectRow("listModules", 1));
    QVERIFY(Operator().SelectRow("listModules", 0));
    QVERIFY(Operator().SelectPage("tabModule"));
    QVERIFY(Operator().IsEnabled("btnApplySettings"));
    QCOMPARE(Operator().Text("tbTavikID1"), QStringLiteral("KRV0000001"));
}

void RestartTest::failureWhileEnablingAgain() {
    OpenModule(Usual(), 0);
    SlowRestart(0.2);
    Apply();
    FailNext("TavikIdentity", QStringLiteral("Lost."), "device RLK0000001.5");
    boxes.ExpectError(&Window(), lastResort, QStringLiteral("Lost."));
    QTRY_COMPARE(boxes.Count(), 1);
    AwaitEnd();
    CompareIdle();
}

void RestartTest::applyWhileRestartingDoesNothing() {
    OpenModule(Usual(), 0);
    SlowRestart(1.0);
    Apply();
    QVERIFY(QMetaObject::invokeMethod(Panel(), "on_btnApplySettings_clicked"));
    AwaitEnd();
    QCOMPARE(Calls::TakeOperation("Restart").size(), 1);
}

void RestartTest::repeatedRestarts() {
    OpenModule(Usual(), 0);
    for (int round = 0; round < 30; ++round) {
        if (round % 2 == 1) {
            FailNext("Restart", QStringLiteral("Again."));
            boxes.ExpectError(&Window(), moduleTitle, QStringLiteral("Again."));
        }
        Apply();
        AwaitEnd();
        CompareIdle();
    }
    QCOMPARE(boxes.Count(), 15);
}

TAVIK_TEST_MAIN(RestartTest)

#include "RestartTest.moc"
