#include "tools/driver/DialogResponder.h"

#include "tools/driver/FailureLog.h"
#include "tools/driver/Screen.h"
#include "tools/driver/WidgetDriver.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMap>
#include <QMessageBox>
#include <QSpinBox>
#include <QTest>

namespace {

constexpr int pollIntervalMs = 10;

QString CaptionsOf(const QDialog& dialog) {
    QStringList captions;
    const QList<QDialogButtonBox*> boxes = dialog.findChildren<QDialogButtonBox*>();
    for (const QDialogButtonBox* box : boxes) {
        const QList<QAbstractButton*> buttons = box->buttons();
        for (const QAbstractButton* button : buttons) {
            captions.append(button->text().remove(QLatin1Char('&')));
        }
    }
    captions.sort();
    return captions.join(QLatin1Char(','));
}

BoxKind KindOf(const QMessageBox& box) {
    static const QMap<QMessageBox::Icon, BoxKind> kinds{{QMessageBox::Critical, BoxKind::Critical},
                                                        {QMessageBox::Warning, BoxKind::Warning},
                                                        {QMessageBox::Question, BoxKind::Question}};
    return kinds.value(box.icon(), BoxKind::Information);
}

QString KindText(BoxKind kind) {
    static const QMap<BoxKind, const char*> texts{
        {BoxKind::Critical, "critical box"},
        {BoxKind::Information, "information box"},
        {BoxKind::Warning, "warning box"},
        {BoxKind::Question, "question"},
        {BoxKind::TextInput, "text input box"},
        {BoxKind::NumberInput, "number input box"},
        {BoxKind::OpenFile, "open-file box"},
        {BoxKind::SaveFile, "save-file box"},
        {BoxKind::Dialog, "dialog"},
    };
    return QLatin1String(texts.value(kind));
}

bool IsMessage(BoxKind kind) {
    return kind == BoxKind::Critical || kind == BoxKind::Information || kind == BoxKind::Warning;
}

bool Same(const SeenBox& expected, const SeenBox& seen) {
    return expected.kind == seen.kind && expected.parent == seen.parent && expected.title == seen.title &&
           expected.text == seen.text && (expected.buttons.isNull() || expected.buttons == seen.buttons) &&
           !seen.markup;
}

QWidget* EntryOf(QDialog* dialog) {
    if (qobject_cast<QInputDialog*>(dialog) == nullptr && qobject_cast<QFileDialog*>(dialog) == nullptr) {
        return nullptr;
    }
    return dialog->findChild<QLineEdit*>();
}

void Type(QDialog* dialog, const QString& text) {
    QWidget* entry = EntryOf(dialog);
    if (entry == nullptr || text.isEmpty()) {
        return;
    }
    ProcessAllEvents();
    QTest::keyClick(entry, Qt::Key_A, Qt::ControlModifier);
    TypeInto(entry, text);
    // The list of completions is a popup, which would receive the next click.
    if (QWidget* completions = QApplication::activePopupWidget()) {
        completions->close();
    }
}

/// Presses the button that accepts or rejects the box.
void PressButton(QDialog* dialog, bool accept) {
    QAbstractButton* button = Screen::ButtonOf(*dialog, accept);
    if (button == nullptr || !WidgetDriver(*dialog).Click(button)) {
        dialog->done(accept ? QDialog::Accepted : QDialog::Rejected);
    }
}

/// Now, because the parent may be destroyed before the box is compared.
void NameParent(SeenBox& box) {
    if (box.parent != nullptr) {
        box.parentClass = QLatin1String(box.parent->metaObject()->className());
        box.parentName = box.parent->objectName();
    }
}

void CloseLeftOpen(QDialog& dialog) {
    FailureLog::Add(QStringLiteral("Dialog \"%1\": expected closed, got left open.").arg(dialog.windowTitle()));
    dialog.done(QDialog::Rejected);
}

} // namespace

DialogResponder::DialogResponder() {
    connect(&timer, &QTimer::timeout, this, &DialogResponder::Look);
    timer.start(pollIntervalMs);
}

void DialogResponder::Expect(BoxKind kind, QWidget* parent, const QString& title, const QString& text,
                             const QString& buttons, const BoxReply& reply) {
    SeenBox box{kind, parent, title, text, buttons, false, QString(), QString()};
    NameParent(box);
    expected.append({box, reply});
}

void DialogResponder::ExpectError(QWidget* parent, const QString& title, const QString& text, const BoxReply& reply) {
    Expect(BoxKind::Critical, parent, title, text, QStringLiteral("OK"), reply);
}

void DialogResponder::ExpectInformation(QWidget* parent, const QString& title, const QString& text,
                                        const BoxReply& reply) {
    Expect(BoxKind::Information, parent, title, text, QStringLiteral("OK"), reply);
}

void DialogResponder::ExpectQuestion(QWidget* parent, const QString& title, const QString& text,
                                     const BoxReply& reply) {
    Expect(BoxKind::Question, parent, title, text, QStringLiteral("No,Yes"), reply);
}

void DialogResponder::ExpectTextInput(QWidget* parent, const QString& title, const QString& label,
                                      const BoxReply& reply) {
    Expect(BoxKind::TextInput, parent, title, label, QStringLiteral("Cancel,OK"), reply);
}

