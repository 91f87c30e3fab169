#pragma once

#include <QRegularExpression>
#include <QString>

/// While it lives, whatever Qt complains of (a warning or worse) goes to the FailureLog, unless it was
/// expected.
class QtMessages {
public:
    QtMessages();
    ~QtMessages();
    QtMessages(const QtMessages&) = delete;
    QtMessages& operator=(const QtMessages&) = delete;

    /// One warning that matches will come.
    void Expect(const QString& pattern);
    /// Complains of the expected warnings that did not come.
    void Finish();
};
