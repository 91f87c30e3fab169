#include "panels/wireless/ModuleRestart.h"

#include "library/TavikModuleRLK.h"
#include "panels/common/BackgroundCalls.h"
#include "panels/common/Text.h"
#include "panels/wireless/moduleRLKWidget.h"

#include <exception>

ModuleRestart::ModuleRestart(moduleRLKWidget* panel) : panel(panel) {}

void ModuleRestart::Start(TavikLibrary::TavikModuleRLK* module) {
    BackgroundCalls::Start([self = shared_from_this(), module] { self->Run(module); });
}

void ModuleRestart::Run(TavikLibrary::TavikModuleRLK* module) {
    try {
        module->Restart();
    } catch (const std::exception& error) {
        ReportFailure(FromLibrary(error.what()));
    } catch (...) {
        ReportFailure(QStringLiteral("An error of an unknown kind has occurred."));
    }
    ReportEnd();
}

void ModuleRestart::ReportFailure(const QString& text) {
    std::unique_lock<std::mutex> lock(mutex);
    if (panel == nullptr) {
        return;
    }
    failure = text;
    failureSeen = false;
    // Under the lock, so that the panel cannot go meanwhile. Only the GUI thread may show a box.
    QMetaObject::invokeMethod(panel, "onRestartFailed", Qt::QueuedConnection);
    answered.wait(lock, [this] { return failureSeen || panel == nullptr; });
}

void ModuleRestart::ReportEnd() {
    const std::lock_guard<std::mutex> lock(mutex);
    if (panel != nullptr) {
        emit panel->restartFinished();
    }
}

QString ModuleRestart::Failure() {
    const std::lock_guard<std::mutex> lock(mutex);
    return failure;
}

void ModuleRestart::FailureSeen() {
    const std::lock_guard<std::mutex> lock(mutex);
    failureSeen = true;
    answered.notify_all();
}

void ModuleRestart::Forget() {
    const std::lock_guard<std::mutex> lock(mutex);
    panel = nullptr;
    answered.notify_all();
}
