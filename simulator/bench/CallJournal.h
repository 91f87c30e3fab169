#pragma once

#include "simulator/bench/JournalEntry.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

namespace TavikSimulator {

/// Journal of the library's calls: a ring buffer in memory, a file, both or neither. Safe from any thread.
class CallJournal {
public:
    CallJournal() = default;
    ~CallJournal();
    CallJournal(const CallJournal&) = delete;
    CallJournal& operator=(const CallJournal&) = delete;

    /// Writes a line for each call from now on to a file, which is truncated when this process opens it first. Throws
    /// TavikException when it cannot be opened.
    void WriteTo(const std::string& path);

    void Start(std::size_t capacity);
    void Stop();
    void Clear();

    bool IsOn() const { return on.load(std::memory_order_relaxed); }
    void Add(const JournalEntry& entry);
    std::vector<JournalEntry> Entries() const;
    std::uint64_t Dropped() const;

private:
    void Keep(const JournalEntry& entry);

    mutable std::mutex mutex;
    std::atomic<bool> on{false};
    bool keeping = false;
    int file = -1;
    std::size_t capacity = 0;
    std::size_t oldest = 0;
    std::uint64_t dropped = 0;
    std::vector<JournalEntry> ring;
};

/// Number of the calling thread, from 1 in the order of first use.
int ThreadNumber();

} // namespace TavikSimulator
