#include "simulator/modules/MasterSettings.h"

#include "simulator/bench/ErrorTexts.h"

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
        Refuse(eTavikErrors::InvalidArgument, std::string("The counts per ") + what + " of module " + identity +
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

void MasterSettings::SetHoldOff(int counts) {
    if (counts < 0) {
        Refuse(eTavikErrors::InvalidArgument,
               "The hold-off of module " + identity + " must be 0 or more counts, not " + std::to_string(counts) + ".");
    }
    holdOff = counts;
}

void MasterSettings::SetMode(eDynamicMasterMode newMode) {
    switch (newMode) {
    case eDynamicMasterMode::NotMaster:
    case eDynamicMasterMode::Instant:
        break;
    case eDynamicMasterMode::HoldOff:
    case eDynamicMasterMode::Refaction_Reset:
    case eDynamicMasterMode::Refaction_Preset:
        if (!hasEncoder) {
            Refuse(eTavikErrors::NotSupported, "Module " + identity + " has no encoder to wait for.");
        }
        break;
    default:
        Refuse(eTavikErrors::InvalidArgument,
               "Module " + identity + " has no master mode " + std::to_string(static_cast<int>(newMode)) + ".");
    }
    mode = newMode;
}

} // namespace TavikSimulator
