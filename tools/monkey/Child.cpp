#include "tools/monkey/Child.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRegularExpression>

namespace {

/// The first part of a text that matches, without numbers, addresses and what stands in quotation marks.
QString FirstOf(const QString& text, const char* pattern) {
    const QRegularExpression wanted(QString::fromLatin1(pattern), QRegularExpression::MultilineOption);
    QString found = wanted.match(text).captured(0);
    return found.replace(QRegularExpression(QStringLiteral("\"[^\"]*\"|0x[0-9a-f]+|\\d+")), QStringLiteral("N"));
}

} // namespace

Outcome OutcomeOf(const QString& output, bool crashed, int exitCode) {
    Outcome outcome;
    outcome.output = output;
    outcome.failed = crashed || exitCode != 0;
    if (!outcome.failed) {
        return outcome;
    }
    for (const char* pattern :
         {"^failure: .*$", "ERROR: \\w+Sanitizer: [\\w-]+", "runtime error: .*$", "WARNING: ThreadSanitizer: .*$"}) {
        outcome.kind = FirstOf(output, pattern);
        if (!outcome.kind.isEmpty()) {
            return outcome;
        }
    }
    outcome.kind = crashed ? QStringLiteral("crash") : QStringLiteral("exit code %1").arg(exitCode);
    return outcome;
}

Outcome RunChild(const QStringList& arguments, const QString& growingFile) {
    constexpr int pollIntervalMs = 1000;
    constexpr int patientLooks = 120;
    QProcess child;
    child.setProcessChannelMode(QProcess::MergedChannels);
    // What a run that crashes leaves lying about goes with the folder of the file.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("TMPDIR"), QFileInfo(growingFile).absolutePath());
    child.setProcessEnvironment(environment);
    child.start(QCoreApplication::applicationFilePath(), arguments);
    qint64 size = -1;
    for (int idle = 0; !child.waitForFinished(pollIntervalMs) && child.state() != QProcess::NotRunning; ++idle) {
        const qint64 now = QFileInfo(growingFile).size();
        if (now != size) {
            size = now;
            idle = 0;
        }
        if (idle > patientLooks) {
            child.kill();
            child.waitForFinished();
            return {true, QStringLiteral("hangs"), QString::fromUtf8(child.readAll())};
        }
    }
    return OutcomeOf(QString::fromUtf8(child.readAll()), child.exitStatus() == QProcess::CrashExit, child.exitCode());
}
