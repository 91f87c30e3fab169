#include "panels/common/Activity.h"

namespace {

constexpr int msPerSecond = 1000;

} // namespace

Activity::Activity(HostWindow* hostWindow, const QString& text) : host(hostWindow) {
    sinceStart.start();
    Show(text);
}

Activity::~Activity() {
    if (host == nullptr) {
        return;
    }
    host->SetActivity(this, QString());
    if (!outcome.isEmpty() && !host->IsClosing()) {
        const QString seconds = QString::number(static_cast<double>(Milliseconds()) / msPerSecond, 'f', 1);
        host->ShowOutcome(outcome.contains(QLatin1String("%1")) ? outcome.arg(seconds) : outcome);
    }
}

void Activity::Show(const QString& text) {
    if (host != nullptr) {
        host->SetActivity(this, text);
    }
}

void Activity::ShowSeconds(const QString& text) {
    const auto show = [this, text] { Show(QStringLiteral("%1, %2 s").arg(text).arg(Milliseconds() / msPerSecond)); };
    clock.disconnect();
    QObject::connect(&clock, &QTimer::timeout, &clock, show);
    clock.start(msPerSecond);
    show();
}
