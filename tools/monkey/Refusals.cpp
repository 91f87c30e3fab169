#include "tools/monkey/Refusals.h"

#include <QRegularExpression>
#include <QStringList>

#include <set>

bool MayBeRefused(const std::string& operation) {
    static const std::set<std::string> operations = {"AddModule"};
    return operations.count(operation) > 0;
}

bool IsOwnWord(const QString& title, const QString& text) {
    static const QStringList words = {
        QStringLiteral("Failed to connect to all network(s)."),
        QStringLiteral("Failed to connect to network"),
        QStringLiteral("A speed to set has not been selected."),
        QStringLiteral("The current module did not form part of the dynamic collection"),
        QStringLiteral("Device connection error\nFailed to enter config mode."),
        QStringLiteral("Unsupported KRV type"),
    };
    static const QRegularExpression patterns(QStringLiteral(
        "^(Interval must be 0 for full speed or a minimum of \\d+|"
        "Distance between Master A and Master B cannot be\ngreater than [\\d.]+ (mm|inches|mils))$"));
    return !title.isEmpty() && (words.contains(text) || patterns.match(text).hasMatch());
}

bool IsKnownTitle(const QString& title) {
    static const QStringList titles = {
        QStringLiteral("Reading Timer"), QStringLiteral("Readburst Timer"), QStringLiteral("Tavik Error Decoder"),
        QStringLiteral("KRV Config"),    QStringLiteral("HVX Module"),      QStringLiteral("Cancel Mastering")};
    return titles.contains(title);
}
