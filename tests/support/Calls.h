#pragma once

#include "simulator/control/BenchControl.h"

#include <QStringList>

#include <vector>

/// The calls of the library since a mark, as texts such as "network Mixed.setNetSpeed(High)".
class Calls {
public:
    /// Forgets the calls made so far.
    static void Mark();
    static std::vector<TavikSimulator::JournalEntry> Entries();
    /// The calls since the mark, and a new mark.
    static QStringList Take();
    /// The same, but only the calls of one operation, or of one object.
    static QStringList TakeOperation(const char* operation);
    static QStringList TakeObject(const char* object);
    /// How many calls of one operation there have been since the mark.
    static int CountOf(const char* operation);
};

/// Where two lists of calls part, for a person to read; empty when they are the same.
QString DifferenceOf(const QStringList& seen, const QStringList& expected);

/// Fails the test, showing where they part, when the calls are not the expected ones.
#define COMPARE_CALLS(seen, ...)                                                                                       \
    do {                                                                                                               \
        const QString callsDifference = DifferenceOf(seen, QStringList(__VA_ARGS__));                                  \
        QVERIFY2(callsDifference.isEmpty(), qPrintable(callsDifference));                                              \
    } while (false)
