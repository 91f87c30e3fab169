#pragma once

#include <utility>

/// Runs calls and ignores exceptions of any type: an error is already shown, or the window is closed.
/// Returns whether the calls came to their end.
template <class Calls>
bool IgnoreErrors(Calls&& calls) noexcept {
    try {
        std::forward<Calls>(calls)();
        return true;
    } catch (...) { // NOLINT(bugprone-empty-catch)
        return false;
    }
}
