#include "tools/sweep/BoxRules.h"

#include "tools/oracle/Oracle.h"

#include <QApplication>

#include <algorithm>

using TavikSimulator::JournalEntry;

const char* const failureText = "Gauge <b>3</b> – größte Störung & mehr.";
const int failureCode = 0x2101;

namespace {

using Calls = std::vector<JournalEntry>;

/// What the operator should see of the first call that was failedCall.
FailureBox DueBox(const TourStep& step) {
    Calls calls = TavikSimulator::Journal();
    const auto failedCall =
        std::find_if(calls.begin(), calls.end(), [](const JournalEntry& call) { return call.faulted; });
    calls.erase(failedCall + 1, calls.end());
    return step.failure(calls);
}

/// Every box that can be due in a step: that of any of its calls, and the last resort.
std::vector<FailureBox> PossibleBoxes(const IndexedStep& indexed) {
    std::vector<FailureBox> boxes{FailureBox(), indexed.step.unusable};
    Calls calls;
    for (const JournalEntry& call : indexed.calls) {
        calls.push_back(call);
        boxes.push_back(indexed.step.failure(calls));
    }
    return boxes;
}

bool IsOf(const SeenBox& box, const FailureBox& due) {
    return due.shown && box.title == due.title && box.text.startsWith(due.prefix) && !box.text.isEmpty();
}

bool IsFor(const SeenBox& box, const FailureBox& due) {
    return IsOf(box, due) && box.text == due.prefix + QString::fromUtf8(failureText);
}

/// What is wrong with boxes that are none of those that can be due.
QStringList ErrorsOfEach(const QVector<SeenBox>& shown, const std::vector<FailureBox>& possible,
                         bool (*is)(const SeenBox&, const FailureBox&)) {
    QStringList wrong;
    for (const SeenBox& box : shown) {
        const bool isPossible =
            std::any_of(possible.begin(), possible.end(), [&](const FailureBox& due) { return is(box, due); });
        wrong += Oracle::BoxErrors(box);
        if (!isPossible) {
            wrong.append(QStringLiteral("Error box: expected one of this step, got a %1.").arg(ToText(box)));
        }
    }
    return wrong;
}

/// A returned code fails a few later calls at most: a number of objects that do not exist is one failure, not one for
/// each.
QStringList ErrorsOfCount(const QVector<SeenBox>& shown) {
    constexpr int mostBoxes = 10;
    return shown.size() <= mostBoxes
               ? QStringList()
               : QStringList{
                     QStringLiteral("Error boxes: expected at most %1, got %2.").arg(mostBoxes).arg(shown.size())};
}

/// One failure, and no more and no less than its box.
QStringList ErrorsOfOne(const QVector<SeenBox>& shown, const FailureBox& due) {
    QStringList wrong = ErrorsOfEach(shown, {due}, IsFor);
    if (shown.size() != (due.shown ? 1 : 0)) {
        wrong.append(QStringLiteral("Error boxes: expected %1, got %2.").arg(due.shown ? 1 : 0).arg(shown.size()));
    }
    return wrong;
}

/// Many failures: the first has exactly its box. The others are boxes of this step or the last resort, with the
/// text of the failure; which of them is due cannot be told of a step that has gone wrong already.
QStringList ErrorsOfMany(const QVector<SeenBox>& shown, const FailureBox& due,
                         const std::vector<FailureBox>& possible) {
    QStringList wrong = ErrorsOfEach(shown, possible, IsFor);
    // The last resort waits for the end of what failed, and may open over another box: the order tells nothing.
    const bool hasDue = std::any_of(shown.begin(), shown.end(), [&](const SeenBox& box) { return IsFor(box, due); });
    if (due.shown && !hasDue) {
        wrong.append(
            QStringLiteral("Error boxes: expected that of the first failure among %1, got others.").arg(shown.size()));
    }
    const Calls calls = TavikSimulator::Journal();
    const auto failed =
        std::count_if(calls.begin(), calls.end(), [](const JournalEntry& call) { return call.faulted; });
    if (shown.size() > failed) {
        wrong.append(QStringLiteral("Error boxes: expected at most %1, one for each failed call, got %2.")
                         .arg(failed)
                         .arg(shown.size()));
    }
    return wrong;
}

} // namespace

QVector<SeenBox> CriticalBoxes(const QVector<SeenBox>& boxes) {
    QVector<SeenBox> critical;
    std::copy_if(boxes.begin(), boxes.end(), std::back_inserter(critical),
                 [](const SeenBox& box) { return box.kind == BoxKind::Critical; });
    return critical;
}

QStringList BoxErrors(DialogResponder& boxes, const IndexedStep& indexed, FaultType faultType) {
    const FailureBox due = DueBox(indexed.step);
    const bool shown = due.shown && faultType != FaultType::Code;
    WaitUntil([&] { return !shown || !CriticalBoxes(boxes.Peek()).isEmpty(); });
    WaitUntil([] { return QApplication::activeModalWidget() == nullptr; });
    ProcessAllEvents();
    const QVector<SeenBox> seen = CriticalBoxes(boxes.Take());
    switch (faultType) {
    case FaultType::Persistent:
    case FaultType::PersistentRuntimeError:
        return ErrorsOfMany(seen, due, PossibleBoxes(indexed));
    case FaultType::Code:
        return ErrorsOfEach(seen, PossibleBoxes(indexed), IsOf) + ErrorsOfCount(seen);
    default:
        return ErrorsOfOne(seen, due);
    }
}
