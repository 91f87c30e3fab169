#include "tools/sweep/Failure.h"

#include <algorithm>

const std::vector<Variant>& Variants() {
    static const std::vector<Variant> all{Variant::Once,      Variant::OncePlainly, Variant::On,
                                          Variant::OnPlainly, Variant::Slow,        Variant::Code};
    return all;
}

QString WordOf(Variant variant) {
    switch (variant) {
    case Variant::Once:
        return QStringLiteral("once");
    case Variant::OncePlainly:
        return QStringLiteral("once-plainly");
    case Variant::On:
        return QStringLiteral("from-then-on");
    case Variant::OnPlainly:
        return QStringLiteral("from-then-on-plainly");
    case Variant::Slow:
        return QStringLiteral("slow");
    case Variant::Code:
        break;
    }
    return QStringLiteral("code");
}

QString ToText(const Failure& failure) {
    return QStringLiteral("%1@%2").arg(WordOf(failure.variant)).arg(failure.call);
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
    const auto variant =
        std::find_if(Variants().begin(), Variants().end(), [&word](Variant known) { return WordOf(known) == word; });
    if (!isNumber || call == 0 || variant == Variants().end()) {
        return std::nullopt;
    }
    return Failure{*variant, call};
}
