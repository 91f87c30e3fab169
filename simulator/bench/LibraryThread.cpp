#include "simulator/bench/LibraryThread.h"

#include <chrono>

namespace TavikSimulator {

namespace {

/// The LibraryThread that the calling thread runs; null on other threads.
thread_local const void* ownThreadOf = nullptr;

// A stopped clock wakes no thread, so the thread polls.
constexpr std::chrono::milliseconds PollInterval{2};

} // namespace

LibraryThread::~LibraryThread() {
    EndUnless([] { return false; });
}

void LibraryThread::Wake() {
    if (ownThreadOf == this) {
        // The thread polls again after its current callback.
        return;
    }
    const std::lock_guard starting(mutex);
    {
        const std::lock_guard lock(benchLock);
        awake = true;
    }
    wake.notify_all();
    if (!thread.joinable()) {
        life = std::make_shared<LifetimeToken>();
        thread = std::thread([this, own = life] { Run(own); });
    }
}

void LibraryThread::EndUnless(const std::function<bool()>& inUse) {
    const bool inside = ownThreadOf == this;
    std::unique_lock ending(mutex, std::defer_lock);
    if (!inside) {
        ending.lock();
    } else if (!ending.try_lock()) {
        // Another thread is ending this one and waits for the current callback.
        return;
    }
    if (!thread.joinable() || inUse()) {
        return;
    }
    {
        const std::lock_guard lock(benchLock);
        life->over = true;
    }
    wake.notify_all();
    if (inside) {
        ownThreadOf = nullptr;
        thread.detach();
    } else {
        thread.join();
    }
}

void LibraryThread::Run(const std::shared_ptr<LifetimeToken>& own) {
    ownThreadOf = this;
    while (!own->over) {
        PendingWork found;
        {
            std::unique_lock lock(benchLock);
            awake = false;
            found = collect();
            const auto called = [&] { return awake || own->over; };
            if (found.calls.empty() && found.watching) {
                wake.wait_for(lock, PollInterval, called);
            } else if (found.calls.empty()) {
                wake.wait(lock, called);
            }
        }
        for (const Callback call : found.calls) {
            if (own->over) {
                return;
            }
            call();
        }
    }
}

} // namespace TavikSimulator
