#pragma once

/// While it lives, the process can start no thread.
class FailingThreads {
public:
    FailingThreads();
    ~FailingThreads();
    FailingThreads(const FailingThreads&) = delete;
    FailingThreads& operator=(const FailingThreads&) = delete;
};
