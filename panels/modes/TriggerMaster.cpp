#include "panels/modes/TriggerMaster.h"

#include "library/TavikDynamic.h"
#include "library/TavikModuleDigitalIO.h"
#include "library/TavikModuleQTA.h"
#include "library/TavikNetwork.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <stdexcept>

using namespace TavikLibrary;

namespace {

/// In the order of the list's rows.
constexpr std::array<eDynamicMasterMode, 5> modes = {
    eDynamicMasterMode::Instant, eDynamicMasterMode::HoldOff, eDynamicMasterMode::Refaction_Reset,
    eDynamicMasterMode::Refaction_Preset, eDynamicMasterMode::NotMaster};

} // namespace

TavikModule* TriggerMaster::ModuleAt(TavikNetwork& network, int index) {
    const bool listed = index >= 0 && index < network.ModuleCount();
    return listed ? network.GetModule(static_cast<unsigned int>(index)) : nullptr;
}

std::optional<TriggerMaster> TriggerMaster::Of(TavikModule* module) {
    if (module == nullptr) {
        return std::nullopt;
    }
    const eModuleType type = module->ModuleType();
    auto* encoder = type == eModuleType::QTA ? dynamic_cast<TavikModuleQTA*>(module) : nullptr;
    auto* inputs = type == eModuleType::SWAX2 ? dynamic_cast<TavikModuleSWAX2*>(module) : nullptr;
    if (encoder == nullptr && inputs == nullptr) {
        return std::nullopt;
    }
    return TriggerMaster(*module, encoder, inputs);
}

TriggerMaster::TriggerMaster(TavikModule& masterModule, TavikModuleQTA* asEncoder, TavikModuleSWAX2* asInputs)
    : module(&masterModule), encoder(asEncoder), inputs(asInputs) {}

std::string TriggerMaster::Identity() const {
    return module->Identity();
}

int TriggerMaster::CountsPerSample() const {
    return encoder != nullptr ? encoder->TxSample() : inputs->TxSample();
}

void TriggerMaster::SetCountsPerSample(int counts) const {
    const auto narrowed = static_cast<short>(counts);
    encoder != nullptr ? encoder->setTxSample(narrowed) : inputs->setTxSample(narrowed);
}

int TriggerMaster::CountsPerSync() const {
    return encoder != nullptr ? encoder->TxSync() : inputs->TxSync();
}

void TriggerMaster::SetCountsPerSync(int counts) const {
    const auto narrowed = static_cast<short>(counts);
    encoder != nullptr ? encoder->setTxSync(narrowed) : inputs->setTxSync(narrowed);
}

int TriggerMaster::HoldOffCounts() const {
    return encoder != nullptr ? encoder->HoldOff() : 0;
}

void TriggerMaster::SetHoldOffCounts(int counts) const {
    if (encoder != nullptr) {
        encoder->setHoldOff(counts);
    }
}

eDynamicMasterMode TriggerMaster::Mode() const {
    return encoder != nullptr ? encoder->DynamicMasterMode() : inputs->DynamicMasterMode();
}

void TriggerMaster::SetMode(eDynamicMasterMode mode) const {
    encoder != nullptr ? encoder->setDynamicMasterMode(mode) : inputs->setDynamicMasterMode(mode);
}

int TriggerMaster::RowOf(eDynamicMasterMode mode) {
    const auto* found = std::find(modes.begin(), modes.end(), mode);
    return found == modes.end() ? -1 : static_cast<int>(std::distance(modes.begin(), found));
}

std::optional<eDynamicMasterMode> TriggerMaster::ModeOfRow(int row) {
    if (row >= static_cast<int>(modes.size())) {
        throw std::runtime_error("Unexpected external master mode");
    }
    return row < 0 ? std::nullopt : std::optional<eDynamicMasterMode>(modes[static_cast<std::size_t>(row)]);
}
