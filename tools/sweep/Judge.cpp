#include "tools/sweep/Judge.h"

#include <QApplication>

#include <algorithm>

using TavikSimulator::JournalEntry;

const char* const failureText = "Gauge <b>3</b> – größte Störung & mehr.";
const int failureCode = 0x2101;

namespace {

using Calls = std::vector<JournalEntry>;

/// What the operator should see of the first call that was struck.
FailureBox DueBox(const TourStep& step) {
    Calls calls = TavikSimulator::Journal();
    const auto struck = std::find_if(calls.begin(), calls.end(), [](const JournalEntry& call) { return call.faulted; });
    calls.erase(struck + 1, calls.end());
    return step.failure(calls);
}

/// Every box that can be due in a step: that of any of its calls, and the last resort.
std::vector<FailureBox> PossibleBoxes(const OutlinedStep& outlined) {
    std::vector<FailureBox> boxes{FailureBox(), outlined.step.unusable};
    Calls calls;
    for (const JournalEntry& call : outlined.calls) {
        calls.push_back(call);
        boxes.push_back(outlined.step.failure(calls));
    }
    return boxes;
}

bool IsProper(const SeenBox& box) {
    return !box.markup && box.buttons == QLatin1String("OK");
}

bool IsOf(const SeenBox& box, const FailureBox& due) {
    return due.shown && box.title == due.title && box.text.startsWith(due.prefix) && !box.text.isEmpty();
}

bool IsFor(const SeenBox& box, const FailureBox& due) {
    return IsOf(box, due) && box.text == due.prefix + QString::fromUtf8(failureText);
}

/// What is wrong with boxes that are none of those that can be due.
QStringList JudgeEach(const QVector<SeenBox>& shown, const std::vector<FailureBox>& possible,
                      bool (*is)(const SeenBox&, const FailureBox&)) {
    QStringList wrong;
    for (const SeenBox& box : shown) {
        const bool isPossible =
            std::any_of(possible.begin(), possible.end(), [&](const FailureBox& due) { return is(box, due); });
        if (!IsProper(box) || !isPossible) {
            wrong.append(QStringLiteral("a box is a %1").arg(ToText(box)));
        }
    }
    return wrong;
}

/// One failure, and no more and no less than its box.
QStringList JudgeOnce(const QVector<SeenBox>& shown, const FailureBox& due) {
    QStringList wrong = JudgeEach(shown, {due}, IsFor);
    if (shown.size() != (due.shown ? 1 : 0)) {
        wrong.append(QStringLiteral("%1 boxes instead of %2").arg(shown.size()).arg(due.shown ? 1 : 0));
    }
    return wrong;
}

/// Many failures: the first has exactly its box. The others are boxes of this step or the last resort, with the
/// text of the failure; which of them is due cannot be told of a step that has gone wrong already.
QStringList JudgeOn(const QVector<SeenBox>& shown, const FailureBox& due, const std::vector<FailureBox>& possible) {
    QStringList wrong = JudgeEach(shown, possible, IsFor);
    // The last resort waits for the end of what failed, and may open over another box: the order tells nothing.
    const bool hasDue = std::any_of(shown.begin(), shown.end(), [&](const SeenBox& box) { return IsFor(box, due); });
    if (due.shown && !hasDue) {
        wrong.append(QStringLiteral("the box of the first failure is not among those shown"));
    }
    const Calls calls = TavikSimulator::Journal();
    const auto failed =
        std::count_if(calls.begin(), calls.end(), [](const JournalEntry& call) { return call.faulted; });
    if (shown.size() > failed) {
        wrong.append(QStringLiteral("%1 boxes for %2 failures").arg(shown.size()).arg(failed));
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

QStringList JudgeBoxes(DialogResponder& boxes, const OutlinedStep& outlined, Variant variant) {
    const FailureBox due = DueBox(outlined.step);
    const bool shown = due.shown && variant != Variant::Code;
    WaitUntil([&] { return !shown || !CriticalBoxes(boxes.Peek()).isEmpty(); });
    WaitUntil([] { return QApplication::activeModalWidget() == nullptr; });
    ProcessAllEvents();
    const QVector<SeenBox> seen = CriticalBoxes(boxes.Take());
    switch (variant) {
    case Variant::On:
    case Variant::OnPlainly:
        return JudgeOn(seen, due, PossibleBoxes(outlined));
    case Variant::Code:
        return JudgeEach(seen, PossibleBoxes(outlined), IsOf);
    default:
        return JudgeOnce(seen, due);
    }
}
