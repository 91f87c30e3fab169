#include "app/Application.h"

#include "panels/common/LastResort.h"

#include <QFont>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimerEvent>

/// The linker leaves out pictures of a static library that nobody asks for. (The macro cannot stand in a namespace.)
static void KeepPictures() {
    Q_INIT_RESOURCE(resources);
}

namespace {

/// A button's key clicks the button 0.1 s later, whatever has happened meanwhile. By then it may be a button that no
/// mouse could press: disabled, on a page that has gone, or under a dialog that needs what the button would take away.
bool ComesTooLate(const QObject* receiver, const QEvent* event) {
    const auto* button = event->type() == QEvent::Timer ? qobject_cast<const QPushButton*>(receiver) : nullptr;
    if (button == nullptr) {
        return false;
    }
    const QWidget* modal = QApplication::activeModalWidget();
    return !button->isEnabled() || !button->isVisible() || (modal != nullptr && button->window() != modal);
}

} // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    KeepPictures();
    constexpr int pointSize = 10;
    QFont font = QApplication::font();
    font.setPointSize(pointSize);
    setFont(font);
}

bool Application::notify(QObject* receiver, QEvent* event) {
    // The button is released, but tells nobody.
    const QSignalBlocker silence(ComesTooLate(receiver, event) ? receiver : nullptr);
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        LastResort::ReportCurrentException();
        return false;
    }
}
