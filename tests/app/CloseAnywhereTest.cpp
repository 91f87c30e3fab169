#include "app/Application.h"
#include "simulator/control/BenchControl.h"
#include "tests/support/GuardedTest.h"
#include "tools/bench/VirtualClock.h"
#include "tools/driver/QtMessages.h"
#include "tools/driver/Screen.h"
#include "tools/monkey/EventSender.h"
#include "tools/monkey/Session.h"
#include "tools/oracle/Oracle.h"

#include <QTemporaryDir>
#include <QTest>

#include <cstdio>
#include <cstdlib>
#include <set>

using namespace TavikSimulator;

namespace {

/// How long the closing takes in bench time, which the program's sleeps and the library's calls take: half a second for
/// runs to wind down, and the longest sleep between two looks at the events, a second while a hand tool does not
/// answer. A call of the library takes no time here, so this is what comes on top of the longest one.
constexpr double longestClosing = 2.0;

/// What the closing itself asks, and what ends with the library.
bool BelongsToTheClosing(const std::string& operation) {
    static const std::set<std::string> operations = {"Networks",       "Count",         "Network",    "CancelNotifying",
                                                     "Buffered",       "Status",        "Difference", "Stop",
                                                     "StopAllDynamic", "DisconnectAll", "StopRefMark"};
    return operation.front() == '~' || operations.count(operation) > 0;
}

Steps StepsOf(const QString& text) {
    Steps steps;
    const QStringList lines = text.split(QLatin1Char(';'));
    for (const QString& line : lines) {
        steps.push_back(Step::FromText(line.trimmed()));
    }
    return steps;
}

/// Something of this name runs, or a box of this title is open, or something has popped up ("popup").
bool IsReached(const QString& name) {
    const QWidget* front = Screen::Front();
    if (front == nullptr) {
        return false;
    }
    if (name == QLatin1String("popup")) {
        return front->windowType() == Qt::Popup;
    }
    if (name == QLatin1String("restart")) {
        return true; // over as soon as the thread has been at it
    }
    return front->windowTitle() == name ||
           (front->parentWidget() == nullptr && Oracle::RunsOffered(*front).contains(name));
}

[[noreturn]] void EndWith(const QStringList& failures) {
    // The program cannot be taken down from inside its loops, nor the test.
    std::printf("FAIL!  : %s: %s\n", QTest::currentDataTag(), qPrintable(failures.join(QLatin1Char('\n'))));
    std::fflush(stdout);
    std::_Exit(1);
}

} // namespace

/// The window is closed wherever the program may be: in each of its loops, boxes and dialogs, while its thread works,
/// and while a collection runs, at several points each.
class CloseAnywhereTest : public QObject {
    Q_OBJECT

private slots:
    void endsInTime_data();
    void endsInTime();
    void cleanupTestCase();

private:
    double longest = 0.0;
};

