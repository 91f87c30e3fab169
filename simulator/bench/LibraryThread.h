#pragma once

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace TavikSimulator {

/// The library's own thread: advances collections and calls the callbacks of those that have ended. Starts at the first
/// Wake. Its functions are called without the bench's lock.
class LibraryThread {
public:
    using Callback = void (*)();
    /// Work that one poll under the bench's lock has found.
    struct PendingWork {
        bool watching = false;       ///< poll again after 2 ms
        std::vector<Callback> calls; ///< called without the lock
    };

    /// Calls `collect` under this lock at each poll.
    LibraryThread(std::mutex& lock, std::function<PendingWork()> what) : benchLock(lock), collect(std::move(what)) {}
    /// Ends the thread after its current callback.
    ~LibraryThread();
    LibraryThread(const LibraryThread&) = delete;
    LibraryThread& operator=(const LibraryThread&) = delete;

    /// Wakes the thread; starts it when it does not run.
    void Wake();
    /// Ends the thread unless the bench is in use, and waits for its current callback; pending callbacks are dropped.
    /// Called from inside a callback, ends the thread after it.
    void EndUnless(const std::function<bool()>& inUse);

private:
    /// Outlives the bench when a callback destroys the bench.
    struct LifetimeToken {
        std::atomic<bool> over{false};
    };
    void Run(const std::shared_ptr<LifetimeToken>& life);

    std::mutex& benchLock;
    const std::function<PendingWork()> collect;
    bool awake = false; ///< guarded by the bench's lock
    std::condition_variable wake;

    std::mutex mutex; ///< guards the members below; locked before the bench's lock
    std::thread thread;
    std::shared_ptr<LifetimeToken> life;
};

} // namespace TavikSimulator
