#pragma once

#include <exception>
#include <utility>

/// Runs calls whose failure is nobody's news: the operator is told of an earlier one already, or has
/// closed the window.
template <class Calls>
void Quietly(Calls&& calls) {
    try {
        std::forward<Calls>(calls)();
    } catch (const std::exception&) { // NOLINT(bugprone-empty-catch)
    }
}
