#include "panels/modes/DynamicActivity.h"

#include "library/TavikDynamic.h"
#include "panels/common/HostWindow.h"

#include <stdexcept>

namespace {

constexpr int milliseconds = 500;

QString Progress(TavikLibrary::TavikDynamic& dynamic) {
    const int wanted = dynamic.CollectionSize();
    TavikLibrary::TavikDynamicData* data = dynamic.DynamicData();
    const QString syncs = QString::number(data->ReadingCount()) +
                          (wanted > 0 ? QStringLiteral(" of %1").arg(wanted) : QString()) + QStringLiteral(" syncs");
    return QStringLiteral("modules: %1, %2").arg(data->ModuleCount()).arg(syncs);
}

} // namespace

DynamicActivity::DynamicActivity() {
    timer.setInterval(milliseconds);
    connect(&timer, &QTimer::timeout, this, &DynamicActivity::Tell);
}

void DynamicActivity::Begin(HostWindow& host, TavikLibrary::TavikDynamic& collection) {
    window = &host;
    dynamic = &collection;
    since.start();
    timer.start();
    window->ShowActivity(QStringLiteral("Dynamic collection running"));
}

void DynamicActivity::End() {
    timer.stop();
    if (window != nullptr) {
        window->ShowActivity(QString());
    }
    window = nullptr;
    dynamic = nullptr;
}

void DynamicActivity::Tell() {
    if (window->IsClosing()) {
        timer.stop();
        return;
    }
    constexpr int millisecondsPerSecond = 1000;
    try {
        window->ShowActivity(QStringLiteral("Dynamic collection running, %1, %2 s")
                                 .arg(Progress(*dynamic))
                                 .arg(since.elapsed() / millisecondsPerSecond));
    } catch (const std::runtime_error&) {
        // What is only told in passing is no reason for a box; the next time may be better.
        window->ShowActivity(QStringLiteral("Dynamic collection running"));
    }
}
