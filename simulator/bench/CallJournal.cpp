#include "simulator/bench/CallJournal.h"

#include "simulator/hardware/ErrorTexts.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <set>
#include <unistd.h>

namespace TavikSimulator {

namespace {

// A second bench of the process appends to the file of the first one.
int OpenFile(const std::string& path) {
    static std::mutex mutex;
    static std::set<std::string> begun;
    const std::lock_guard lock(mutex);
    const int begin = begun.count(path) == 0 ? O_TRUNC : 0;
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC | begin, 0644);
    if (file >= 0) {
        begun.insert(path);
    }
    return file;
}

void WriteAll(int file, const std::string& text) {
    std::size_t written = 0;
    while (written < text.size()) {
        const ssize_t count = ::write(file, text.data() + written, text.size() - written);
        if (count < 0 && errno != EINTR) {
            return;
        }
        written += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
}

} // namespace

CallJournal::~CallJournal() {
    if (file >= 0) {
        ::close(file);
    }
}

void CallJournal::WriteTo(const std::string& path) {
    const std::lock_guard lock(mutex);
    file = OpenFile(path);
    if (file < 0) {
        Reject(TavikLibrary::eTavikErrors::InvalidArgument,
               "The journal \"" + path + "\" cannot be written: " + std::strerror(errno) + ".");
    }
    on = true;
}

void CallJournal::Start(std::size_t entries) {
    const std::lock_guard lock(mutex);
    ring.clear();
    oldest = 0;
    dropped = 0;
    capacity = std::max<std::size_t>(entries, 1);
    keeping = true;
    on = true;
}

void CallJournal::Stop() {
    const std::lock_guard lock(mutex);
    keeping = false;
    on = file >= 0;
}

void CallJournal::Clear() {
    const std::lock_guard lock(mutex);
    ring.clear();
    oldest = 0;
    dropped = 0;
}

void CallJournal::Add(const JournalEntry& entry) {
    const std::lock_guard lock(mutex);
    if (file >= 0) {
        // One write per line, so that the lines before a crash are in the file.
        WriteAll(file, JournalLine(entry) + "\n");
    }
    if (keeping) {
        Keep(entry);
    }
}

void CallJournal::Keep(const JournalEntry& entry) {
    if (ring.size() < capacity) {
        ring.push_back(entry);
        return;
    }
    ring[oldest] = entry;
    oldest = (oldest + 1) % capacity;
    ++dropped;
}

std::vector<JournalEntry> CallJournal::Entries() const {
    std::vector<JournalEntry> entries;
    {
        const std::lock_guard lock(mutex);
        entries = ring;
    }
    // Calls are added at their end; a long call can have begun before shorter ones that ended earlier.
    std::sort(entries.begin(), entries.end(),
              [](const JournalEntry& a, const JournalEntry& b) { return a.number < b.number; });
    return entries;
}

std::uint64_t CallJournal::Dropped() const {
    const std::lock_guard lock(mutex);
    return dropped;
}

int ThreadNumber() {
    static std::atomic<int> last{0};
    thread_local const int number = ++last;
    return number;
}

std::string CallText(const JournalEntry& entry) {
    return entry.object + "." + entry.operation + "(" + entry.arguments + ")";
}

std::string JournalLine(const JournalEntry& entry) {
    char head[96];
    std::snprintf(head, sizeof head, "%8llu %12.6f  thread %d  ", static_cast<unsigned long long>(entry.number),
                  entry.time, entry.thread);
    std::string line = head + CallText(entry);
    if (entry.failed) {
        line += " threw " + std::to_string(entry.errorCode) + " \"" + entry.error + "\"";
    } else if (!entry.result.empty()) {
        line += " = " + entry.result;
    }
    if (entry.faulted) {
        line += "  [fault]";
    }
    return line;
}

} // namespace TavikSimulator
