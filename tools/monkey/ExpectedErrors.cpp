#include "tools/monkey/ExpectedErrors.h"

#include <QRegularExpression>
#include <QStringList>

#include <set>

namespace {

/// Operations whose arguments the operator chooses, or that a setting made by him forbids; so are all settings.
const std::set<std::string>& Refused() {
    static const std::set<std::string> operations = {// names, files and lists
                                                     "AddModule", "DeleteModule", "ClearModules", "ClearTCons",
                                                     "ApplyRemap", "FindHotswapped", "BeginNotifying", "Load", "Save",
                                                     // modes and masterings
                                                     "Start", "Prepare", "StartAllDynamic", "ApplyMastering",
                                                     // a sample while the module reads by itself, or while another
                                                     // module triggers the network's samples
                                                     "SampleReading", "Sample",
                                                     // a laser whose beam is off
                                                     "ReadInCounts", "ReadInUnits"};
    return operations;
}

} // namespace

bool IsExpectedError(const TavikSimulator::JournalEntry& call, const MonkeyBench& bench) {
    const QString error = QString::fromStdString(call.error);
    for (const QString& identity : bench.replaced) {
        const bool silent = error.startsWith(QStringLiteral("Module %1 on").arg(identity));
        if (silent && error.endsWith(QLatin1String("does not answer."))) {
            return true;
        }
    }
    // A button of the tool switches it off, and so does the time that it lies about.
    if (error.startsWith(QLatin1String("Hand tool ")) &&
        error.endsWith(QLatin1String("does not answer: it has switched itself off."))) {
        return true;
    }
    return call.operation.rfind("set", 0) == 0 || Refused().count(call.operation) > 0;
}

bool IsOwnWord(const QString& title, const QString& text) {
    static const QStringList words = {
        QStringLiteral("Failed to connect to all network(s)."),
        QStringLiteral("Failed to connect to network"),
        QStringLiteral("A speed to set has not been selected."),
        QStringLiteral("The current module did not form part of the dynamic collection"),
        QStringLiteral("Device connection error\nFailed to enter config mode."),
        QStringLiteral("Unsupported KRV type"),
        QStringLiteral("Unexpected PNX units"),
        QStringLiteral("Unexpected PNX units in unit conversion."),
        QStringLiteral("The settings of this hand tool are those of another kind of tool."),
    };
    static const QRegularExpression patterns(
        QStringLiteral("^(Interval must be 0 for full speed or a minimum of \\d+|"
                       "Distance between Master A and Master B cannot be\ngreater than [\\d.]+ (mm|inches|mils))$"));
    return !title.isEmpty() && (words.contains(text) || patterns.match(text).hasMatch());
}

bool IsKnownTitle(const QString& title) {
    static const QStringList titles = {QStringLiteral("Reading Timer"),       QStringLiteral("Readburst Timer"),
                                       QStringLiteral("Tavik Error Decoder"), QStringLiteral("KRV Config"),
                                       QStringLiteral("HVX Module"),          QStringLiteral("Cancel Mastering"),
                                       QStringLiteral("Save Tavik XML")};
    return titles.contains(title);
}
