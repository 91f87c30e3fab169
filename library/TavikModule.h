#pragma once

#include "library/TavikEnums.h"

#include <string>

namespace TavikLibrary {

class ModuleBuffered;
class ModuleDifference;

/// The status record of one module.
class TavikModuleStatus {
public:
    class Implementation;
    explicit TavikModuleStatus(Implementation* implementation);
    ~TavikModuleStatus();
    TavikModuleStatus(const TavikModuleStatus&) = delete;
    TavikModuleStatus& operator=(const TavikModuleStatus&) = delete;

    /// Asks the module for its current status; the other operations answer from the last update.
    void UpdateStatus();
    int Status();
    int ErrorCode();
    std::string ErrorString();

private:
    Implementation* implementation;
};

/// The base of all modules. The order of the virtual operations is part of the interface.
class TavikModule {
public:
    class Implementation;
    virtual ~TavikModule();
    TavikModule(const TavikModule&) = delete;
    TavikModule& operator=(const TavikModule&) = delete;

    virtual bool BufferedCapable();
    /// Whether the module can trigger the samples of a buffered collection.
    virtual bool BufferedMasterCapable();
    virtual double CountsPerUnitOfMeasure();
    virtual std::string DeviceType();
    virtual bool DifferenceCapable();
    virtual bool DynamicCapable();
    virtual bool Dynamic2Capable();
    /// Whether the module can trigger the syncs of a dynamic collection.
    virtual bool DynamicMasterCapable();
    virtual bool HotSwappable();
    /// Throws TavikException with the code 255 on a module that has no probe identity.
    virtual std::string ProbeIdentity();
    /// The module's 10-character identity.
    virtual std::string Identity();
    virtual TavikModuleStatus* Status();
    virtual eModuleType ModuleType();
    /// Where the measuring range begins, in the unit of measure.
    virtual double Offset();
    virtual bool ReadBurstCapable();
    virtual int ReadInCounts();
    /// The reading in the unit of measure.
    virtual double ReadInUnits();
    /// Sets the 0-based list position that TavikNetwork::ApplyRemap makes effective.
    virtual void SetPosition(int position);
    virtual bool SpeedAvailable(eNetSpeed speed);
    /// The length of the measuring range, in the unit of measure.
    virtual double Stroke();
    virtual std::string SoftwareVersion();
    /// The text of the unit of measure, for example "mm".
    virtual std::string UnitsOfMeasure();

    ModuleBuffered* Buffered();
    ModuleDifference* Difference();
    /// The result code of the last reading.
    int LastResultCode();
    int LastReadingInCounts();
    double LastReadingInUnits();

protected:
    explicit TavikModule(Implementation* implementation);
    Implementation* const implementation;
};

} // namespace TavikLibrary
