#include "library/TavikModuleRN.h"

#include "simulator/boundary/ModuleImplementation.h"
#include "simulator/hardware/LinearEncoderHardware.h"

namespace TavikLibrary {

using TavikSimulator::LinearEncoderHardware;

TavikModuleRN::TavikModuleRN(Implementation* module) : TavikModule(module) {}

TavikModuleRN::~TavikModuleRN() = default;

eDirection TavikModuleRN::Direction() {
    return implementation->Known("Direction",
                                 [this] { return implementation->As<LinearEncoderHardware>().Direction(); });
}

void TavikModuleRN::setDirection(eDirection direction) {
    implementation->OnBus(
        "setDirection",
        [&] { implementation->As<LinearEncoderHardware>().SetDirection(direction, implementation->bench.clock.Now()); },
        direction);
}

void TavikModuleRN::setPresetInCounts(int counts) {
    implementation->OnBus(
        "setPresetInCounts",
        [&] { implementation->As<LinearEncoderHardware>().PresetInCounts(counts, implementation->bench.clock.Now()); },
        counts);
}

void TavikModuleRN::setPresetInUnits(double value) {
    implementation->OnBus(
        "setPresetInUnits",
        [&] { implementation->As<LinearEncoderHardware>().PresetInUnits(value, implementation->bench.clock.Now()); },
        value);
}

void TavikModuleRN::FindRefMark_Units(eReferenceMarkMode mode, double recallValue) {
    implementation->OnBus(
        "FindRefMark_Units",
        [&] {
            implementation->As<LinearEncoderHardware>().FindMarkInUnits(mode, recallValue,
                                                                        implementation->bench.clock.Now());
        },
        mode, recallValue);
}

void TavikModuleRN::FindRefMark_Counts(eReferenceMarkMode mode, int recallValue) {
    implementation->OnBus(
        "FindRefMark_Counts",
        [&] {
            implementation->As<LinearEncoderHardware>().FindMarkInCounts(mode, recallValue,
                                                                         implementation->bench.clock.Now());
        },
        mode, recallValue);
}

bool TavikModuleRN::RefmarkInProgress() {
    return implementation->OnBus("RefmarkInProgress", [this] {
        return implementation->As<LinearEncoderHardware>().IsSearching(implementation->bench.clock.Now());
    });
}

bool TavikModuleRN::RefmarkFound() {
    return implementation->OnBus("RefmarkFound", [this] {
        return implementation->As<LinearEncoderHardware>().MarkFound(implementation->bench.clock.Now());
    });
}

double TavikModuleRN::ReadInUnitsAtRefmark() {
    return implementation->OnBus("ReadInUnitsAtRefmark", [this] {
        return implementation->As<LinearEncoderHardware>().UnitsAtMark(implementation->bench.clock.Now());
    });
}

int TavikModuleRN::ReadInCountsAtRefmark() {
    return implementation->OnBus("ReadInCountsAtRefmark", [this] {
        return implementation->As<LinearEncoderHardware>().CountsAtMark(implementation->bench.clock.Now());
    });
}

void TavikModuleRN::StopRefMark() {
    implementation->OnBus("StopRefMark", [this] {
        implementation->As<LinearEncoderHardware>().StopSearch(implementation->bench.clock.Now());
    });
}

} // namespace TavikLibrary
