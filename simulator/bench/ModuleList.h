#pragma once

#include "simulator/bench/AllModules.h"
#include "simulator/bench/ListedModule.h"
#include "simulator/bench/NotifySchedule.h"
#include "simulator/bench/StoredNetwork.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace TavikSimulator {

class Bench;
class SimulatedNetwork;

/// The list of one network's modules, in order. Guarded by the bench's lock. Operations throw TavikException, and
/// change nothing, for what cannot be done.
class ModuleList {
public:
    ModuleList(Bench& bench, SimulatedNetwork& network, const std::vector<ModuleDescription>& modules);
    ~ModuleList();
    ModuleList(const ModuleList&) = delete;
    ModuleList& operator=(const ModuleList&) = delete;

    int Count() const { return static_cast<int>(list.size()); }
    /// The module at a list position. Throws TavikException when there is none.
    ListedModule& At(unsigned int index) const;
    int IndexOf(const std::string& identity) const;
    const ModuleHardware& HardwareAt(int index) const;
    std::vector<std::string> Identities() const;
    /// The modules in the list, in order.
    std::vector<ModuleHardware*> Listed() const;

    void Add(const std::string& identity, const std::string& probeIdentity);
    void Delete(int index);
    void Clear();
    void ClearConnectors();
    void RequirePosition(int position) const;
    void ApplyPositions();
    void TakeInReplacements();
    void RequireAllAnswer() const;
    /// Throws when a listed module does not answer, and stores that as its last result code.
    void RequireAnswer(const ModuleHardware& module) const;
    void RequireIndex(int index) const;
    /// Throws during a notify run or a collection, and while dynamic mode is enabled.
    void RequireChangeable() const;

    /// Contents of the list for a network file.
    std::vector<StoredModule> Stored(Nanoseconds now) const;
    /// Throws TavikException when the list cannot be restored, whatever its modules are.
    void RequireRestorable(const std::vector<StoredModule>& stored) const;
    /// Throws TavikException when one module and its settings cannot be restored at a speed.
    void RequireRestorable(const StoredModule& stored, TavikLibrary::eNetSpeed speed, Nanoseconds now) const;
    /// Restores the list and its modules' settings after both checks have passed. Modules that stay in the list keep
    /// their objects.
    void Restore(const std::vector<StoredModule>& stored, Nanoseconds now);

    void BeginNotifying(Nanoseconds now);
    bool Notifying() const { return notify.has_value(); }
    void CancelNotifying() { notify.reset(); }
    /// Appends the modules whose announcements are due.
    void ProgressNotifying(Nanoseconds now);

    /// All modules that belong to the network.
    AllModules& All() { return all; }

    /// Destroys the library's objects, including those of removed modules; the hardware stays unchanged.
    void EndObjects();

private:
    void Append(const std::shared_ptr<ModuleHardware>& hardware);
    void Retire(std::unique_ptr<ListedModule> module);
    void PutBackOnBus(std::unique_ptr<ListedModule> module);
    void WriteConnectors();
    std::shared_ptr<ModuleHardware> AddableOnBus(const std::string& identity, const std::string& probeIdentity) const;
    std::shared_ptr<ModuleHardware> ReplacementFor(const ListedModule& module) const;
    static void RequireFits(const ModuleDescription& old, const ModuleDescription& now);
    std::vector<int> TakeWantedPositions();

    Bench& bench;
    SimulatedNetwork& network;
    AllModules all;
    std::vector<std::unique_ptr<ListedModule>> list;
    std::vector<std::unique_ptr<ListedModule>> removed; ///< modules whose objects the front-end can still hold
    std::optional<NotifySchedule> notify;
};

} // namespace TavikSimulator
