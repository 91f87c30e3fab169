#pragma once

#include "app/MainWindow.h"
#include "tools/bench/MonkeyBench.h"
#include "tools/monkey/SessionOracle.h"
#include "tools/monkey/Step.h"

#include <QCryptographicHash>
#include <QObject>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

/// The program on one bench, from its start to its end, and whoever uses it: a timer, which also goes on inside the
/// loops and boxes of the program. When the window has been closed before the steps are used up, the program is
/// started again on the same bench.
class Session : public QObject {
    Q_OBJECT

public:
    using Source = std::function<std::optional<Step>()>;

    Session(const MonkeyBench& bench, const Source& next);

    /// To be told of each step before it is done.
    void OnStep(const std::function<void(const Step& step)>& told) { onStep = told; }
    void OnCall(const std::function<void(const TavikSimulator::JournalEntry& call)>& told) { onCall = told; }
    /// What becomes of a program that something is wrong with. Must not return.
    void OnFailures(const std::function<void(const QStringList& failures)>& told) { onFailures = told; }

    void Play();

    int StepsDone() const { return stepsDone; }
    /// Of the steps and of all calls of the library: the same for runs that were the same.
    QByteArray Digest() const { return digest.result().toHex(); }

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    bool OpenWindow();
    void RunWindow();
    void LookAfterTheEnd();
    void Tick(bool inLoop);
    /// Whether the program may be used on; it may not while there is a doubt.
    bool CheckNow(bool inLoop);
    void TakeStep();
    void Fail(const QStringList& failures) { onFailures(failures); }

    const MonkeyBench& bench;
    const Source next;
    std::function<void(const Step& step)> onStep;
    std::function<void(const TavikSimulator::JournalEntry& call)> onCall;
    std::function<void(const QStringList& failures)> onFailures;
    SessionOracle oracle;
    std::unique_ptr<MainWindow> window;
    QCryptographicHash digest;
    std::uintptr_t outermost = 0; ///< where the stack ends when no loop of the program runs
    int rounds = 0;
    int doubtfulLooks = 0;
    int looksSinceClose = 0;
    int stepsDone = 0;
    bool faulty = false;
    bool lying = false;
    bool over = false; ///< there are no more steps
};
