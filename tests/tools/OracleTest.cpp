#include "tools/monkey/Judge.h"

#include "tools/bench/Benches.h"
#include "tests/support/ProgramFixture.h"
#include "tools/driver/FailureLog.h"
#include "tools/monkey/ExpectedErrors.h"

#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>

using namespace TavikSimulator;

namespace {

const QString title = QStringLiteral("Tavik Library Test");

} // namespace

/// What the monkey's judge has to say of a program that is broken by hand.
class JudgeTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void nothingIsWrong();
    void cursorIsLeft();
    void controlIsLeftDisabled();
    void statusBarIsLeft();
    void stopIsLeftEnabled();
    void loopThatCannotBeStopped();
    void boxes_data();
    void boxes();
    void boxThatTellsOfAFailedCall();
    void boxThatTellsItTwice();
    void refusalOnABenchWithoutFaults();
    void toolThatIsSwitchedOff();
    void boxAfterTheClosing();
    void warningOfQt();

private:
    /// What the judge says while such a box is open.
    QStringList SaysOf(const QString& boxTitle, const QString& text, const Standing& standing,
                       QMessageBox::Icon icon = QMessageBox::Critical,
                       QMessageBox::StandardButtons buttons = QMessageBox::Ok, Qt::TextFormat format = Qt::PlainText);
    void OpenBench() {
        Open(Benches::Two());
        judge = std::make_unique<Judge>(bench);
        judge->Look({});
    }
    void FailPing() {
        FailNext("LibraryVersion", QStringLiteral("Silence."));
        ProgramFixture::boxes.ExpectError(&Window(), title, QStringLiteral("Silence."));
        Operator().Trigger("menuHelp", "action_About");
        QTRY_COMPARE(ProgramFixture::boxes.Count(), 1);
    }

    const MonkeyBench bench{};
    std::unique_ptr<Judge> judge;
};

QStringList JudgeTest::SaysOf(const QString& boxTitle, const QString& text, const Standing& standing,
                              QMessageBox::Icon icon, QMessageBox::StandardButtons buttons, Qt::TextFormat format) {
    QMessageBox box(icon, boxTitle, text, buttons, &Window());
    box.setTextFormat(format);
    box.setWindowModality(Qt::ApplicationModal);
    box.show();
    return judge->Look(standing);
}

void JudgeTest::nothingIsWrong() {
    OpenBench();
    QCOMPARE(judge->Look({}), QStringList());
    QCOMPARE(judge->Doubts(), QStringList());
}

void JudgeTest::cursorIsLeft() {
    OpenBench();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    judge->Look({});
    QApplication::restoreOverrideCursor();
    QCOMPARE(judge->Doubts(), QStringList{QStringLiteral("The wait cursor is left.")});
}

void JudgeTest::controlIsLeftDisabled() {
    OpenBench();
    Operator().Find("btnConnectAll")->setEnabled(false);
    judge->Look({});
    QCOMPARE(judge->Doubts(),
             QStringList{QStringLiteral(
                 "btnConnectAll is disabled, the status bar says \"\", and what can be stopped is: nothing")});
}

void JudgeTest::statusBarIsLeft() {
    OpenBench();
    Window().ShowActivity(QStringLiteral("Reading"));
    judge->Look({});
    QCOMPARE(judge->Doubts().first(),
             QString{QStringLiteral("The status bar says \"Reading\", and what can be stopped is: nothing")});
}

void JudgeTest::stopIsLeftEnabled() {
    OpenNetwork(Benches::Two());
    judge = std::make_unique<Judge>(bench);
    Operator().Find("btnStopNotify")->setEnabled(true);
    judge->Look({});
    QCOMPARE(judge->Doubts().value(0), QStringLiteral("A notify run can be stopped, though there is none."));
}

void JudgeTest::loopThatCannotBeStopped() {
    OpenBench();
    judge->Look({true, false, false, false});
    QCOMPARE(judge->Doubts().value(0), QStringLiteral("A loop runs that cannot be stopped."));
}

void JudgeTest::boxes_data() {
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
                                       << plain << QStringLiteral("An error box that no failed call accounts for");
    QTest::newRow("of the program's own") << title << own << int(QMessageBox::Critical) << ok << plain << QString();
    QTest::newRow("empty") << QStringLiteral("Reading Timer") << QString() << int(QMessageBox::Information) << ok
                           << plain << QStringLiteral("A box whose text is empty");
    QTest::newRow("markup") << title << own << int(QMessageBox::Critical) << ok << int(Qt::AutoText)
                            << QStringLiteral("A box whose text is empty or may be taken for markup");
    QTest::newRow("without a title") << QString() << own << int(QMessageBox::Critical) << ok << plain
                                     << QStringLiteral("A box without a title");
    QTest::newRow("without OK") << title << own << int(QMessageBox::Critical) << int(QMessageBox::Close) << plain
                                << QStringLiteral("A box with other buttons than usual");
    QTest::newRow("unknown") << QStringLiteral("News") << own << int(QMessageBox::Information) << ok << plain
                             << QStringLiteral("An unknown box");
}

void JudgeTest::boxes() {
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

void JudgeTest::boxThatTellsOfAFailedCall() {
    OpenBench();
    FailPing();
    QCOMPARE(SaysOf(title, QStringLiteral("Error: Silence."), {false, true, false, false}), QStringList());
}

void JudgeTest::boxThatTellsItTwice() {
    OpenBench();
    FailPing();
    const Standing faulty{false, true, false, false};
    QCOMPARE(SaysOf(title, QStringLiteral("Silence."), faulty), QStringList());
    QCOMPARE(SaysOf(title, QStringLiteral("Silence."), faulty).size(), 1);
}

void JudgeTest::refusalOnABenchWithoutFaults() {
    OpenBench();
    FailPing();
    const QString says = SaysOf(title, QStringLiteral("Silence."), {}).value(0);
    QVERIFY2(says.startsWith(QLatin1String("Nothing was wrong with the bench")), qPrintable(says));
}

void JudgeTest::toolThatIsSwitchedOff() {
    JournalEntry call;
    call.operation = "GetDisplayedResolution";
    call.error = "Hand tool KRX0000002 does not answer: it has switched itself off.";
    QVERIFY(IsExpectedError(call, bench));
    call.error = "Hand tool KRX0000002 does not answer: the radio link is weak.";
    QVERIFY(!IsExpectedError(call, bench));
}

void JudgeTest::boxAfterTheClosing() {
    OpenBench();
    const QStringList says = SaysOf(title, QStringLiteral("Failed to connect to network"), {false, false, false, true});
    QVERIFY(says.value(0).startsWith(QLatin1String("After the window had been closed")));
}

void JudgeTest::warningOfQt() {
    OpenBench();
    qWarning("QTimer: something");
    QCOMPARE(judge->Look({}), QStringList{QStringLiteral("Qt complains: QTimer: something")});
}

TAVIK_TEST_MAIN(JudgeTest)

#include "JudgeTest.moc"
