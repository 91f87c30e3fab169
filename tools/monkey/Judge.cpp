#include "tools/monkey/Judge.h"

#include "tools/driver/DialogResponder.h"
#include "tools/driver/FailureLog.h"
#include "tools/monkey/Refusals.h"
#include "tools/monkey/Screen.h"

#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QMainWindow>
#include <QMessageBox>
#include <QStatusBar>

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

/// Controls that are disabled while something runs.
const std::array<const char*, 16> mainControls = {
    "btnConnectAll", "btnDisconnectAll", "tableNetworks", "listModules",  "btnMoveUp",       "btnMoveDown",
    "btnHotswap",    "btnPing",          "btnNotify",     "btnAddModule", "btnDeleteModule", "btnClearModules",
    "btnClearTcons", "btnLoadXML",       "btnSaveXML",    "btnSetSpeed"};

bool IsEnabledItself(const QWidget& window, const char* name) {
    const auto* control = window.findChild<QWidget*>(QLatin1String(name));
    return control != nullptr && control->isEnabledTo(control->parentWidget());
}

/// What ends with the loop that it belongs to.
bool IsLoop(const QString& running) {
    return running == QLatin1String("notify run") || running == QLatin1String("continuous reading") ||
           running == QLatin1String("search for a reference mark");
}

} // namespace

QStringList Judge::Look(const Standing& standing) {
    failures.clear();
    doubts.clear();
    TakeCalls();
    LookForBoxes(standing);
    if (CallsOnRemovedModules() > 0) {
        Complain(QStringLiteral("A module was called that had been removed from the list."));
    }
    failures += FailureLog::Take();
    const QWidget* front = Screen::Front();
    const bool alone = front != nullptr && qobject_cast<const QMainWindow*>(front) != nullptr;
    if (alone && !standing.closing) {
        standing.inLoop ? JudgeLoop(*front) : JudgeIdle(*front, standing);
    }
    return failures;
}

void Judge::TakeCalls() {
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

void Judge::LookForBoxes(const Standing& standing) {
    known.erase(std::remove_if(known.begin(), known.end(), IsClosed), known.end());
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isVisible() ||
        std::find(known.begin(), known.end(), QPointer<QDialog>(dialog)) != known.end()) {
        return;
    }
    known.emplace_back(dialog);
    if (standing.closing) {
        Complain(QStringLiteral("After the window had been closed there opened a ") + ToText(Describe(*dialog)));
    }
    JudgeBox(*dialog, standing);
}

void Judge::JudgeBox(const QDialog& dialog, const Standing& standing) {
    const SeenBox box = Describe(dialog);
    const auto* message = qobject_cast<const QMessageBox*>(&dialog);
    if (box.title.isEmpty()) {
        Complain(QStringLiteral("A box without a title: ") + ToText(box));
    }
    if (message == nullptr) {
        return;
    }
    if (qobject_cast<QFileDialog*>(dialog.parentWidget()) != nullptr) {
        return; // the file box's own questions are Qt's affair
    }
    if (box.text.isEmpty() || box.markup) {
        Complain(QStringLiteral("A box whose text is empty or may be taken for markup: ") + ToText(box));
    }
    const bool question = box.kind == BoxKind::Question;
    if (box.buttons != (question ? QLatin1String("No,Yes") : QLatin1String("OK"))) {
        Complain(QStringLiteral("A box with other buttons than usual: ") + ToText(box));
    }
    if (box.kind == BoxKind::Critical) {
        JudgeErrorText(box.title, box.text, standing);
    } else if (!IsKnownTitle(box.title)) {
        Complain(QStringLiteral("An unknown box: ") + ToText(box));
    }
}

void Judge::JudgeErrorText(const QString& title, const QString& text, const Standing& standing) {
    if (IsOwnWord(title, text)) {
        return;
    }
    const auto cause =
        std::find_if(causes.begin(), causes.end(), [&](const JournalEntry& entry) { return Tells(text, entry); });
    if (cause == causes.end()) {
        Complain(QStringLiteral("An error box that no failed call accounts for: \"%1\" with the text \"%2\"")
                     .arg(title, text));
        return;
    }
    if (!standing.faulty && !MayBeRefused(*cause, bench)) {
        Complain(QStringLiteral("Nothing was wrong with the bench, yet %1 was refused: \"%2\" with the text \"%3\"")
                     .arg(QString::fromStdString(CallText(*cause)), title, text));
    }
    causes.erase(cause);
}

// Controls

void Judge::JudgeIdle(const QWidget& window, const Standing& standing) {
    causes.clear();
    if (QApplication::overrideCursor() != nullptr) {
        Doubt(QStringLiteral("The wait cursor is left."));
    }
    const QStringList running = Screen::Running(window);
    for (const QString& name : running) {
        if (IsLoop(name)) {
            Doubt(QStringLiteral("A %1 can be stopped, though there is none.").arg(name));
        }
    }
    // Whether a collection runs is for the library to say.
    if (!standing.lying) {
        JudgeControls(window, running, standing.faulty);
    }
}

void Judge::JudgeControls(const QWidget& window, const QStringList& running, bool faulty) {
    const QString stops = running.isEmpty() ? QStringLiteral("nothing") : running.join(QStringLiteral(", "));
    const QString status = static_cast<const QMainWindow&>(window).statusBar()->currentMessage();
    const bool busy = !status.isEmpty();
    // A page whose filling failed may offer a stop that stops nothing.
    if (running.isEmpty() ? busy : (!busy && !faulty)) {
        Doubt(QStringLiteral("The status bar says \"%1\", and what can be stopped is: %2").arg(status, stops));
    }
    for (const char* name : mainControls) {
        if (IsEnabledItself(window, name) == busy) {
            Doubt(QStringLiteral("%1 is %2, the status bar says \"%3\", and what can be stopped is: %4")
                      .arg(QLatin1String(name), busy ? QStringLiteral("enabled") : QStringLiteral("disabled"), status,
                           stops));
            return;
        }
    }
}

void Judge::JudgeLoop(const QWidget& window) {
    if (Screen::Running(window).isEmpty()) {
        Doubt(QStringLiteral("A loop runs that cannot be stopped."));
    }
    for (const char* name : mainControls) {
        if (IsEnabledItself(window, name)) {
            Doubt(QStringLiteral("%1 is enabled while a loop runs.").arg(QLatin1String(name)));
            return;
        }
    }
}
