#include "tools/driver/QtMessages.h"

#include "tools/driver/FailureLog.h"

#include <QVector>

#include <mutex>

namespace {

std::mutex mutex;
QtMessageHandler previous = nullptr;

QVector<QRegularExpression>& Expected() {
    static QVector<QRegularExpression> patterns;
    return patterns;
}

bool TakeExpected(const QString& text) {
    for (int index = 0; index < Expected().size(); ++index) {
        if (Expected().at(index).match(text).hasMatch()) {
            Expected().remove(index);
            return true;
        }
    }
    return false;
}

/// The offscreen platform reports what it cannot do; no test depends on it.
bool IsOfThePlatform(const QString& text) {
    return text.startsWith(QLatin1String("This plugin does not support "));
}

void Handle(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (IsOfThePlatform(text)) {
        return;
    }
    if (type == QtWarningMsg || type == QtCriticalMsg || type == QtFatalMsg) {
        const std::lock_guard lock(mutex);
        if (TakeExpected(text)) {
            return;
        }
        FailureLog::Add(QStringLiteral("Qt message: expected none, got: ") + text);
    }
    if (previous != nullptr) {
        previous(type, context, text);
    }
}

} // namespace

QtMessages::QtMessages() {
    previous = qInstallMessageHandler(Handle);
}

QtMessages::~QtMessages() {
    qInstallMessageHandler(previous);
}

void QtMessages::Expect(const QString& pattern) {
    Expected().append(QRegularExpression(pattern));
}

void QtMessages::Finish() {
    for (const QRegularExpression& missing : qAsConst(Expected())) {
        FailureLog::Add(QStringLiteral("Qt message: expected %1, got none.").arg(missing.pattern()));
    }
    Expected().clear();
}
