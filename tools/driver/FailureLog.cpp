#include "tools/driver/FailureLog.h"

namespace {

QStringList& Texts() {
    static QStringList texts;
    return texts;
}

} // namespace

void FailureLog::Add(const QString& text) {
    Texts().append(text);
}

QStringList FailureLog::Take() {
    QStringList texts;
    texts.swap(Texts());
    return texts;
}
