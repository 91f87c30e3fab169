#pragma once

#include "library/TavikModule.h"
#include "simulator/bench/Description.h"
#include "simulator/bench/NetworkFile.h"
#include "simulator/bench/NotifyRun.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace TavikSimulator {

class Bench;
class ModuleHardware;
class SimulatedNetwork;

/// The modules of one network: those in its list, in order, and those that are only on the wire. Guarded
/// by the bench's lock. Operations that refuse something throw TavikException and change nothing.
class ModuleList {
public:
    ModuleList(Bench& bench, SimulatedNetwork& network, const std::vector<ModuleDescription>& modules);
    ~ModuleList();
    ModuleList(const ModuleList&) = delete;
    ModuleList& operator=(const ModuleList&) = delete;

    int Count() const { return static_cast<int>(list.size()); }
    /// The library's object for a list position; the same one as long as the module stays in the list.
    TavikLibrary::TavikModule* At(unsigned int index);
    /// What is behind that object.
    TavikLibrary::TavikModule::Implementation& ImplementationAt(int index);
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
    void RequireAnswer(int index, double now) const;
    void RequireIndex(int index) const;
    /// Neither a notify run nor a collection is going on.
    void RequireChangeable() const;

    /// The list as a network file keeps it.
    std::vector<StoredModule> Stored(double now) const;
    /// Throws TavikException when the list cannot become what a network file says, whatever its modules are.
    void RequireRestorable(const std::vector<StoredModule>& stored) const;
    /// The same for one module and its settings, working at a speed.
    void RequireRestorable(const StoredModule& stored, TavikLibrary::eNetSpeed speed, double now) const;
    /// Makes the list and its modules' settings what a network file says that both have passed. Modules that stay in
    /// the list keep their objects.
    void Restore(const std::vector<StoredModule>& stored, double now);

    void BeginNotifying(double now);
    bool Notifying() const { return notify.has_value(); }
    void CancelNotifying() { notify.reset(); }
    /// Lets the modules in whose time has come.
    void ProgressNotifying(double now);

    /// All modules that belong to the network, listed or not.
    std::vector<ModuleHardware*> OnBench() const;
    /// The module of an identity, listed or not. Throws TavikException when the bench has none.
    ModuleHardware& OnBench(const std::string& identity);
    void SetPresent(const std::string& identity, bool present, double now);
    bool IsOnBench(const std::string& identity) const { return FindOnBench(identity) != nullptr; }
    /// A new module in the place of a listed one; Unknown stands for one of the same kind.
    void Replace(const std::string& oldIdentity, const std::string& newIdentity, TavikLibrary::eModuleType type);

    /// Ends the library's objects, also of modules that were removed; the modules stay as they are.
    void EndObjects();

private:
    struct Entry {
        std::shared_ptr<ModuleHardware> hardware;
        TavikLibrary::TavikModule::Implementation* implementation = nullptr; ///< belongs to the module
        std::unique_ptr<TavikLibrary::TavikModule> module;                   ///< made when asked for
        std::string connector; ///< the identity that its T-connector remembers
    };

    void Append(const std::shared_ptr<ModuleHardware>& hardware);
    void Retire(Entry& entry);
    void PutBackOnWire(Entry& entry);
    void WriteConnectors();
    std::shared_ptr<ModuleHardware> FindOnBench(const std::string& identity) const;
    std::shared_ptr<ModuleHardware> AddableOnWire(const std::string& identity, const std::string& probeIdentity) const;
    std::shared_ptr<ModuleHardware> ReplacementFor(const Entry& entry) const;
    void RequireFits(const Entry& entry, const ModuleHardware& replacement) const;
    std::vector<int> WantedPositions() const;
    void ForgetWantedPositions();

    Bench& bench;
    SimulatedNetwork& network;
    std::vector<Entry> list;
    std::vector<std::shared_ptr<ModuleHardware>> modules; ///< all that belong to the network
    std::vector<std::unique_ptr<TavikLibrary::TavikModule>> removed;
    std::optional<NotifyRun> notify;
};

} // namespace TavikSimulator
