#pragma once

#include <chrono>
#include <functional>

// Calls of the library that take so long that they run on a thread of their own. Such a call cannot be
// ended from outside, so nothing that it may use can be taken down while it runs.
namespace BackgroundCalls {

/// Runs the calls on a detached thread. They must not let an exception out. Throws std::system_error when
/// no thread can be started.
void Start(std::function<void()> calls);

/// Waits on the GUI thread, at most this long, until all calls have come to their end. Events are handled
/// meanwhile, so that a call that waits for the GUI thread is answered. Returns whether all have ended.
bool WaitForEnd(std::chrono::milliseconds atMost);

} // namespace BackgroundCalls
