#include "panels/modes/DynamicMaster.h"

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

std::optional<DynamicMaster> DynamicMaster::Of(TavikNetwork& network) {
    const int index = network.Dynamic()->MasterIndex();
    if (index < 0 || index >= network.ModuleCount()) {
        return std::nullopt;
    }
    TavikModule* module = network.GetModule(static_cast<unsigned int>(index));
    const eModuleType type = module->ModuleType();
    auto* encoder = type == eModuleType::QTA ? dynamic_cast<TavikModuleQTA*>(module) : nullptr;
    auto* pins = type == eModuleType::SWAX2 ? dynamic_cast<TavikModuleSWAX2*>(module) : nullptr;
    if (encoder == nullptr && pins == nullptr) {
        return std::nullopt;
    }
    return DynamicMaster(*module, encoder, pins);
}

DynamicMaster::DynamicMaster(TavikModule& masterModule, TavikModuleQTA* asEncoder, TavikModuleSWAX2* asPins)
    : module(&masterModule), encoder(asEncoder), pins(asPins) {}

std::string DynamicMaster::Identity() const {
    return module->Identity();
}

eDynamicMasterMode DynamicMaster::Mode() const {
    return encoder != nullptr ? encoder->DynamicMasterMode() : pins->DynamicMasterMode();
}

void DynamicMaster::SetMode(eDynamicMasterMode mode) const {
    encoder != nullptr ? encoder->setDynamicMasterMode(mode) : pins->setDynamicMasterMode(mode);
}

int DynamicMaster::CountsPerSync() const {
    return encoder != nullptr ? encoder->TxSync() : pins->TxSync();
}

void DynamicMaster::SetCountsPerSync(int counts) const {
    const auto narrowed = static_cast<short>(counts);
    encoder != nullptr ? encoder->setTxSync(narrowed) : pins->setTxSync(narrowed);
}

int DynamicMaster::HoldOffCounts() const {
    return encoder != nullptr ? encoder->HoldOff() : 0;
}

void DynamicMaster::SetHoldOffCounts(int counts) const {
    if (encoder != nullptr) {
        encoder->setHoldOff(counts);
    }
}

int DynamicMaster::RowOf(eDynamicMasterMode mode) {
    const auto* found = std::find(modes.begin(), modes.end(), mode);
    return found == modes.end() ? -1 : static_cast<int>(std::distance(modes.begin(), found));
}

std::optional<eDynamicMasterMode> DynamicMaster::ModeOfRow(int row) {
    if (row >= static_cast<int>(modes.size())) {
        throw std::runtime_error("Unexpected external master mode");
    }
    return row < 0 ? std::nullopt : std::optional<eDynamicMasterMode>(modes[static_cast<std::size_t>(row)]);
}
