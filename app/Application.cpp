#include "app/Application.h"

#include "panels/common/LastResort.h"

#include <QFont>

/// The linker leaves out pictures of a static library that nobody asks for. (The macro cannot stand in a namespace.)
static void KeepPictures() {
    Q_INIT_RESOURCE(resources);
}

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    KeepPictures();
    constexpr int pointSize = 10;
    QFont font = QApplication::font();
    font.setPointSize(pointSize);
    setFont(font);
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        LastResort::ReportCurrentException();
        return false;
    }
}
