#include "app/NotifyRun.h"

#include "library/TavikNetwork.h"
#include "panels/common/IgnoreErrors.h"
#include "panels/common/Run.h"
#include "panels/common/Wait.h"

#include <QCoreApplication>
#include <QScopeGuard>

void RunNotify(Run& run, TavikLibrary::TavikNetwork* network) {
    constexpr unsigned int pauseMicroseconds = 50;
    auto abandon = qScopeGuard([&] { IgnoreErrors([&] { network->CancelNotifying(); }); });
    network->BeginNotifying();
    run.activity.ShowSeconds(QStringLiteral("Notifying"));
    while (run.MayGoOn() && network->Notifying()) {
        QCoreApplication::processEvents();
        SleepMicroseconds(pauseMicroseconds);
    }
    abandon.dismiss();
}
