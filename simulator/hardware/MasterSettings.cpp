#include "simulator/hardware/MasterSettings.h"

#include "simulator/hardware/ErrorTexts.h"

#include <limits>
#include <utility>

namespace TavikSimulator {

using TavikLibrary::eDynamicMasterMode;
using TavikLibrary::eTavikErrors;

namespace {

constexpr int MostPulses = std::numeric_limits<short>::max();

} // namespace

MasterSettings::MasterSettings(std::string moduleIdentity, bool encoder)
    : identity(std::move(moduleIdentity)), hasEncoder(encoder) {}

void MasterSettings::RequirePulses(int counts, const char* what) const {
    if (counts < 1 || counts > MostPulses) {
        Reject(eTavikErrors::InvalidArgument, std::string("The counts per ") + what + " of module " + identity +
                                                  " must be 1 to " + std::to_string(MostPulses) + ", not " +
                                                  std::to_string(counts) + ".");
    }
}

void MasterSettings::SetTxSample(int counts) {
    RequirePulses(counts, "sample");
    txSample = counts;
}

void MasterSettings::SetTxSync(int counts) {
    RequirePulses(counts, "sync");
    txSync = counts;
}

void MasterSettings::RequireHoldOff(int counts) const {
    if (counts < 0) {
        Reject(eTavikErrors::InvalidArgument,
               "The hold-off of module " + identity + " must be 0 or more counts, not " + std::to_string(counts) + ".");
    }
}

void MasterSettings::SetHoldOff(int counts) {
    RequireHoldOff(counts);
    holdOff = counts;
}

void MasterSettings::RequireMode(eDynamicMasterMode newMode) const {
    switch (newMode) {
    case eDynamicMasterMode::NotMaster:
    case eDynamicMasterMode::Instant:
        break;
    case eDynamicMasterMode::HoldOff:
    case eDynamicMasterMode::Refaction_Reset:
    case eDynamicMasterMode::Refaction_Preset:
        if (!hasEncoder) {
            Reject(eTavikErrors::NotSupported, "Module " + identity + " has no encoder to wait for.");
        }
        break;
    default:
        Reject(eTavikErrors::InvalidArgument,
               "Module " + identity + " has no master mode " + std::to_string(static_cast<int>(newMode)) + ".");
    }
}

void MasterSettings::SetMode(eDynamicMasterMode newMode) {
    RequireMode(newMode);
    mode = newMode;
}

std::vector<KeptSetting> MasterSettings::Kept() {
    std::vector<KeptSetting> kept = {
        KeptNumber<int>(
            "counts-per-sample", [this] { return txSample; }, [this](int counts) { RequirePulses(counts, "sample"); },
            [this](int counts) { txSample = counts; }),
        KeptNumber<int>(
            "counts-per-sync", [this] { return txSync; }, [this](int counts) { RequirePulses(counts, "sync"); },
            [this](int counts) { txSync = counts; }),
        KeptNumber<eDynamicMasterMode>(
            "master-mode", [this] { return mode; }, [this](eDynamicMasterMode wanted) { RequireMode(wanted); },
            [this](eDynamicMasterMode wanted) { mode = wanted; }),
    };
    if (hasEncoder) {
        kept.push_back(KeptNumber<int>(
            "hold-off", [this] { return holdOff; }, [this](int counts) { RequireHoldOff(counts); },
            [this](int counts) { holdOff = counts; }));
    }
    return kept;
}

} // namespace TavikSimulator
