#include "simulator/bench/LibraryThread.h"

#include <chrono>

namespace TavikSimulator {

namespace {

/// Whose Run the calling thread is in.
thread_local const void* ownThreadOf = nullptr;

// A clock that is advanced by hand wakes nobody, so the thread looks by itself.
constexpr std::chrono::milliseconds PollInterval{2};

} // namespace

LibraryThread::~LibraryThread() {
    EndUnless([] { return false; });
}

void LibraryThread::Wake() {
    if (ownThreadOf == this) {
        // It looks again after the call that it is making.
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
        // Somebody is ending it already, and waits for this call.
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
            found = duty();
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
