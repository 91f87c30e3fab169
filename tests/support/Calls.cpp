#include "tests/support/Calls.h"

#include <algorithm>
#include <functional>

namespace {

using TavikSimulator::JournalEntry;

QStringList TakeWhere(const std::function<bool(const JournalEntry&)>& wanted) {
    QStringList texts;
    for (const JournalEntry& entry : Calls::Entries()) {
        if (wanted(entry)) {
            texts.append(QString::fromStdString(TavikSimulator::CallText(entry)));
        }
    }
    Calls::Mark();
    return texts;
}

QString LineOf(const QStringList& texts, int index) {
    return index < texts.size() ? texts.at(index) : QStringLiteral("(no more calls)");
}

} // namespace

void Calls::Mark() {
    TavikSimulator::ClearJournal();
}

std::vector<JournalEntry> Calls::Entries() {
    return TavikSimulator::Journal();
}

QStringList Calls::Take() {
    return TakeWhere([](const JournalEntry&) { return true; });
}

QStringList Calls::TakeOperation(const char* operation) {
    return TakeWhere([operation](const JournalEntry& entry) { return entry.operation == operation; });
}

QStringList Calls::TakeObject(const char* object) {
    return TakeWhere([object](const JournalEntry& entry) { return entry.object == object; });
}

int Calls::CountOf(const char* operation) {
    const std::vector<JournalEntry> entries = Entries();
    return static_cast<int>(std::count_if(entries.begin(), entries.end(), [operation](const JournalEntry& entry) {
        return entry.operation == operation;
    }));
}

QString DifferenceOf(const QStringList& seen, const QStringList& expected) {
    constexpr int context = 3;
    int index = 0;
    while (index < seen.size() && index < expected.size() && seen.at(index) == expected.at(index)) {
        ++index;
    }
    if (index == seen.size() && index == expected.size()) {
        return QString();
    }
    QString text = QStringLiteral("The calls part at number %1 (%2 made, %3 expected).\n")
                       .arg(index + 1)
                       .arg(seen.size())
                       .arg(expected.size());
    for (int line = qMax(0, index - context); line < index; ++line) {
        text += QStringLiteral("    as expected: %1\n").arg(seen.at(line));
    }
    for (int line = index; line <= index + context; ++line) {
        text += QStringLiteral("    made: %1\n    expected: %2\n").arg(LineOf(seen, line), LineOf(expected, line));
    }
    return text;
}
