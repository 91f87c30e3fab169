#pragma once

#include <QString>

#include <utility>

// What becomes of a failure that no slot has an answer to: a critical box, titled with the program's
// name, once the event that failed is over. The program goes on.
namespace LastResort {

/// Queues the box. Boxes of several failures come one after another. May be called from any thread.
void Report(const QString& text);

/// Reports the exception that is being handled; to be called from a catch block only.
void ReportCurrentException();

/// Runs calls in a place that no exception may pass through, such as a slot of a list's row change.
template <class Calls>
void Run(Calls&& calls) {
    try {
        std::forward<Calls>(calls)();
    } catch (...) {
        ReportCurrentException();
    }
}

} // namespace LastResort
