#pragma once

#include <QString>

#include <chrono>
#include <functional>
#include <optional>

// Calls of the library that take so long that they run on a thread of their own. Such a call cannot be
// ended from outside, so nothing that it may use can be taken down while it runs.
namespace BackgroundCalls {

/// Takes the text of the exception that ended the calls, or nothing when they came to their end.
using Finished = std::function<void(const std::optional<QString>& failure)>;

/// Runs the calls on a detached thread, then finished on the GUI thread, where it is destroyed, too. Throws
/// std::system_error when no thread can be started.
void Start(std::function<void()> calls, Finished finished);

/// Waits on the GUI thread, at most this long, until all calls have come to their end. Events are processed
/// meanwhile. Returns whether all have ended; what was to run afterwards has then run.
bool WaitForEnd(std::chrono::milliseconds atMost);

} // namespace BackgroundCalls
