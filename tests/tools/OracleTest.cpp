#include "tools/oracle/Oracle.h"

#include "panels/common/Activity.h"
#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"
#include "tools/driver/FailureLog.h"
#include "tools/monkey/ExpectedErrors.h"
#include "tools/monkey/SessionOracle.h"

#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>

using namespace TavikSimulator;

namespace {

const QString title = QStringLiteral("Tavik Library Test");

} // namespace

/// What the monkey's oracle has to say of a program that is broken by hand.
class OracleTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void nothingIsWrong();
    void cursorIsLeft();
    void controlIsLeftDisabled();
    void statusBarIsLeft();
    void stopIsLeftEnabled();
    void loopThatCannotBeStopped();
    void listOfAnotherNetwork();
    void pageOfAnotherModule();
    void emptyPageOffersNothing();
    void boxes_data();
    void boxes();
    void boxThatTellsOfAFailedCall();
    void boxThatTellsItTwice();
    void refusalOnABenchWithoutFaults();
    void toolThatIsSwitchedOff();
    void boxAfterTheClosing();
    void warningOfQt();

private:
    /// What the oracle says while such a box is open.
    QStringList SaysOf(const QString& boxTitle, const QString& text, const Standing& standing,
                       QMessageBox::Icon icon = QMessageBox::Critical,
                       QMessageBox::StandardButtons buttons = QMessageBox::Ok, Qt::TextFormat format = Qt::PlainText);
    void OpenBench() {
        Open(Benches::Two());
        oracle = std::make_unique<SessionOracle>(bench);
        oracle->Look({});
    }
    void FailConnecting() {
        FailNext("ConnectAll", QStringLiteral("Silence."));
        ProgramFixture::boxes.ExpectError(&Window(), title, QStringLiteral("Silence."));
        Operator().Click("btnConnectAll");
        QTRY_COMPARE(ProgramFixture::boxes.Count(), 1);
    }

    const MonkeyBench bench{};
    std::unique_ptr<SessionOracle> oracle;
};

QStringList OracleTest::SaysOf(const QString& boxTitle, const QString& text, const Standing& standing,
                               QMessageBox::Icon icon, QMessageBox::StandardButtons buttons, Qt::TextFormat format) {
    QMessageBox box(icon, boxTitle, text, buttons, &Window());
    box.setTextFormat(format);
    box.setWindowModality(Qt::ApplicationModal);
    box.show();
    return oracle->Look(standing);
}

void OracleTest::nothingIsWrong() {
    OpenBench();
    QCOMPARE(oracle->Look({}), QStringList());
    QCOMPARE(oracle->Doubts(), QStringList());
}

void OracleTest::cursorIsLeft() {
    OpenBench();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    oracle->Look({});
    QApplication::restoreOverrideCursor();
    QCOMPARE(oracle->Doubts(), QStringList{QStringLiteral("Cursor: expected none, got an override cursor.")});
}

void OracleTest::controlIsLeftDisabled() {
    OpenBench();
    Operator().Find("btnConnectAll")->setEnabled(false);
    oracle->Look({});
    QCOMPARE(oracle->Doubts(), QStringList{QStringLiteral("btnConnectAll, idle: expected enabled, got disabled.")});
}

void OracleTest::statusBarIsLeft() {
    OpenBench();
    const Activity activity(&Window(), QStringLiteral("Reading"));
    oracle->Look({});
    QCOMPARE(oracle->Doubts().first(),
             QStringLiteral("Idle: expected no activity and no holder of the controls, got \"Reading\", holders: ."));
}

void OracleTest::stopIsLeftEnabled() {
    OpenNetwork(Benches::Two());
    oracle = std::make_unique<SessionOracle>(bench);
    Operator().Find("btnStopNotify")->setEnabled(true);
    oracle->Look({});
    QCOMPARE(oracle->Doubts().value(0), QStringLiteral("btnStopNotify, idle: expected disabled, got enabled."));
}

void OracleTest::loopThatCannotBeStopped() {
    OpenBench();
    oracle->Look({true, false, false, false});
    QCOMPARE(oracle->Doubts().value(0), QStringLiteral("Loop of the program: expected an enabled stop, got none."));
}

void OracleTest::listOfAnotherNetwork() {
    OpenNetwork(Benches::Two());
    QCOMPARE(Oracle::PageErrors(Window()), QStringList());
    delete Window().findChild<QListWidget*>(QStringLiteral("listModules"))->takeItem(1);
    QCOMPARE(Oracle::PageErrors(Window()),
             QStringList{QStringLiteral("listModules, network \"Alpha\" selected: expected rows KX00000001 KX00000002 "
                                        "RN00000003 or none, got KX00000001 RN00000003.")});
}

