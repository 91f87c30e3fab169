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

/// What the platform without a display cannot do matters to nobody.
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
        FailureLog::Add(QStringLiteral("Qt complains: ") + text);
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
        FailureLog::Add(QStringLiteral("Qt did not complain of: ") + missing.pattern());
    }
    Expected().clear();
}
