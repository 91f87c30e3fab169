#include "tools/hand/Complaints.h"

namespace {

QStringList& Texts() {
    static QStringList texts;
    return texts;
}

} // namespace

void Complaints::Add(const QString& text) {
    Texts().append(text);
}

QStringList Complaints::Take() {
    QStringList texts;
    texts.swap(Texts());
    return texts;
}
