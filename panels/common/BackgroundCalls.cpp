#include "panels/common/BackgroundCalls.h"

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

} // namespace

void BackgroundCalls::Start(std::function<void()> calls) {
    auto counted = std::make_unique<Counted>();
    std::thread([calls = std::move(calls), counted = std::move(counted)] { calls(); }).detach();
}

bool BackgroundCalls::WaitForEnd(std::chrono::milliseconds atMost) {
    constexpr unsigned int pauseMicroseconds = 5000;
    QElapsedTimer sinceStart;
    sinceStart.start();
    while (running > 0) {
        if (sinceStart.hasExpired(atMost.count())) {
            return false;
        }
        QCoreApplication::processEvents();
        SleepMicroseconds(pauseMicroseconds);
    }
    return true;
}
