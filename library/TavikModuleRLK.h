#pragma once

#include "library/TavikModule.h"
#include "library/TavikRLKDevice.h"

namespace TavikLibrary {

/// A wireless connection module, host of up to six hand tools.
class TavikModuleRLK : public TavikModule {
public:
    explicit TavikModuleRLK(Implementation* implementation);
    ~TavikModuleRLK() override;

    RLK_Devices* Devices();
    /// Restarts the module so that it connects to the identities written last. Takes seconds, during which the
    /// module does not answer.
    void Restart();
};

} // namespace TavikLibrary
