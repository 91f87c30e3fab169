#include "tools/soak/Sample.h"

#include <QDir>
#include <QFile>

#include <atomic>
#include <cstdint>
#include <malloc.h>
#include <stdexcept>

/// Where Qt tells development tools of its objects; its private header qhooks_p.h describes the table, whose places do
/// not change while the first number stays the same.
extern "C" Q_CORE_EXPORT quintptr qtHookData[];

namespace {

enum HookPlace { VersionPlace = 0, SizePlace = 1, AddObjectPlace = 3, RemoveObjectPlace = 4 };

std::atomic<std::int64_t> objects{0};

void ObjectAdded(QObject*) {
    ++objects;
}

void ObjectRemoved(QObject*) {
    --objects;
}

double NumberIn(const char* path, const QByteArray& key) {
    QFile file(QString::fromLatin1(path));
    if (file.open(QIODevice::ReadOnly)) {
        const auto lines = file.readAll().split('\n');
        for (const QByteArray& line : lines) {
            if (line.startsWith(key)) {
                return line.mid(key.size()).simplified().split(' ').value(0).toDouble();
            }
        }
    }
    throw std::runtime_error(std::string(path) + " does not tell of " + key.toStdString());
}

double OpenFiles() {
    const QDir folder(QStringLiteral("/proc/self/fd"));
    // The listing itself holds the folder open.
    return folder.entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size() - 1;
}

} // namespace

bool CountObjects() {
    if (qtHookData[VersionPlace] < 1 || qtHookData[SizePlace] <= RemoveObjectPlace) {
        return false;
    }
    qtHookData[AddObjectPlace] = reinterpret_cast<quintptr>(&ObjectAdded);
    qtHookData[RemoveObjectPlace] = reinterpret_cast<quintptr>(&ObjectRemoved);
    return true;
}

Sample TakeSample() {
    constexpr double kibibyte = 1024.0;
    const struct mallinfo2 heap = mallinfo2();
    Sample sample;
    sample.residentBytes = NumberIn("/proc/self/status", "VmRSS:") * kibibyte;
    sample.threads = NumberIn("/proc/self/status", "Threads:");
    // What is large has pages of its own and is counted apart.
    sample.heapBytes = static_cast<double>(heap.uordblks) + static_cast<double>(heap.hblkhd);
    sample.files = OpenFiles();
    sample.objects = static_cast<double>(objects.load());
    return sample;
}
