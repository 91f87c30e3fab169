#include "app/Application.h"

#include "panels/common/FieldStyle.h"
#include "panels/common/LastResort.h"

#include <QAbstractButton>
#include <QFont>
#include <QPointer>
#include <QShortcutEvent>
#include <QStyle>

/// The linker leaves out pictures of a static library that nobody asks for. (The macro cannot stand in a namespace.)
static void KeepPictures() {
    Q_INIT_RESOURCE(resources);
}

namespace {

/// Presses a button at once when its mnemonic is pressed. Qt would click it 0.1 s later, whatever is shown by then, and
/// without taking the focus from a field in which a number is being typed.
bool PressedByMnemonic(QObject* receiver, QEvent* event) {
    if (event->type() != QEvent::Shortcut || static_cast<QShortcutEvent*>(event)->isAmbiguous()) {
        return false;
    }
    const QPointer<QAbstractButton> button(qobject_cast<QAbstractButton*>(receiver));
    if (button == nullptr || !button->isEnabled()) {
        return false;
    }
    if (button->focusPolicy() != Qt::NoFocus) {
        // Ends the entry elsewhere, which may disable or remove this button.
        button->setFocus(Qt::ShortcutFocusReason);
    }
    if (button != nullptr && button->isVisible()) {
        button->click();
    }
    return true;
}

} // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    KeepPictures();
    setStyle(new FieldStyle(style()->objectName()));
    constexpr int pointSize = 10;
    QFont font = QApplication::font();
    font.setPointSize(pointSize);
    setFont(font);
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return PressedByMnemonic(receiver, event) || QApplication::notify(receiver, event);
    } catch (...) {
        LastResort::ReportCurrentException();
        return false;
    }
}
