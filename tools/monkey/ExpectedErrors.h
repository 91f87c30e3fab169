#pragma once

#include "simulator/control/BenchControl.h"
#include "tools/bench/MonkeyBench.h"

#include <QString>

// Which boxes the program may show.

/// Whether the library may refuse this call on a bench on which nothing fails: because of what the operator did, or
/// because the module is not there.
bool IsExpectedError(const TavikSimulator::JournalEntry& call, const MonkeyBench& bench);
/// Whether the program itself, without a failed call, says this in an error box.
bool IsOwnWord(const QString& title, const QString& text);
/// Whether the program has an information box or a question of this title.
bool IsKnownTitle(const QString& title);
