#pragma once

#include <QRegularExpression>
#include <QString>

/// While it exists, every message of Qt from a warning up goes to the FailureLog, unless it was expected.
class QtMessages {
public:
    QtMessages();
    ~QtMessages();
    QtMessages(const QtMessages&) = delete;
    QtMessages& operator=(const QtMessages&) = delete;

    /// One warning that matches will come.
    void Expect(const QString& pattern);
    /// Logs a failure for every expected warning that did not come.
    void Finish();
};
