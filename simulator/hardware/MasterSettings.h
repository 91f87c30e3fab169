#pragma once

#include "library/TavikDynamic.h"
#include "simulator/hardware/KeptSetting.h"

#include <string>
#include <vector>

namespace TavikSimulator {

/// Settings of a trigger master. The setters throw TavikException, and change nothing, for a value that the module does
/// not support.
class MasterSettings {
public:
    /// Only an encoder interface supports hold-off and reference marks.
    MasterSettings(std::string moduleIdentity, bool hasEncoder);

    int TxSample() const { return txSample; }
    void SetTxSample(int counts);
    int TxSync() const { return txSync; }
    void SetTxSync(int counts);
    int HoldOff() const { return holdOff; }
    void SetHoldOff(int counts);
    TavikLibrary::eDynamicMasterMode Mode() const { return mode; }
    void SetMode(TavikLibrary::eDynamicMasterMode mode);

    /// Settings in network files.
    std::vector<KeptSetting> Kept();

private:
    void RequirePulses(int counts, const char* what) const;
    void RequireHoldOff(int counts) const;
    void RequireMode(TavikLibrary::eDynamicMasterMode mode) const;

    std::string identity;
    bool hasEncoder;
    int txSample = 1;
    int txSync = 1;
    int holdOff = 0;
    TavikLibrary::eDynamicMasterMode mode = TavikLibrary::eDynamicMasterMode::NotMaster;
};

} // namespace TavikSimulator
