#include "panels/common/BackgroundCalls.h"

#include "panels/common/LastResort.h"
#include "panels/common/Wait.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <atomic>
#include <memory>
#include <thread>
#include <utility>

namespace {

std::atomic<int> running{0};

/// Counts a thread from before it starts until its calls have ended.
class Counted {
public:
    Counted() { ++running; }
    ~Counted() { --running; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
};

std::optional<QString> FailureOf(const std::function<void()>& calls) {
    try {
        calls();
        return std::nullopt;
    } catch (...) {
        return LastResort::CurrentText();
    }
}

} // namespace

void BackgroundCalls::Start(std::function<void()> calls, Finished finished) {
    auto counted = std::make_unique<Counted>();
    std::thread([calls = std::move(calls), finished = std::move(finished), counted = std::move(counted)]() mutable {
        const std::optional<QString> failure = FailureOf(calls);
        // Moved, so that nothing that it holds is destroyed on this thread.
        QMetaObject::invokeMethod(
            qApp, [finished = std::move(finished), failure] { finished(failure); }, Qt::QueuedConnection);
    }).detach();
}

bool BackgroundCalls::WaitForEnd(std::chrono::milliseconds atMost) {
    constexpr unsigned int pauseMicroseconds = 5000;
    QElapsedTimer sinceStart;
    sinceStart.start();
    for (;;) {
        const bool ended = running == 0;
        QCoreApplication::processEvents();
        if (ended || sinceStart.hasExpired(atMost.count())) {
            return ended;
        }
        SleepMicroseconds(pauseMicroseconds);
    }
}
