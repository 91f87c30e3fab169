#pragma once

#include <QString>

#include <condition_variable>
#include <memory>
#include <mutex>

class moduleRLKWidget;

namespace TavikLibrary {
class TavikModuleRLK;
}

/// A restart of a wireless connection module on a thread of its own, and the thread's way back to the panel
/// that started it. The panel may go before the restart is over: the thread then ends without it.
class ModuleRestart : public std::enable_shared_from_this<ModuleRestart> {
public:
    explicit ModuleRestart(moduleRLKWidget* panel);

    /// Starts the thread. Throws std::system_error when it cannot be started.
    void Start(TavikLibrary::TavikModuleRLK* module);

    /// Why the restart failed, for the panel to show.
    QString Failure();
    /// Lets the thread go on after the operator has seen the failure.
    void FailureSeen();
    /// The panel is going: the thread neither reaches it nor waits for it any more.
    void Forget();

private:
    void Run(TavikLibrary::TavikModuleRLK* module);
    void ReportFailure(const QString& text);
    void ReportEnd();

    std::mutex mutex;
    std::condition_variable answered;
    moduleRLKWidget* panel; ///< null once the panel has gone
    QString failure;
    bool failureSeen = false;
};
