#include "app/Program.h"

#include "app/Application.h"
#include "app/MainWindow.h"
#include "panels/common/BackgroundCalls.h"
#include "panels/common/MessageBoxes.h"

#include <QScreen>

#include <chrono>
#include <cstdlib>
#include <memory>

namespace {

/// Null, after a box that says why, when the gauge library cannot be started.
std::unique_ptr<MainWindow> OpenMainWindow() {
    std::unique_ptr<MainWindow> window;
    ErrorBox(nullptr, QStringLiteral("Tavik Library Test")).Try([&] { window = std::make_unique<MainWindow>(); });
    return window;
}

/// A call of the library may still run on a thread of its own, and may never come back. Taking the library
/// down under it could crash, so the program then ends as it is.
void LeaveIfTheLibraryIsBusy(int exitCode) {
    if (!BackgroundCalls::WaitForEnd(std::chrono::seconds(5))) {
        std::_Exit(exitCode);
    }
}

} // namespace

QPoint CentredOn(const QSize& desktop, const QSize& window) {
    return QPoint(qMax(0, desktop.width() / 2 - window.width() / 2),
                  qMax(0, desktop.height() / 2 - window.height() / 2));
}

int RunProgram(int argc, char* argv[]) {
    // Nothing here is drawn with OpenGL; without it the program starts sooner and needs half the memory.
    qputenv("QT_XCB_GL_INTEGRATION", "none");

    const Application application(argc, argv);
    const std::unique_ptr<MainWindow> window = OpenMainWindow();
    if (window == nullptr) {
        return 1;
    }
    window->move(CentredOn(QApplication::primaryScreen()->size(), window->size()));
    window->show();
    const int exitCode = Application::exec();
    LeaveIfTheLibraryIsBusy(exitCode);
    return exitCode;
}