void OracleTest::pageOfAnotherModule() {
    OpenModule(Benches::Two(), 0);
    QCOMPARE(Oracle::PageErrors(Window()), QStringList());
    Window().findChild<QLineEdit*>(QStringLiteral("tbTavikIdentity"))->setText(QStringLiteral("KX00000002"));
    QCOMPARE(Oracle::PageErrors(Window()),
             QStringList{QStringLiteral("moduleWidget: expected module \"KX00000001\" or none, got \"KX00000002\".")});
}

void OracleTest::emptyPageOffersNothing() {
    OpenModule(Benches::Two(), 0);
    Window().findChild<QLineEdit*>(QStringLiteral("tbTavikIdentity"))->clear();
    const QStringList errors = Oracle::PageErrors(Window());
    QCOMPARE(errors.size(), 1);
    QVERIFY(errors.first().startsWith(QLatin1String("moduleWidget, empty: expected no enabled command, got ")));
}

void OracleTest::boxes_data() {
    QTest::addColumn<QString>("boxTitle");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("icon");
    QTest::addColumn<int>("buttons");
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("failure");
    const int ok = QMessageBox::Ok;
    const int plain = Qt::PlainText;
    const QString own = QStringLiteral("Failed to connect to network");
    QTest::newRow("of no failed call") << title << QStringLiteral("Silence.") << int(QMessageBox::Critical) << ok
                                       << plain << QStringLiteral("Error box");
    QTest::newRow("of the program's own") << title << own << int(QMessageBox::Critical) << ok << plain << QString();
    QTest::newRow("empty") << QStringLiteral("Reading Timer") << QString() << int(QMessageBox::Information) << ok
                           << plain << QStringLiteral("Message box: expected a title, a plain text");
    QTest::newRow("markup") << title << own << int(QMessageBox::Critical) << ok << int(Qt::AutoText)
                            << QStringLiteral("Message box: expected a title, a plain text");
    QTest::newRow("without a title") << QString() << own << int(QMessageBox::Critical) << ok << plain
                                     << QStringLiteral("Message box: expected a title, a plain text");
    QTest::newRow("without OK") << title << own << int(QMessageBox::Critical) << int(QMessageBox::Close) << plain
                                << QStringLiteral("Message box: expected a title, a plain text and the buttons OK");
    QTest::newRow("unknown") << QStringLiteral("News") << own << int(QMessageBox::Information) << ok << plain
                             << QStringLiteral("Message box: expected a known title");
}

void OracleTest::boxes() {
    QFETCH(QString, boxTitle);
    QFETCH(QString, text);
    QFETCH(int, icon);
    QFETCH(int, buttons);
    QFETCH(int, format);
    QFETCH(QString, failure);
    OpenBench();
    const QStringList says = SaysOf(boxTitle, text, {}, QMessageBox::Icon(icon), QMessageBox::StandardButtons(buttons),
                                    Qt::TextFormat(format));
    if (failure.isEmpty()) {
        QCOMPARE(says, QStringList());
    } else {
        QVERIFY2(says.value(0).startsWith(failure), qPrintable(says.join(QLatin1Char('\n'))));
    }
}

void OracleTest::boxThatTellsOfAFailedCall() {
    OpenBench();
    FailConnecting();
    QCOMPARE(SaysOf(title, QStringLiteral("Error: Silence."), {false, true, false, false}), QStringList());
}

void OracleTest::boxThatTellsItTwice() {
    OpenBench();
    FailConnecting();
    const Standing faulty{false, true, false, false};
    QCOMPARE(SaysOf(title, QStringLiteral("Silence."), faulty), QStringList());
    QCOMPARE(SaysOf(title, QStringLiteral("Silence."), faulty).size(), 1);
}

void OracleTest::refusalOnABenchWithoutFaults() {
    OpenBench();
    FailConnecting();
    const QString says = SaysOf(title, QStringLiteral("Silence."), {}).value(0);
    QVERIFY2(says.startsWith(QLatin1String("networks.ConnectAll()")), qPrintable(says));
}

void OracleTest::toolThatIsSwitchedOff() {
    JournalEntry call;
    call.operation = "GetDisplayedResolution";
    call.error = "Hand tool KRX0000002 does not answer: it has switched itself off.";
    QVERIFY(IsExpectedError(call, bench));
    call.error = "Hand tool KRX0000002 does not answer: the radio link is weak.";
    QVERIFY(!IsExpectedError(call, bench));
}

void OracleTest::boxAfterTheClosing() {
    OpenBench();
    const QStringList says = SaysOf(title, QStringLiteral("Failed to connect to network"), {false, false, false, true});
    QVERIFY(says.value(0).startsWith(QLatin1String("Closed window: expected no dialog")));
}

void OracleTest::warningOfQt() {
    OpenBench();
    qWarning("QTimer: something");
    QCOMPARE(oracle->Look({}), QStringList{QStringLiteral("Qt message: expected none, got: QTimer: something")});
}

TAVIK_TEST_MAIN(OracleTest)

#include "OracleTest.moc"
