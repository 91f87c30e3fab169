#pragma once

#include "simulator/control/BenchControl.h"
#include "tools/monkey/MonkeyBench.h"

#include <QPointer>
#include <QStringList>

#include <deque>
#include <functional>
#include <vector>

class QDialog;
class QWidget;

/// Where the program stands when it is judged.
struct Standing {
    bool inLoop = false;  ///< inside a loop of the program that handles events
    bool faulty = false;  ///< something has been made to fail, or has been taken away, in this session
    bool lying = false;   ///< the library has been made to answer with codes that are not true
    bool closing = false; ///< the window has been closed
};

/// Looks at the program after every event.
class Judge {
public:
    explicit Judge(const MonkeyBench& bench) : bench(bench) {}

    /// What is wrong; empty when nothing is.
    QStringList Look(const Standing& standing);
    /// What the last look found wrong with the controls. It is wrong only if it stays so: the program may be on its
    /// way from one state to the next.
    const QStringList& Doubts() const { return doubts; }
    /// To be told of every call of the library.
    void OnCall(const std::function<void(const TavikSimulator::JournalEntry& call)>& told) { onCall = told; }

private:
    void TakeCalls();
    void LookForBoxes(const Standing& standing);
    void JudgeBox(const QDialog& dialog, const Standing& standing);
    void JudgeErrorText(const QString& title, const QString& text, const Standing& standing);
    void JudgeIdle(const QWidget& window, const Standing& standing);
    void JudgeControls(const QWidget& window, const QStringList& running, bool faulty);
    void JudgeLoop(const QWidget& window);
    void Complain(const QString& text) { failures.append(text); }
    void Doubt(const QString& text) { doubts.append(text); }

    const MonkeyBench& bench;
    QStringList failures;
    QStringList doubts;
    /// Calls that failed, or described an error, since the program was idle last.
    std::deque<TavikSimulator::JournalEntry> causes;
    std::vector<QPointer<QDialog>> known;
    std::function<void(const TavikSimulator::JournalEntry& call)> onCall;
};
