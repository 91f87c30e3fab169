#include "tests/panels/wireless/FailingThreads.h"

#include <atomic>
#include <cerrno>
#include <dlfcn.h>
#include <pthread.h>

namespace {

std::atomic<bool> failing{false};

} // namespace

FailingThreads::FailingThreads() {
    failing = true;
}

FailingThreads::~FailingThreads() {
    failing = false;
}

// Stands before the function of the same name in the thread library, which it calls.
extern "C" int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*start)(void*),
                              void* argument) {
    if (failing) {
        return EAGAIN;
    }
    using Create = int (*)(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*);
    static const auto create = reinterpret_cast<Create>(dlsym(RTLD_NEXT, "pthread_create"));
    return create(thread, attributes, start, argument);
}
