#pragma once

#include "library/TavikDynamic.h"
#include "library/TavikModule.h"

#include <string>

namespace TavikLibrary {

/// What happens to the count when the encoder's reference mark passes.
enum class eRefAction : int {
    None = 0,
    ContinuousReset = 1,
    ContinuousPreset = 2,
    Reset = 3,
    Preset = 4,
};

/// How the encoder's edges are counted.
enum class eQuadratureMode : int {
    quadX1 = 0,
    quadX2 = 1,
    quadX4 = 2,
    CountAB = 3,
    CountDIR = 4,
};

/// How the encoder's signals are wired.
enum class eEncoderInterfaceType : int {
    Differential = 0,
    SingleEnded = 1,
};

std::string eRefAction_ToString(eRefAction action);
std::string eQuadratureMode_ToString(eQuadratureMode mode);
std::string eEncoderInterfaceType_ToString(eEncoderInterfaceType type);

/// An encoder interface.
class TavikModuleQTA : public TavikModule {
public:
    explicit TavikModuleQTA(Implementation* implementation);
    ~TavikModuleQTA() override;

    eRefAction RefAction();
    void setRefAction(eRefAction action);
    eQuadratureMode QuadratureMode();
    void setQuadratureMode(eQuadratureMode mode);
    eEncoderInterfaceType QtaInterfaceType();
    void setQtaInterfaceType(eEncoderInterfaceType type);
    /// The value that the count takes when it is preset, in counts.
    int PresetInCounts();
    void setPresetInCounts(int counts);

    /// Counts between two samples of a buffered collection that this module triggers.
    short TxSample();
    void setTxSample(short counts);
    eDynamicMasterMode DynamicMasterMode();
    void setDynamicMasterMode(eDynamicMasterMode mode);
    /// Counts between two syncs of a dynamic collection that this module triggers.
    short TxSync();
    void setTxSync(short counts);
    /// Counts before the first sync in the hold-off mode.
    int HoldOff();
    void setHoldOff(int counts);
};

} // namespace TavikLibrary
