#include "panels/modes/RunClock.h"

#include "panels/common/HostWindow.h"

namespace {

constexpr int millisecondsPerSecond = 1000;

} // namespace

RunClock::RunClock(QObject* parent) : QObject(parent) {
    timer.setInterval(millisecondsPerSecond);
    connect(&timer, &QTimer::timeout, this, &RunClock::ShowSeconds);
}

void RunClock::Begin(HostWindow* window, const QString& text) {
    host = window;
    run = text;
    since.start();
    timer.start();
    ShowSeconds();
}

void RunClock::End() {
    if (timer.isActive() && host != nullptr) {
        host->ShowActivity(QString());
    }
    timer.stop();
}

void RunClock::ShowSeconds() {
    if (host != nullptr) {
        host->ShowActivity(QStringLiteral("%1, %2 s").arg(run).arg(since.elapsed() / millisecondsPerSecond));
    }
}
