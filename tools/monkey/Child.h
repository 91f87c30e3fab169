#pragma once

#include <QString>
#include <QStringList>

/// How a run in a process of its own ended.
struct Outcome {
    bool failed = false;
    QString kind;   ///< what went wrong, without numbers: the same for runs that failed in the same way
    QString output; ///< all that it printed
};

/// Runs this program once more with these arguments. A run that writes nothing into this file for two minutes hangs and
/// is ended.
Outcome RunChild(const QStringList& arguments, const QString& growingFile);

/// What a run's output and end say of it.
Outcome OutcomeOf(const QString& output, bool crashed, int exitCode);
