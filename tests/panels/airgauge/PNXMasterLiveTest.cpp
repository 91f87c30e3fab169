#include "library/TavikModulePNX.h"
#include "tests/panels/airgauge/PNXMasterTest.h"

#include <QElapsedTimer>
#include <QStatusBar>

#include <dlfcn.h>

using namespace TavikSimulator;

namespace {

const QString boxTitle = QStringLiteral("PNX Mastering");
const QString failure = QStringLiteral("The gauge fails.");
const QString readFailure = QStringLiteral("Error reading PNX:\nThe gauge fails.");

bool pressureThrowsANumber = false;

int PressuresRead() {
    return static_cast<int>(Calls::TakeOperation("PressureReading").size());
}

} // namespace

// Stands before the library's function, to throw what is no std::exception.
double TavikLibrary::TavikModulePNX::PressureReading() {
    if (pressureThrowsANumber) {
        throw 1;
    }
    static const auto pressure = reinterpret_cast<double (*)(TavikModulePNX*)>(
        dlsym(RTLD_NEXT, "_ZN12TavikLibrary14TavikModulePNX15PressureReadingEv"));
    return pressure(this);
}

/// The live pressure of the mastering wizard, and the summary.
class PNXMasterLiveTest : public PNXMasterTest {
    Q_OBJECT

private slots:
    void thePressureIsLive();
    void nextKeepsTheLastPressure();
    void backLeavesTheLoop();
    void cancelAndYes();
    void cancelAndNo();
    void closeButtonAndYes_data();
    void closeButtonAndYes();
    void closeButtonAndNo();
    void theLoopIsEnteredOnce();
    void aPressureThatFails();
    void aFirstPressureThatFails();
    void aPressureThatThrowsNoException();
    void theSummary();
    void aSummaryThatFails();
    void theLoopEndsWhenTheWindowCloses();
    void aQuestionEndsWhenTheWindowCloses();

private:
    QString Activity() { return Window().statusBar()->currentMessage(); }
    /// Enters stage 3 and does this there; answers when the loop has been left.
    void InTheLoop(QDialog& wizard, const std::function<void()>& deed) {
        GoTo(2, wizard);
        WhenLive(wizard, deed);
        QVERIFY(WidgetDriver(wizard).Click("btnNext"));
    }
    /// The pressure that the summary shows for master A is this one.
    void CompareSummaryPressure(QDialog& wizard, double size) {
        GoTo(5, wizard);
        QCOMPARE(Shown(wizard, "tbPressureA"), PressureShownFor(size));
        QVERIFY(WidgetDriver(wizard).Click("btnCancel"));
    }
};

void PNXMasterLiveTest::thePressureIsLive() {
    OpenGauge();
    PutIn(NozzlePart::MasterA);
    During([this](QDialog& wizard) {
        InTheLoop(wizard, [&] {
            QCOMPARE(StageOf(wizard), 3);
            QCOMPARE(Shown(wizard, "tbPressure"), PressureShownFor(-0.02));
            QCOMPARE(Activity(), QStringLiteral("Mastering: reading the air pressure"));
            PutIn(NozzlePart::MasterB);
            Calls::Mark();
            QElapsedTimer time;
            time.start();
            const auto isLive = [] { return Calls::CountOf("PressureReading") >= 8; };
            When(&wizard, isLive, [&wizard, time] {
                // One reading in 50 ms, or a little more.
                QVERIFY2(time.elapsed() >= 350, qPrintable(QString::number(time.elapsed())));
                QCOMPARE(Shown(wizard, "tbPressure"), PressureShownFor(0.02));
                QVERIFY(WidgetDriver(wizard).Click("btnNext"));
            });
        });
        QCOMPARE(StageOf(wizard), 4);
        QCOMPARE(Activity(), QString());
        Calls::Mark();
        QTest::qWait(150);
        QCOMPARE(PressuresRead(), 0);
        CancelWizard(wizard);
    });
}

void PNXMasterLiveTest::nextKeepsTheLastPressure() {
    OpenGauge();
    PutIn(NozzlePart::MasterA);
    During([this](QDialog& wizard) {
        InTheLoop(wizard, [&] {
            QVERIFY(WidgetDriver(wizard).Click("btnNext"));
            PutIn(NozzlePart::MasterB);
        });
        CompareSummaryPressure(wizard, -0.02);
    });
}

void PNXMasterLiveTest::backLeavesTheLoop() {
    OpenGauge();
    During([this](QDialog& wizard) {
        InTheLoop(wizard, [&] {
            QVERIFY(WidgetDriver(wizard).Click("btnBack"));
            Calls::Mark();
        });
        QCOMPARE(StageOf(wizard), 2);
        QTest::qWait(120);
        QCOMPARE(PressuresRead(), 0);
        CancelWizard(wizard);
    });
}