void CloseAnywhereTest::endsInTime_data() {
    struct Row {
        const char* reached;
        const char* bench;
        const char* steps; ///< after connecting, with the network's page in front
    };
    // In the tab bar: 2 is the module's page, the pages of the modes come behind.
    static constexpr Row rows[] = {
        {"notify run", "small", "click btnNotify"},
        {"continuous reading", "small", "row listModules 0 0; tab qt_tabwidget_tabbar 2; click btnStartContinuous"},
        {"difference run", "difference",
         "row listModules 0 0; tab qt_tabwidget_tabbar 3; click btnEnable; click btnStartDiff"},
        {"search for a reference mark", "reference-mark",
         "row listModules 0 0; tab qt_tabwidget_tabbar 3; click btnFind"},
        {"buffered run", "buffered", "row listModules 0 0; tab qt_tabwidget_tabbar 3; click btnEnable; click btnStart"},
        {"dynamic collection", "dynamic",
         "row listModules 0 0; tab qt_tabwidget_tabbar 3; click btnEnable; click btnPrepare; click btnStart"},
        {"PNX Mastering", "small", "row listModules 2 0; tab qt_tabwidget_tabbar 2; click btnMaster"},
        {"PNX Mastering", "small",
         "row listModules 2 0; tab qt_tabwidget_tabbar 2; click btnMaster; click btnNext; click btnNext; wait 0.1"},
        {"Cancel Mastering", "small",
         "row listModules 2 0; tab qt_tabwidget_tabbar 2; click btnMaster; click btnNext; click btnNext; wait 0.1;"
         "click btnCancel"},
        {"PNX Configuration", "small", "row listModules 2 0; tab qt_tabwidget_tabbar 2; click btnConfigure"},
        {"Enter Passcode", "small",
         "row listModules 2 0; tab qt_tabwidget_tabbar 2; click btnConfigure; click btnSetPassCode"},
        {"KRV Channel Readings", "wireless", "row listModules 0 0; tab qt_tabwidget_tabbar 2; click btnRead1"},
        {"KRV Channel Readings", "wireless",
         "row listModules 0 0; tab qt_tabwidget_tabbar 2; click btnRead1; click btnStartStopReading; wait 0.1"},
        {"Please Wait", "wireless",
         "row listModules 0 0; tab qt_tabwidget_tabbar 2; tool-away KRV0000001; click btnConfig1"},
        {"KRV Settings", "wireless",
         "row listModules 0 0; tab qt_tabwidget_tabbar 2; click btnConfig1; wait 0.1; wait 0.1; wait 0.1; wait 0.1;"
         "wait 0.1; wait 0.1; wait 0.1; wait 0.1"},
        {"KRV-X Configuration", "wireless",
         "row listModules 0 0; tab qt_tabwidget_tabbar 2; click btnConfig2; wait 0.1; wait 0.1; wait 0.1; wait 0.1;"
         "wait 0.1; wait 0.1; wait 0.1; wait 0.1"},
        {"restart", "wireless", "row listModules 0 0; tab qt_tabwidget_tabbar 2; click btnApplySettings"},
        {"RLK Module", "wireless",
         "row listModules 0 0; tab qt_tabwidget_tabbar 2; fault once 1 throw Restart 8449 Silence;"
         "click btnApplySettings; wait 0.1"},
        {"Add module by ID", "small", "click btnAddModule"},
        {"Add Module", "small", "click btnAddModule; answer yes abc"},
        {"Save Tavik XML", "small", "click btnSaveXML"},
        {"Open Tavik XML", "small", "click btnLoadXML"},
        {"popup", "small", "menu 1"},
        {"Tavik Error Decoder", "small", "menu 1; pick 0"},
        {"Tavik Error Decoder", "small", "menu 1; pick 0; answer yes 5"},
        {"About Tavik Library Test", "small", "menu 1; pick 1"},
        {"Reading Timer", "small", "row listModules 0 0; tab qt_tabwidget_tabbar 2; click btnTimeReadings"},
        {"Reading Error", "small",
         "row listModules 0 0; tab qt_tabwidget_tabbar 2; fault once 1 throw ReadInCounts 8449 Silence;"
         "click btnStartContinuous"},
        {"Tavik Library Test", "small", "fault once 1 throw UpdateStatus 8449 Silence; row listModules 0 0; wait 0.1"},
        {"Readburst Timer", "difference", "row listModules 0 0; tab qt_tabwidget_tabbar 4; click btnTimeReadings"},
        {"Difference Mode Results", "difference",
         "row listModules 0 0; tab qt_tabwidget_tabbar 3; click btnEnable; click btnStartDiff; click btnStopDiff;"
         "click btnDisplayAllModuleResults"},
        {"Results", "buffered",
         "row listModules 0 0; tab qt_tabwidget_tabbar 3; click btnEnable; click btnStart; wait 1; click btnStop;"
         "click btnCurrentModule"},
        {"Results (in each module's unit of measure).", "dynamic",
         "row listModules 0 0; tab qt_tabwidget_tabbar 3; click btnEnable; click btnPrepare; click btnStart; wait 1;"
         "click btnStop; wait 0.1; click btnAllResults"},
    };
    QTest::addColumn<QString>("reached");
    QTest::addColumn<QString>("bench");
    QTest::addColumn<QString>("steps");
    QTest::addColumn<int>("later");
    int number = 0;
    for (const Row& row : rows) {
        ++number;
        for (const int later : {0, 1, 2, 5}) {
            QTest::addRow("%d %s, after %d", number, row.reached, later)
                << QString::fromLatin1(row.reached) << QString::fromLatin1(row.bench) << QString::fromLatin1(row.steps)
                << later;
        }
    }
}

void CloseAnywhereTest::endsInTime() {
    QFETCH(QString, reached);
    QFETCH(QString, bench);
    QFETCH(QString, steps);
    QFETCH(int, later);
    Steps all = StepsOf(QStringLiteral("click btnConnectAll; tab qt_tabwidget_tabbar 1; ") + steps);
    all.insert(all.end(), static_cast<std::size_t>(later), Step::FromText(QStringLiteral("wait 0.02")));
    std::size_t position = 0;
    bool closing = false;
    bool wasReached = false;
    double since = 0.0;
    QStringList callsLater;
    Session session(MonkeyBenchNamed(bench), [&]() -> std::optional<Step> {
        if (position < all.size()) {
            return all[position++];
        }
        closing = true;
        wasReached = IsReached(reached);
        since = BenchTime();
        return std::nullopt;
    });
    session.OnFailures(EndWith);
    session.OnCall([&](const JournalEntry& call) {
        if (closing && !BelongsToTheClosing(call.operation)) {
            callsLater.append(QString::fromStdString(CallText(call)));
        }
    });
    session.Play();
    // What is reached at once may be over a moment later; that moment is a point too.
    QVERIFY2(wasReached || later > 0, "This is not where the window was to be closed.");
    const double took = BenchTime() - since;
    QVERIFY2(took <= longestClosing, qPrintable(QString::number(took)));
    longest = std::max(longest, took);
    // One round of the loop that was running may be under way when the window closes.
    constexpr int callsOfARound = 20;
    QVERIFY2(callsLater.size() <= callsOfARound, qPrintable(callsLater.join(QLatin1Char('\n'))));
}

void CloseAnywhereTest::cleanupTestCase() {
    std::printf("The longest closing took %.3f s of bench time.\n", longest);
}

int main(int argc, char* argv[]) {
    qputenv("QT_NO_GLIB", "1");
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QTemporaryDir folder;
    VirtualClock::Begin();
    const Application application(argc, argv);
    QtMessages messages;
    UseFolder(folder.path());
    GuardedTest<CloseAnywhereTest> test;
    const int exitCode = QTest::qExec(&test, argc, argv);
    messages.Finish();
    return exitCode;
}

#include "CloseAnywhereTest.moc"
