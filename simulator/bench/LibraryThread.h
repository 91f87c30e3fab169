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

/// The library's own thread, on which it sees to collections and tells of their ends. It starts when there is
/// something to see to. Its functions must not be called with the bench's lock held.
class LibraryThread {
public:
    using Callback = void (*)();
    /// What is found to be done, under the bench's lock.
    struct PendingWork {
        bool watching = false;       ///< look again soon
        std::vector<Callback> calls; ///< to be made without the lock
    };

    /// The duty is asked for under this lock.
    LibraryThread(std::mutex& lock, std::function<PendingWork()> what) : benchLock(lock), duty(std::move(what)) {}
    /// As End.
    ~LibraryThread();
    LibraryThread(const LibraryThread&) = delete;
    LibraryThread& operator=(const LibraryThread&) = delete;

    /// There is something to see to now. Starts the thread if need be.
    void Wake();
    /// Waits for a call that is being made and ends the thread, unless the bench is in use after all; calls that
    /// were due are not made any more. From inside such a call: ends the thread after it.
    void EndUnless(const std::function<bool()>& inUse);

private:
    /// Outlives the bench when that ends inside a call that the thread makes.
    struct LifetimeToken {
        std::atomic<bool> over{false};
    };
    void Run(const std::shared_ptr<LifetimeToken>& life);

    std::mutex& benchLock;
    const std::function<PendingWork()> duty;
    bool awake = false; ///< guarded by the bench's lock
    std::condition_variable wake;

    std::mutex mutex; ///< guards what follows; taken before the bench's lock
    std::thread thread;
    std::shared_ptr<LifetimeToken> life;
};

} // namespace TavikSimulator