void PNXMasterLiveTest::cancelAndYes() {
    OpenGauge();
    During([this](QDialog& wizard) {
        InTheLoop(wizard, [&] {
            CancelWizard(wizard);
            Calls::Mark();
        });
        QVERIFY(!wizard.isVisible());
        QCOMPARE(PressuresRead(), 0);
        QCOMPARE(Activity(), QString());
    });
}

// The wizard stays at stage 3, its pressure stands still, and Next goes on with the last one.
void PNXMasterLiveTest::cancelAndNo() {
    OpenGauge();
    PutIn(NozzlePart::MasterA);
    During([this](QDialog& wizard) {
        InTheLoop(wizard, [&] {
            ExpectSure(wizard, false);
            QVERIFY(WidgetDriver(wizard).Click("btnCancel"));
            PutIn(NozzlePart::MasterB);
        });
        QVERIFY(wizard.isVisible());
        QCOMPARE(StageOf(wizard), 3);
        Calls::Mark();
        QTest::qWait(150);
        QCOMPARE(PressuresRead(), 0);
        QCOMPARE(Shown(wizard, "tbPressure"), PressureShownFor(-0.02));
        QCOMPARE(Activity(), QString());
        QVERIFY(WidgetDriver(wizard).Click("btnNext"));
        QCOMPARE(StageOf(wizard), 4);
        CompareSummaryPressure(wizard, -0.02);
    });
}

void PNXMasterLiveTest::closeButtonAndYes_data() {
    QTest::addColumn<bool>("escape");
    QTest::newRow("close button") << false;
    QTest::newRow("Escape") << true;
}

void PNXMasterLiveTest::closeButtonAndYes() {
    QFETCH(bool, escape);
    OpenGauge();
    During([&](QDialog& wizard) {
        InTheLoop(wizard, [&] {
            ExpectSure(wizard, true);
            if (escape) {
                WidgetDriver(wizard).Press(Qt::Key_Escape);
            } else {
                wizard.close();
            }
            Calls::Mark();
        });
        QVERIFY(!wizard.isVisible());
        QCOMPARE(PressuresRead(), 0);
    });
}

// Unlike Cancel: whoever stays has never left, and the pressure is live as before.
void PNXMasterLiveTest::closeButtonAndNo() {
    OpenGauge();
    During([this](QDialog& wizard) {
        InTheLoop(wizard, [&] {
            ExpectSure(wizard, false);
            wizard.close();
            QVERIFY(wizard.isVisible());
            PutIn(NozzlePart::MasterB);
            WhenShown(wizard, 0.02, [&] {
                QCOMPARE(StageOf(wizard), 3);
                QVERIFY(WidgetDriver(wizard).Click("btnNext"));
            });
        });
        QCOMPARE(StageOf(wizard), 4);
        CancelWizard(wizard);
    });
}

// Next and Back at once: Back comes to its end, and the loop that was running goes on.
void PNXMasterLiveTest::theLoopIsEnteredOnce() {
    OpenGauge();
    During([this](QDialog& wizard) {
        bool backHasEnded = false;
        InTheLoop(wizard, [&] {
            WhenShown(wizard, 0.02, [&] {
                QVERIFY(backHasEnded);
                QCOMPARE(StageOf(wizard), 3);
                QCOMPARE(Activity(), QStringLiteral("Mastering: reading the air pressure"));
                QVERIFY(WidgetDriver(wizard).Click("btnNext"));
            });
            QVERIFY(WidgetDriver(wizard).Click("btnNext"));
            QCOMPARE(StageOf(wizard), 4);
            PutIn(NozzlePart::MasterB);
            QVERIFY(WidgetDriver(wizard).Click("btnBack"));
            backHasEnded = true;
        });
        QCOMPARE(StageOf(wizard), 4);
        CancelWizard(wizard);
    });
}

void PNXMasterLiveTest::aPressureThatFails() {
    OpenGauge();
    PutIn(NozzlePart::MasterA);
    During([this](QDialog& wizard) {
        boxes.ExpectError(&wizard, boxTitle, readFailure);
        InTheLoop(wizard, [&] { FailNext("PressureReading", failure); });
        QCOMPARE(StageOf(wizard), 3);
        QCOMPARE(Shown(wizard, "tbPressure"), PressureShownFor(-0.02));
        QCOMPARE(Activity(), QString());
        QVERIFY(!WidgetDriver(wizard).IsEnabled("btnNext"));
        QVERIFY(!WidgetDriver(wizard).IsEnabled("btnBack"));
        Calls::Mark();
        QTest::qWait(120);
        QCOMPARE(PressuresRead(), 0);
        ExpectSure(wizard, false);
        QVERIFY(WidgetDriver(wizard).Click("btnCancel"));
        QVERIFY(wizard.isVisible());
        QVERIFY(!WidgetDriver(wizard).IsEnabled("btnNext"));
        CancelWizard(wizard);
    });
}

