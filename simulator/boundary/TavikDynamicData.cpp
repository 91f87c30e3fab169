#include "simulator/boundary/DynamicImplementation.h"

#include <optional>

namespace TavikLibrary {

TavikDynamicData::TavikDynamicData(Implementation* data) : implementation(data) {}

TavikDynamicData::~TavikDynamicData() {
    delete implementation;
}

int TavikDynamicData::CollectionStatus() {
    return implementation->Call("CollectionStatus",
                                [this] { return static_cast<int>(implementation->Mode().Status()); });
}

int TavikDynamicData::ModuleCount() {
    return implementation->Call("ModuleCount", [this] { return implementation->Mode().Readings().Modules(); });
}

int TavikDynamicData::ReadingCount() {
    return implementation->Call("ReadingCount", [this] { return implementation->Mode().Readings().Syncs(); });
}

TavikReading TavikDynamicData::GetItem(int module, int reading) {
    return implementation->Call(
        "GetItem",
        [&](std::optional<int> code) {
            TavikReading item = implementation->Mode().Item(module, reading);
            item.resultCode = code.value_or(item.resultCode);
            return item;
        },
        module, reading);
}

} // namespace TavikLibrary