void DialogResponder::ExpectNumberInput(QWidget* parent, const QString& title, const QString& label,
                                        const BoxReply& reply) {
    Expect(BoxKind::NumberInput, parent, title, label, QStringLiteral("Cancel,OK"), reply);
}

void DialogResponder::ExpectFile(BoxKind kind, QWidget* parent, const QString& title, const QString& filter,
                                 const BoxReply& reply) {
    Expect(kind, parent, title, filter, QString(), reply);
}

void DialogResponder::ExpectDialog(QWidget* parent, const QString& title, const BoxReply& reply) {
    Expect(BoxKind::Dialog, parent, title, QString(), QString(), reply);
}

void DialogResponder::ExpectUse(QWidget* parent, const QString& title,
                                const std::function<void(QDialog& dialog)>& use) {
    constexpr int longestUseMs = 60000;
    BoxReply reply;
    reply.leave = true;
    reply.meanwhile = [use](QDialog& dialog) {
        // Goes with the dialog, which is mostly closed long before.
        auto* closing = new QTimer(&dialog);
        closing->setSingleShot(true);
        QObject::connect(closing, &QTimer::timeout, &dialog, [&dialog] { CloseLeftOpen(dialog); });
        closing->start(longestUseMs);
        QTimer::singleShot(0, &dialog, [use, &dialog] {
            const QPointer<QDialog> open(&dialog);
            use(dialog);
            if (open != nullptr && open->isVisible()) {
                CloseLeftOpen(*open);
            }
        });
    };
    ExpectDialog(parent, title, reply);
}

QVector<SeenBox> DialogResponder::Take() {
    QVector<SeenBox> boxes;
    boxes.swap(seen);
    return boxes;
}

void DialogResponder::Finish() {
    for (const Expected& missing : qAsConst(expected)) {
        FailureLog::Add(QStringLiteral("Expected a %1, got none.").arg(ToText(missing.box)));
    }
    expected.clear();
}

void DialogResponder::Look() {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isVisible()) {
        return;
    }
    answered.removeAll(QPointer<QDialog>());
    // A dialog without a close button closes by itself.
    if (answered.contains(dialog) || !Screen::CanBeClosed(*dialog)) {
        return;
    }
    answered.append(dialog);
    // Queued: while the slot of the timer runs, the timer does not find the boxes that open meanwhile.
    const QPointer<QDialog> box = dialog;
    const auto answer = [this, box] {
        if (box != nullptr && box->isVisible()) {
            Answer(box);
        }
    };
    QMetaObject::invokeMethod(this, answer, Qt::QueuedConnection);
}

void DialogResponder::Answer(QDialog* dialog) {
    const QPointer<QDialog> box = dialog;
    const SeenBox description = Describe(*dialog);
    seen.append(description);
    BoxReply reply;
    if (!expected.isEmpty() && Same(expected.first().box, description)) {
        reply = expected.takeFirst().reply;
    } else if (!tolerating || !IsMessage(description.kind) || description.markup) {
        const QString instead = expected.isEmpty() ? QStringLiteral("no box") : ToText(expected.first().box);
        FailureLog::Add(QStringLiteral("Expected %1, got a %2.").arg(instead, ToText(description)));
        reply.accept = IsMessage(description.kind);
    }
    if (reply.meanwhile) {
        reply.meanwhile(*dialog);
    }
    if (box != nullptr) {
        Type(box, reply.typed);
    }
    if (box != nullptr && box->isVisible() && !reply.leave) {
        PressButton(box, reply.accept);
    }
}

SeenBox Describe(const QDialog& dialog) {
    SeenBox seen{
        BoxKind::Dialog, dialog.parentWidget(), dialog.windowTitle(), QString(), CaptionsOf(dialog), false, QString(),
        QString()};
    NameParent(seen);
    if (const auto* message = qobject_cast<const QMessageBox*>(&dialog)) {
        seen.kind = KindOf(*message);
        seen.text = message->text();
        seen.markup = message->textFormat() != Qt::PlainText;
    } else if (const auto* input = qobject_cast<const QInputDialog*>(&dialog)) {
        seen.kind = input->inputMode() == QInputDialog::TextInput ? BoxKind::TextInput : BoxKind::NumberInput;
        seen.text = input->labelText();
    } else if (const auto* files = qobject_cast<const QFileDialog*>(&dialog)) {
        seen.kind = files->acceptMode() == QFileDialog::AcceptOpen ? BoxKind::OpenFile : BoxKind::SaveFile;
        seen.text = files->nameFilters().join(QLatin1Char(';'));
    }
    return seen;
}

QString ToText(const SeenBox& box) {
    const QString parent = box.parent == nullptr ? QStringLiteral("nothing") : box.parentName;
    return QStringLiteral("%1 \"%2\" over %3 with the text \"%4\" and the buttons %5%6")
        .arg(KindText(box.kind), box.title, parent, box.text,
             box.buttons.isNull() ? QStringLiteral("any") : box.buttons,
             box.markup ? QStringLiteral(" (as markup)") : QString());
}
