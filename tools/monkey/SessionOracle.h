#pragma once

#include "simulator/control/BenchControl.h"
#include "tools/bench/MonkeyBench.h"

#include <QPointer>
#include <QStringList>

#include <deque>
#include <functional>
#include <vector>

class QDialog;
class QWidget;

/// The state of the session when it is checked.
struct Standing {
    bool inLoop = false;  ///< inside a loop of the program that handles events
    bool faulty = false;  ///< something has been made to fail, or has been taken away, in this session
    bool lying = false;   ///< the library has been made to answer with codes that are not true
    bool closing = false; ///< the window has been closed
};

/// Checks the program after every event.
class SessionOracle {
public:
    explicit SessionOracle(const MonkeyBench& bench) : bench(bench) {}

    /// Returns the errors.
    QStringList Look(const Standing& standing);
    /// Errors of the controls and pages at the last look. They count only if they stay: the program may be on its way
    /// from one state to the next.
    const QStringList& Doubts() const { return doubts; }
    /// To be told of every call of the library.
    void OnCall(const std::function<void(const TavikSimulator::JournalEntry& call)>& told) { onCall = told; }

private:
    void TakeCalls();
    void CheckNewBox(const Standing& standing);
    void CheckBox(const QDialog& dialog, const Standing& standing);
    void CheckErrorText(const QString& title, const QString& text, const Standing& standing);
    void Fail(const QString& text) { failures.append(text); }

    const MonkeyBench& bench;
    QStringList failures;
    QStringList doubts;
    /// Calls that failed, or described an error, since the program was idle last.
    std::deque<TavikSimulator::JournalEntry> causes;
    std::vector<QPointer<QDialog>> known;
    std::function<void(const TavikSimulator::JournalEntry& call)> onCall;
};
