#include "simulator/acquisition/DynamicReadings.h"

namespace TavikSimulator {

void DynamicReadings::Begin(int newModules) {
    modules = newModules;
    syncs = 0;
    overwritten = false;
    std::deque<TavikLibrary::TavikReading>().swap(readings);
}

int DynamicReadings::Room() const {
    return modules > 0 ? Most / modules : 0;
}

void DynamicReadings::BeginSync() {
    if (syncs < Room()) {
        ++syncs;
        return;
    }
    overwritten = true;
    readings.erase(readings.begin(), readings.begin() + modules);
}

const TavikLibrary::TavikReading& DynamicReadings::At(int module, int sync) const {
    return readings[static_cast<std::size_t>(sync) * static_cast<std::size_t>(modules) +
                    static_cast<std::size_t>(module)];
}

} // namespace TavikSimulator
