#include "tools/monkey/SessionOracle.h"

#include "tools/driver/DialogResponder.h"
#include "tools/driver/FailureLog.h"
#include "tools/driver/Screen.h"
#include "tools/monkey/ExpectedErrors.h"
#include "tools/oracle/Oracle.h"

#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QMessageBox>

#include <algorithm>
#include <array>

using namespace TavikSimulator;

namespace {

bool IsClosed(const QPointer<QDialog>& dialog) {
    return dialog == nullptr || !dialog->isVisible();
}

/// What stands before the library's words in a box.
const std::array<const char*, 4> prefixes = {"", "Error: ", "Error reading PNX:\n", "Error writing to PNX:\n"};

bool Tells(const QString& text, const JournalEntry& cause) {
    // A description of an error, which a call has returned as a code, is a result: in quotation marks.
    const QString words = QString::fromStdString(cause.failed ? cause.error : cause.result);
    return std::any_of(prefixes.begin(), prefixes.end(), [&](const char* prefix) {
        const QString whole = QLatin1String(prefix);
        return cause.failed ? text == whole + words
                            : QLatin1Char('"') + text.mid(whole.size()) + QLatin1Char('"') == words;
    });
}

} // namespace

QStringList SessionOracle::Look(const Standing& standing) {
    failures.clear();
    doubts.clear();
    TakeCalls();
    CheckNewBox(standing);
    if (CallsOnRemovedModules() > 0) {
        Fail(QStringLiteral("Calls on removed modules: expected none, got %1.").arg(CallsOnRemovedModules()));
    }
    failures += FailureLog::Take();
    auto* window = qobject_cast<HostWindow*>(Screen::Front());
    if (window != nullptr && !standing.closing) {
        doubts = Oracle::PageErrors(*window);
        if (standing.inLoop) {
            doubts += Oracle::LoopErrors(*window);
        } else {
            causes.clear();
            // Whether a collection runs is for the library to report.
            doubts += standing.lying ? QStringList() : Oracle::IdleErrors(*window);
        }
    }
    return failures;
}

void SessionOracle::TakeCalls() {
    for (const JournalEntry& entry : Journal()) {
        if (onCall) {
            onCall(entry);
        }
        if (entry.failed || entry.operation == "GetErrorDescription") {
            causes.push_back(entry);
        }
    }
    ClearJournal();
}

// Boxes

void SessionOracle::CheckNewBox(const Standing& standing) {
    known.erase(std::remove_if(known.begin(), known.end(), IsClosed), known.end());
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isVisible() ||
        std::find(known.begin(), known.end(), QPointer<QDialog>(dialog)) != known.end()) {
        return;
    }
    known.emplace_back(dialog);
    if (standing.closing) {
        Fail(QStringLiteral("Closed window: expected no dialog, got a ") + ToText(Describe(*dialog)));
    }
    CheckBox(*dialog, standing);
}

void SessionOracle::CheckBox(const QDialog& dialog, const Standing& standing) {
    const SeenBox box = Describe(dialog);
    const auto* message = qobject_cast<const QMessageBox*>(&dialog);
    // The file box's own questions are Qt's.
    if (message == nullptr || qobject_cast<QFileDialog*>(dialog.parentWidget()) != nullptr) {
        if (box.title.isEmpty()) {
            Fail(QStringLiteral("Dialog: expected a title, got a ") + ToText(box));
        }
        return;
    }
    failures += Oracle::BoxErrors(box);
    if (box.kind == BoxKind::Critical) {
        CheckErrorText(box.title, box.text, standing);
    } else if (!IsKnownTitle(box.title)) {
        Fail(QStringLiteral("Message box: expected a known title, got a ") + ToText(box));
    }
}

void SessionOracle::CheckErrorText(const QString& title, const QString& text, const Standing& standing) {
    if (IsOwnWord(title, text)) {
        return;
    }
    const auto cause =
        std::find_if(causes.begin(), causes.end(), [&](const JournalEntry& entry) { return Tells(text, entry); });
    if (cause == causes.end()) {
        Fail(QStringLiteral("Error box \"%1\": expected the text of a failed call, got \"%2\".").arg(title, text));
        return;
    }
    if (!standing.faulty && !IsExpectedError(*cause, bench)) {
        Fail(QStringLiteral("%1, bench without faults: expected no error, got \"%2\": \"%3\".")
                 .arg(QString::fromStdString(CallText(*cause)), title, text));
    }
    causes.erase(cause);
}
