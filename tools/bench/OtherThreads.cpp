#include "tools/bench/OtherThreads.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <map>
#include <unistd.h>
#include <vector>

namespace {

constexpr useconds_t lookPause = 100; // microseconds

std::vector<int> Others() {
    std::vector<int> threads;
    DIR* folder = opendir("/proc/self/task");
    if (folder == nullptr) {
        return threads;
    }
    while (const dirent* entry = readdir(folder)) {
        const int thread = std::atoi(entry->d_name);
        // The first thread of a process has its number.
        if (thread != 0 && thread != getpid()) {
            threads.push_back(thread);
        }
    }
    closedir(folder);
    return threads;
}

/// What the kernel says of a thread.
struct Rest {
    bool resting = true;
    long pauses = 0; ///< how often it has begun to wait
};

Rest RestOf(int thread) {
    char path[64];
    std::snprintf(path, sizeof path, "/proc/self/task/%d/status", thread);
    std::FILE* file = std::fopen(path, "r");
    if (file == nullptr) {
        return {};
    }
    Rest rest;
    char line[256];
    while (std::fgets(line, sizeof line, file) != nullptr) {
        if (std::strncmp(line, "State:", 6) == 0) {
            rest.resting = std::strpbrk(line + 6, "RD") == nullptr;
        } else if (std::strncmp(line, "voluntary_ctxt_switches:", 24) == 0) {
            rest.pauses = std::atol(line + 24);
        }
    }
    std::fclose(file);
    return rest;
}

} // namespace

void OtherThreads::LetThemRest() {
    constexpr int longestLooks = 100000;
    for (const int thread : Others()) {
        for (int look = 0; look < longestLooks && !RestOf(thread).resting; ++look) {
            usleep(lookPause);
        }
    }
}

void OtherThreads::LetThemLook() {
    constexpr int longestLooks = 300; // some 50 ms: a thread that has not woken by then waits to be woken
    std::map<int, long> before;
    for (const int thread : Others()) {
        before[thread] = RestOf(thread).pauses;
    }
    for (const auto& [thread, pauses] : before) {
        for (int look = 0; look < longestLooks && RestOf(thread).pauses < pauses + 2; ++look) {
            usleep(lookPause);
        }
    }
    LetThemRest();
}
