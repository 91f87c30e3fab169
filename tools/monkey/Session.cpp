#include "tools/monkey/Session.h"

#include "panels/common/BackgroundCalls.h"
#include "simulator/control/BenchControl.h"
#include "tools/bench/OtherThreads.h"
#include "tools/bench/VirtualClock.h"
#include "tools/driver/FailureLog.h"
#include "tools/driver/WidgetDriver.h"
#include "tools/monkey/EventSender.h"
#include "tools/oracle/Oracle.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTimerEvent>

#include <algorithm>
#include <stdexcept>

using namespace TavikSimulator;

namespace {

/// How often events are handled from one step to the next.
constexpr int roundsPerStep = 3;
/// How much time goes by in each.
constexpr double secondsPerRound = 0.003;

/// After these steps the library may fail through no fault of the operator.
bool MakesFaulty(const Step& step) {
    static const QStringList verbs = {QStringLiteral("fault"),           QStringLiteral("module-leaves"),
                                      QStringLiteral("module-returns"),  QStringLiteral("network-drops"),
                                      QStringLiteral("network-returns"), QStringLiteral("tool-away"),
                                      QStringLiteral("tool-off-and-on"), QStringLiteral("tool-leaves-configuration")};
    return verbs.contains(step.Verb());
}

} // namespace

Session::Session(const MonkeyBench& ownBench, const Source& source)
    : bench(ownBench), next(source), oracle(ownBench), digest(QCryptographicHash::Sha1) {
    oracle.OnCall([this](const JournalEntry& call) {
        QByteArray line = QByteArray::fromStdString(CallText(call) + call.result + call.error);
        digest.addData(line.replace(QFile::encodeName(QDir::currentPath()), "folder"));
        if (onCall) {
            onCall(call);
        }
    });
}

void Session::Play() {
    VirtualClock::RoundUp();
    UseStillBenchText(bench.text.toStdString(), "bench of the monkey");
    constexpr std::size_t callsBetweenLooks = 100000;
    StartJournal(callsBetweenLooks);
    while (!over) {
        if (OpenWindow()) {
            RunWindow();
        }
    }
}

bool Session::OpenWindow() {
    try {
        window = std::make_unique<MainWindow>();
    } catch (const std::runtime_error& error) {
        if (!faulty) {
            Fail({QStringLiteral("Start: expected a window, got \"%1\".").arg(QString::fromUtf8(error.what()))});
        }
        ClearFaults();
        return false;
    }
    window->show();
    return true;
}

void Session::RunWindow() {
    outermost = 0;
    looksSinceClose = 0;
    doubtfulLooks = 0;
    startTimer(0);
    const int exitCode = QApplication::exec();
    if (exitCode != 0) {
        Fail({QStringLiteral("Exit code: expected 0, got %1.").arg(exitCode)});
    }
    if (!BackgroundCalls::WaitForEnd(std::chrono::seconds(5))) {
        Fail({QStringLiteral("Background calls: expected the end within 5 s, got none.")});
    }
    window.reset();
    ProcessAllEvents();
    LookAfterTheEnd();
}

void Session::LookAfterTheEnd() {
    const QStringList failures = FailureLog::Take() + Oracle::TeardownErrors();
    if (!failures.isEmpty()) {
        Fail(failures);
    }
}

void Session::timerEvent(QTimerEvent* event) {
    // Another timer each time: one that is being handled is passed over by the loops that begin in its handling.
    killTimer(event->timerId());
    if (window == nullptr) {
        return;
    }
    startTimer(0);
    // A loop of the program stands on the stack between the outermost loop and here, and the stack grows downwards. The
    // first event may already be handled inside a box.
    const auto here = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
    outermost = std::max(outermost, here);
    Tick(here < outermost);
}

void Session::Tick(bool inLoop) {
    DeliverInputs();
    VirtualClock::Pass(secondsPerRound);
    if (++rounds % roundsPerStep != 0) {
        return;
    }
    if (Oracle::RunsOffered(*window).contains(QStringLiteral("dynamic collection"))) {
        OtherThreads::LetThemLook();
    }
    if (CheckNow(inLoop) && !window->IsClosing()) {
        TakeStep();
    }
}

bool Session::CheckNow(bool inLoop) {
    constexpr int looksOfDoubt = 30;
    constexpr int looksToEnd = 500;
    const QStringList failures = oracle.Look({inLoop, faulty, lying, window->IsClosing()});
    if (!failures.isEmpty()) {
        Fail(failures);
    }
    if (window->IsClosing() && ++looksSinceClose > looksToEnd) {
        Fail({QStringLiteral("Closed window: expected the program to end within %1 looks, got no end.")
                  .arg(looksToEnd)});
    }
    doubtfulLooks = oracle.Doubts().isEmpty() ? 0 : doubtfulLooks + 1;
    if (doubtfulLooks > looksOfDoubt) {
        Fail(oracle.Doubts());
    }
    return doubtfulLooks == 0;
}

void Session::TakeStep() {
    const std::optional<Step> step = next();
    if (!step) {
        over = true;
        Operate({{QStringLiteral("close")}});
        return;
    }
    if (onStep) {
        onStep(*step);
    }
    digest.addData(step->ToText().toUtf8());
    ++stepsDone;
    faulty = faulty || MakesFaulty(*step);
    lying = lying || (step->Verb() == QLatin1String("fault") && step->Word(3) == QLatin1String("result"));
    Operate(*step);
}
