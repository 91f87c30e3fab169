#pragma once

#include "library/TavikEnums.h"

#include <string>
#include <vector>

namespace TavikLibrary {

class NetworkBuffered;
class NetworkDifference;
class TavikDynamic;
class TavikModule;

/// One wired network: a controller and its modules in order. Modules, capabilities and speeds are read
/// only while the network is connected; asked for otherwise they throw TavikException.
class TavikNetwork {
public:
    class Implementation;
    explicit TavikNetwork(Implementation* implementation);
    virtual ~TavikNetwork();
    TavikNetwork(const TavikNetwork&) = delete;
    TavikNetwork& operator=(const TavikNetwork&) = delete;

    /// Connects to the controller. A failure shows as IsConnected() still false, not as an exception.
    virtual void Connect();
    /// Disconnects from the controller. Acquisition is to be stopped before.
    virtual void Disconnect();
    virtual bool DynamicCapable();
    virtual bool Dynamic2Capable();
    virtual bool DynamicExternalSourceCapable();

    std::string NetworkName();
    std::string ControllerID();
    std::string Description();
    eNetworkType NetworkType();
    bool IsConnected();

    int ModuleCount();
    /// The module at a list position, 0 to ModuleCount() - 1. Throws TavikException beyond. To be asked
    /// for again after every call that changes the list.
    TavikModule* GetModule(unsigned int index);
    /// The list position of a module by its identity; -1 when it is not in the list.
    int GetModuleIndexByID(std::string identity);

    /// Starts a notify run, in which modules announce themselves and are added to the list one by one.
    void BeginNotifying();
    bool Notifying();
    void CancelNotifying();

    /// Adds a module that is on the wire. The identity is 10 characters, upper-case letters and digits.
    /// The second text is the probe identity that is expected behind the module; empty for any.
    void AddModule(std::string identity, std::string probeIdentity);
    void DeleteModule(int index);
    void ClearModules();
    /// Clears what the network's connectors remember of the modules plugged into them.
    void ClearTCons();
    /// Makes the positions set by TavikModule::SetPosition take effect.
    void ApplyRemap();
    /// Finds modules that were replaced on the wire by one of their kind; they take the old ones' places.
    void FindHotswapped();
    /// Asks every module of the list for an answer; throws TavikException if one does not give it.
    void Ping();

    bool BufferedCapable();
    bool BufferedExternalSourceCapable();
    bool ReadBurstCapable();
    /// Number of modules, from the first on without a gap, that take part in a read burst.
    int ReadBurstCapableCount();
    /// Reads the modules 0 to count - 1 at one instant and leaves the readings in them as their last ones, each with
    /// a result code of its own. Returns the result code of the burst, 0 for success; count is set on success only.
    int Readburst(int& count);

    bool SpeedAvailable(eNetSpeed speed);
    std::vector<eNetSpeed> AvailableSpeeds();
    eNetSpeed NetSpeed();
    /// Throws TavikException if the controller or a module of the list cannot work at this speed.
    void setNetSpeed(eNetSpeed speed);

    /// Reads the network's description from an XML file; path in UTF-8.
    void Load(std::string path);
    /// Writes the network's description into an XML file; path in UTF-8.
    void Save(std::string path);

    NetworkBuffered* Buffered();
    NetworkDifference* Difference();
    TavikDynamic* Dynamic();

private:
    Implementation* implementation;
};

} // namespace TavikLibrary
