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

/// The module that triggers the syncs of a network's dynamic collection: an encoder interface or a digital I/O 2.
/// Throws what the library throws.
class DynamicMaster {
public:
    /// The master that is set on a network; none when that is missing or of another kind.
    static std::optional<DynamicMaster> Of(TavikLibrary::TavikNetwork& network);

    std::string Identity() const;
    TavikLibrary::eDynamicMasterMode Mode() const;
    void SetMode(TavikLibrary::eDynamicMasterMode mode) const;
    int CountsPerSync() const;
    /// The master takes the lowest 16 bits.
    void SetCountsPerSync(int counts) const;
    /// 0 for a master that cannot hold off.
    int HoldOffCounts() const;
    /// Does nothing on a master that cannot hold off.
    void SetHoldOffCounts(int counts) const;

    /// The row of a mode in the list of modes; -1 for a mode without one.
    static int RowOf(TavikLibrary::eDynamicMasterMode mode);
    /// None for a negative row. Throws std::runtime_error for a row beyond the list.
    static std::optional<TavikLibrary::eDynamicMasterMode> ModeOfRow(int row);

private:
    DynamicMaster(TavikLibrary::TavikModule& module, TavikLibrary::TavikModuleQTA* encoder,
                  TavikLibrary::TavikModuleSWAX2* pins);

    TavikLibrary::TavikModule* module;
    TavikLibrary::TavikModuleQTA* encoder; ///< null when it is the other kind
    TavikLibrary::TavikModuleSWAX2* pins;  ///< null when it is the other kind
};
