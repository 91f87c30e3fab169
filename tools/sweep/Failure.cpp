#include "tools/sweep/Failure.h"

#include <algorithm>

const std::vector<FaultType>& FaultTypes() {
    static const std::vector<FaultType> all{FaultType::Once,       FaultType::OnceRuntimeError,
                                            FaultType::Persistent, FaultType::PersistentRuntimeError,
                                            FaultType::Slow,       FaultType::Code};
    return all;
}

QString WordOf(FaultType faultType) {
    static const QStringList words = QString(QStringLiteral("once once-runtime-error persistent "
                                                            "persistent-runtime-error slow code"))
                                         .split(QLatin1Char(' '));
    return words.at(static_cast<int>(faultType));
}

QString ToText(const Failure& failure) {
    return QStringLiteral("%1@%2").arg(WordOf(failure.faultType)).arg(failure.call);
}

QString ToText(const std::vector<Failure>& failures) {
    QStringList texts;
    for (const Failure& failure : failures) {
        texts.append(ToText(failure));
    }
    return texts.join(QLatin1Char(' '));
}

std::optional<Failure> FailureFromText(const QString& text) {
    const QString word = text.section(QLatin1Char('@'), 0, 0);
    bool isNumber = false;
    const std::uint64_t call = text.section(QLatin1Char('@'), 1).toULongLong(&isNumber);
    const auto faultType = std::find_if(FaultTypes().begin(), FaultTypes().end(),
                                        [&word](FaultType known) { return WordOf(known) == word; });
    if (!isNumber || call == 0 || faultType == FaultTypes().end()) {
        return std::nullopt;
    }
    return Failure{*faultType, call};
}
