#pragma once

#include "tools/bench/MonkeyBench.h"
#include "tools/monkey/Step.h"

#include <QSet>

#include <random>

class QWidget;

/// Chooses what happens next, from what can be done on the screen as it is: the same seed on the same screens gives
/// the same steps.
class EventGenerator {
public:
    EventGenerator(std::uint64_t seed, const MonkeyBench& bench, bool faults);

    Step Next();
    /// Operations that the program has called; faults strike these.
    void Met(const QString& operation) { operations.insert(operation); }

private:
    int Below(int limit);
    bool Perhaps(int percent) { return Below(100) < percent; }
    QString OneOf(const QStringList& texts) { return texts.at(Below(texts.size())); }

    bool IsOnTheWay();
    Step OnTheWay();
    Step OnPopup(QWidget& popup);
    Step OnFileBox();
    Step OnBox();
    Step OnWindow(QWidget& window);
    Step OnControl(const QString& name, QWidget& widget);
    Step Key();
    Step OfBench();
    Step OfTool();
    Step Mishap();
    Step Fault();

    std::mt19937_64 random;
    const MonkeyBench& bench;
    const bool faults;
    int way = 0; ///< how far the operator is on the way to a module's pages
    QSet<QString> operations;
};
