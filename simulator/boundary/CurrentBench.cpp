#include "simulator/boundary/CurrentBench.h"

#include "simulator/files/BenchFile.h"

#include <cstdlib>
#include <mutex>

namespace TavikSimulator {

namespace {

struct Current {
    std::mutex mutex;
    std::shared_ptr<Bench> bench;
};

Current& TheCurrent() {
    static Current current;
    return current;
}

std::string Environment(const char* variable) {
    const char* value = std::getenv(variable);
    return value ? value : "";
}

BenchDescription ChosenDescription() {
    const std::string file = Environment("TAVIK_BENCH");
    return file.empty() ? ReadBenchText(CompiledInBench(), "compiled-in bench") : ReadBenchFile(file);
}

std::shared_ptr<Bench> Make(const BenchDescription& description) {
    auto bench = std::make_shared<Bench>(description);
    const std::string journal = Environment("TAVIK_JOURNAL");
    if (!journal.empty()) {
        bench->gate.journal.WriteTo(journal);
    }
    return bench;
}

} // namespace

std::shared_ptr<Bench> CurrentBench() {
    Current& current = TheCurrent();
    const std::lock_guard lock(current.mutex);
    if (!current.bench) {
        current.bench = Make(ChosenDescription());
    }
    return current.bench;
}

void ReplaceCurrentBench(const BenchDescription& description) {
    // Swapped, so that the old bench is destroyed after the lock is released.
    std::shared_ptr<Bench> bench = Make(description);
    Current& current = TheCurrent();
    const std::lock_guard lock(current.mutex);
    current.bench.swap(bench);
}

} // namespace TavikSimulator