void PNXMasterLiveTest::aFirstPressureThatFails() {
    OpenGauge();
    During([this](QDialog& wizard) {
        GoTo(2, wizard);
        FailNext("PressureReading", failure);
        boxes.ExpectError(&wizard, boxTitle, readFailure);
        QVERIFY(WidgetDriver(wizard).Click("btnNext"));
        QCOMPARE(StageOf(wizard), 3);
        QCOMPARE(Shown(wizard, "tbPressure"), QString());
        CancelWizard(wizard);
    });
}

// A stale pressure must not get into the mastering, whatever was thrown.
void PNXMasterLiveTest::aPressureThatThrowsNoException() {
    OpenGauge();
    During([this](QDialog& wizard) {
        const QString unknown = QStringLiteral("An error of an unknown kind has occurred.");
        boxes.ExpectError(&wizard, QStringLiteral("Tavik Library Test"), unknown);
        InTheLoop(wizard, [] { pressureThrowsANumber = true; });
        pressureThrowsANumber = false;
        QTRY_COMPARE(boxes.Count(), 2);
        QTRY_COMPARE(QApplication::activeModalWidget(), &wizard);
        QVERIFY(!WidgetDriver(wizard).IsEnabled("btnNext"));
        QVERIFY(!WidgetDriver(wizard).IsEnabled("btnBack"));
        CancelWizard(wizard);
    });
}

void PNXMasterLiveTest::theSummary() {
    OpenGauge(QStringLiteral("unit=\"inches\""));
    PutIn(NozzlePart::MasterA);
    During([this](QDialog& wizard) {
        SetMasters(wizard, -0.0008, 0.123);
        GoTo(4, wizard);
        PutIn(NozzlePart::MasterB);
        Calls::Mark();
        QVERIFY(WidgetDriver(wizard).Click("btnNext"));
        COMPARE_CALLS(TakeAirGaugeCalls(), {QStringLiteral("PressureReading()")});
        QCOMPARE(Shown(wizard, "tbPressureA"), PressureShownFor(-0.02));
        QCOMPARE(Shown(wizard, "tbPressureB"), PressureShownFor(0.02));
        QCOMPARE(Shown(wizard, "tbMasterA"), QStringLiteral("-0.00100"));
        QCOMPARE(Shown(wizard, "tbMasterB"), QStringLiteral("0.12300"));
        QVERIFY(WidgetDriver(wizard).Click("btnCancel"));
    });
}

void PNXMasterLiveTest::aSummaryThatFails() {
    OpenGauge();
    During([this](QDialog& wizard) {
        GoTo(4, wizard);
        FailNext("PressureReading", failure);
        boxes.ExpectError(&wizard, boxTitle, readFailure);
        QVERIFY(WidgetDriver(wizard).Click("btnNext"));
        QCOMPARE(StageOf(wizard), 5);
        QCOMPARE(Shown(wizard, "tbPressureB"), QString());
        QVERIFY(!WidgetDriver(wizard).IsEnabled("btnNext"));
        QVERIFY(!WidgetDriver(wizard).IsEnabled("btnBack"));
        QVERIFY(WidgetDriver(wizard).IsEnabled("btnCancel"));
        QVERIFY(WidgetDriver(wizard).Click("btnCancel"));
        QVERIFY(!wizard.isVisible());
    });
    QCOMPARE(boxes.Take().size(), 2);
}

// No question, no box, and the panel leaves out what it does after the wizard.
void PNXMasterLiveTest::theLoopEndsWhenTheWindowCloses() {
    OpenGauge();
    During([this](QDialog& wizard) {
        InTheLoop(wizard, [&] {
            Calls::Mark();
            QVERIFY(Window().close());
        });
        QCOMPARE(PressuresRead(), 0);
        wizard.close();
        QVERIFY(!wizard.isVisible());
        Calls::Mark();
    });
    COMPARE_CALLS(TakeAirGaugeCalls(), {});
    QCOMPARE(boxes.Take().size(), 1);
}

void PNXMasterLiveTest::aQuestionEndsWhenTheWindowCloses() {
    OpenGauge();
    During([this](QDialog& wizard) {
        InTheLoop(wizard, [&] {
            ExpectSure(wizard, true, [this] { Window().close(); });
            wizard.close();
        });
        QVERIFY(!wizard.isVisible());
        Calls::Mark();
    });
    COMPARE_CALLS(TakeAirGaugeCalls(), {});
}

TAVIK_TEST_MAIN(PNXMasterLiveTest)
#include "PNXMasterLiveTest.moc"
