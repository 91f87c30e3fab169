#include "library/TavikRLKDevice.h"
#include "tests/panels/wireless/ReadingsTest.h"

#include <QAbstractButton>
#include <QPointer>
#include <QStatusBar>

#include <dlfcn.h>

using namespace TavikSimulator;

namespace {

bool batteryThrowsANumber = false;

} // namespace

// Stands before the library's function, to throw what is no std::exception.
int TavikLibrary::RLK_Device::BatteryStatus() {
    if (batteryThrowsANumber) {
        throw 1;
    }
    static const auto battery =
        reinterpret_cast<int (*)(RLK_Device*)>(dlsym(RTLD_NEXT, "_ZN12TavikLibrary10RLK_Device13BatteryStatusEv"));
    return battery(this);
}

/// Reading a hand tool again and again.
class HandToolLoopTest : public ReadingsTest {
    Q_OBJECT

private slots:
    void readsUntilStopped();
    void lastPressCounts();
    void failureEndsTheLoop();
    void failureThatIsNoExceptionEndsTheLoop();
    void clearedModulesCloseTheDialog_data();
    void clearedModulesCloseTheDialog();
    void changeOfModeAppliesToTheNextRead();
    void endsWithTheLoop_data();
    void endsWithTheLoop();
    void windowThatClosesEndsTheLoop();
    void windowThatClosesOverTheFirstFailure();
};

void HandToolLoopTest::readsUntilStopped() {
    OpenModule(StillTool(), 0);
    InDialog([this](QDialog& dialog, WidgetDriver driver) {
        Calls::Mark();
        const auto hasRead = [] { return Reads() >= 4; };
        When(this, hasRead, [&dialog, driver, this]() mutable {
            QCOMPARE(StartText(dialog), QStringLiteral("Stop Reading"));
            QCOMPARE(Window().statusBar()->currentMessage(), QStringLiteral("Reading the hand tool of slot 1"));
            driver.Click("btnStartStopReading");
            Calls::Mark();
        });
        QVERIFY(driver.Click("btnStartStopReading"));
        // The second click ended the loop without another read.
        QCOMPARE(Reads(), 0);
        QCOMPARE(StartText(dialog), QStringLiteral("Start Reading"));
        QCOMPARE(Window().statusBar()->currentMessage(), QString());
        QCOMPARE(Colour(dialog), green);
    });
}

/// Stop and Start before the loop comes round.
void HandToolLoopTest::lastPressCounts() {
    OpenModule(StillTool(), 0);
    InDialog([this](QDialog& dialog, WidgetDriver driver) {
        Calls::Mark();
        When(this, HasRead, [&dialog, driver, this]() mutable {
            auto* button = driver.The<QAbstractButton>("btnStartStopReading");
            button->click();
            QCOMPARE(StartText(dialog), QStringLiteral("Start Reading"));
            button->click();
            QCOMPARE(StartText(dialog), QStringLiteral("Stop Reading"));
            StopAfterReads(driver, Reads() + 3);
        });
        QVERIFY(driver.Click("btnStartStopReading"));
        QVERIFY2(Reads() >= 4, qPrintable(QString::number(Reads())));
        QCOMPARE(StartText(dialog), QStringLiteral("Start Reading"));
    });
}

void HandToolLoopTest::failureThatIsNoExceptionEndsTheLoop() {
    OpenModule(StillTool(), 0);
    InDialog([this](QDialog& dialog, WidgetDriver driver) {
        Calls::Mark();
        const auto hasRead = [] { return Reads() >= 2; };
        When(this, hasRead, [] { batteryThrowsANumber = true; });
        boxes.ExpectError(&dialog, QStringLiteral("Tavik Library Test"),
                          QStringLiteral("An error of an unknown kind has occurred."));
        QVERIFY(driver.Click("btnStartStopReading"));
        batteryThrowsANumber = false;
        QTRY_COMPARE(boxes.Count(), 2);
        QTRY_COMPARE(QApplication::activeModalWidget(), &dialog);
        QCOMPARE(StartText(dialog), QStringLiteral("Start Reading"));
        QCOMPARE(Window().statusBar()->currentMessage(), QString());
        StopAfterReads(driver, Reads() + 1);
        QVERIFY(driver.Click("btnStartStopReading"));
    });
}

void HandToolLoopTest::clearedModulesCloseTheDialog_data() {
    QTest::addColumn<bool>("reading");
    QTest::newRow("idle") << false;
    QTest::newRow("reading") << true;
}

