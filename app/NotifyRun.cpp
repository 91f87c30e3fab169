#include "app/NotifyRun.h"

#include "app/Quietly.h"
#include "library/TavikNetwork.h"
#include "panels/common/HostWindow.h"
#include "panels/common/Wait.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QScopeGuard>

void RunNotify(HostWindow& window, TavikLibrary::TavikNetwork* network) {
    constexpr unsigned int pauseMicroseconds = 50;
    constexpr int activityMilliseconds = 200;
    auto abandon = qScopeGuard([&] { Quietly([&] { network->CancelNotifying(); }); });

    network->BeginNotifying();
    const int modulesBefore = network->ModuleCount();
    QElapsedTimer sinceActivity;
    while (!window.IsClosing() && network->Notifying()) {
        if (!sinceActivity.isValid() || sinceActivity.hasExpired(activityMilliseconds)) {
            sinceActivity.start();
            window.ShowActivity(
                QStringLiteral("Notifying, modules found: %1").arg(network->ModuleCount() - modulesBefore));
        }
        QCoreApplication::processEvents();
        SleepMicroseconds(pauseMicroseconds);
    }
    abandon.dismiss();
}
