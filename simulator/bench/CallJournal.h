#pragma once

#include "simulator/bench/JournalEntry.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

namespace TavikSimulator {

/// The record of the library's calls: a ring in memory, a file, both or neither. Safe from any thread.
class CallJournal {
public:
    CallJournal() = default;
    ~CallJournal();
    CallJournal(const CallJournal&) = delete;
    CallJournal& operator=(const CallJournal&) = delete;

    /// Writes a line for every call from now on into a file, which is begun anew the first time that
    /// this process opens it. Throws TavikException when it cannot be opened.
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

/// The number of the calling thread: 1 for the first that asked, and so on.
int ThreadNumber();

} // namespace TavikSimulator