/// The panel under the dialog goes with its module, and the dialog with the panel.
void HandToolLoopTest::clearedModulesCloseTheDialog() {
    QFETCH(bool, reading);
    OpenModule(StillTool(), 0);
    BoxReply reply;
    reply.leave = true;
    reply.meanwhile = [&](QDialog& dialog) {
        const QPointer<QDialog> readings(&dialog);
        const auto clear = [this] { Window().findChild<QAbstractButton*>(QStringLiteral("btnClearModules"))->click(); };
        Calls::Mark();
        if (reading) {
            When(this, HasRead, clear);
            WidgetDriver(dialog).Click("btnStartStopReading");
        } else {
            clear();
        }
        QTRY_VERIFY(readings == nullptr);
    };
    boxes.ExpectDialog(Operator().Find("moduleRLKWidget"), QStringLiteral("KRV Channel Readings"), reply);
    QVERIFY(Operator().Click("btnRead1"));
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    QCOMPARE(CallsOnRemovedModules(), std::uint64_t{0});
}

void HandToolLoopTest::failureEndsTheLoop() {
    OpenModule(StillTool(), 0);
    InDialog([this](QDialog& dialog, WidgetDriver driver) {
        Calls::Mark();
        Fault fault;
        fault.operation = "ReadAllChannels";
        fault.trigger = FaultTrigger::FromNth;
        fault.n = 4;
        fault.text = "Out of reach.";
        AddFault(fault);
        boxes.ExpectError(&dialog, readTitle, QStringLiteral("Out of reach."));
        QVERIFY(driver.Click("btnStartStopReading"));
        QCOMPARE(Reads(), 4);
        QCOMPARE(boxes.Count(), 2);
        QCOMPARE(StartText(dialog), QStringLiteral("Start Reading"));
        QCOMPARE(Colour(dialog), green);
    });
}

void HandToolLoopTest::changeOfModeAppliesToTheNextRead() {
    OpenModule(StillTool(), 0);
    InDialog([this](QDialog&, WidgetDriver driver) {
        Calls::Mark();
        When(
            this, [] { return Reads() >= 2; },
            [driver, this]() mutable {
                driver.Click("radioTagged");
                StopAfterReads(driver, Reads() + 2);
            });
        QVERIFY(driver.Click("btnStartStopReading"));
        const QStringList reads = Calls::TakeOperation("ReadAllChannels");
        QCOMPARE(reads.first(), OfDevice({QStringLiteral("ReadAllChannels(1)")}).constFirst());
        QCOMPARE(reads.last(), OfDevice({QStringLiteral("ReadAllChannels(3)")}).constFirst());
    });
}

void HandToolLoopTest::endsWithTheLoop_data() {
    QTest::addColumn<QString>("how");
    for (const char* how : {"Close", "Escape", "window button"}) {
        QTest::newRow(how) << QString::fromLatin1(how);
    }
}

void HandToolLoopTest::endsWithTheLoop() {
    QFETCH(QString, how);
    OpenModule(StillTool(), 0);
    InDialog([how, this](QDialog& dialog, WidgetDriver driver) {
        Calls::Mark();
        When(this, HasRead, [&dialog, driver, how]() mutable {
            if (how == QLatin1String("Close")) {
                driver.Click("btnClose");
            } else if (how == QLatin1String("Escape")) {
                QTest::keyClick(&dialog, Qt::Key_Escape);
            } else {
                dialog.close();
            }
            Calls::Mark();
        });
        QVERIFY(driver.Click("btnStartStopReading"));
        QCOMPARE(Reads(), 0);
        QVERIFY(!dialog.isVisible());
    });
    QCOMPARE(boxes.Count(), 1);
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

void HandToolLoopTest::windowThatClosesEndsTheLoop() {
    OpenModule(StillTool(), 0);
    InDialog([this](QDialog&, WidgetDriver driver) {
        Calls::Mark();
        When(this, HasRead, [this] {
            Window().close();
            Calls::Mark();
        });
        QVERIFY(driver.Click("btnStartStopReading"));
        QCOMPARE(Calls::Take(), QStringList());
    });
}

void HandToolLoopTest::windowThatClosesOverTheFirstFailure() {
    OpenModule(StillTool(), 0);
    FailNext("NumChannels", QStringLiteral("No."));
    boxes.Tolerate(true);
    When(
        this, [] { return QApplication::activeModalWidget() != nullptr; }, [this] { Window().close(); });
    QVERIFY(Operator().Click("btnRead1"));
    // Only the box has been seen: the dialog does not open after the window has closed.
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(boxes.Take().constFirst().title, readTitle);
}

TAVIK_TEST_MAIN(HandToolLoopTest)

#include "HandToolLoopTest.moc"
