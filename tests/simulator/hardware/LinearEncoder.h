#pragma once

#include "library/TavikModuleRN.h"
#include "tests/simulator/hardware/OneModule.h"

/// 12 mm with 10000 counts each, its mark at 4 mm, and nobody near it.
class LinearEncoder : public OneModule<TavikLibrary::TavikModuleRN> {
public:
    explicit LinearEncoder(const std::string& attributes = "mark=\"4\" hand=\"never\"",
                           const std::string& content = std::string())
        : OneModule("RN", attributes, content) {}

    int CountAt(double position) const {
        Hold(position);
        return (*this)->ReadInCounts();
    }
};

inline void LosePower() {
    TavikSimulator::SetModulePresent("N", "MODULE0001", false);
    TavikSimulator::SetModulePresent("N", "MODULE0001", true);
}
