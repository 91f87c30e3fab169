#pragma once

#include <optional>
#include <string>

namespace TavikLibrary {
class TavikModule;
class TavikModuleQTA;
class TavikModuleSWAX2;
class TavikNetwork;
enum class eDynamicMasterMode : int;
} // namespace TavikLibrary

/// A module that triggers the samples of buffered mode or the syncs of dynamic mode: an encoder interface or a digital
/// I/O 2. Propagates library exceptions.
class TriggerMaster {
public:
    /// The module at a position of a network's list; null if the list has no such position.
    static TavikLibrary::TavikModule* ModuleAt(TavikLibrary::TavikNetwork& network, int index);
    /// None for a null module and for a module of another type.
    static std::optional<TriggerMaster> Of(TavikLibrary::TavikModule* module);

    std::string Identity() const;

    int CountsPerSample() const;
    /// The master takes the lowest 16 bits.
    void SetCountsPerSample(int counts) const;
    int CountsPerSync() const;
    /// The master takes the lowest 16 bits.
    void SetCountsPerSync(int counts) const;
    /// 0 for a master that cannot hold off.
    int HoldOffCounts() const;
    /// Does nothing on a master that cannot hold off.
    void SetHoldOffCounts(int counts) const;

    TavikLibrary::eDynamicMasterMode Mode() const;
    void SetMode(TavikLibrary::eDynamicMasterMode mode) const;
    /// The row of a mode in the list of modes; -1 for a mode without one.
    static int RowOf(TavikLibrary::eDynamicMasterMode mode);
    /// None for a negative row. Throws std::runtime_error for a row beyond the list.
    static std::optional<TavikLibrary::eDynamicMasterMode> ModeOfRow(int row);

private:
    TriggerMaster(TavikLibrary::TavikModule& module, TavikLibrary::TavikModuleQTA* encoder,
                  TavikLibrary::TavikModuleSWAX2* inputs);

    TavikLibrary::TavikModule* module;
    TavikLibrary::TavikModuleQTA* encoder;  ///< null for a digital I/O 2
    TavikLibrary::TavikModuleSWAX2* inputs; ///< null for an encoder interface
};
