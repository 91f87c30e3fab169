#include "simulator/boundary/ModuleClasses.h"

#include "library/TavikModuleDigitalIO.h"
#include "library/TavikModuleHVX.h"
#include "library/TavikModuleKX.h"
#include "library/TavikModuleLaser.h"
#include "library/TavikModulePNX.h"
#include "library/TavikModuleQTA.h"
#include "library/TavikModuleRLK.h"
#include "library/TavikModuleRN.h"

namespace TavikSimulator {

using namespace TavikLibrary;

std::unique_ptr<TavikModule> MakeModule(eModuleType type, TavikModule::Implementation* implementation) {
    switch (type) {
    case eModuleType::KX:
        return std::make_unique<TavikModuleKX>(implementation);
    case eModuleType::RN:
        return std::make_unique<TavikModuleRN>(implementation);
    case eModuleType::QTA:
        return std::make_unique<TavikModuleQTA>(implementation);
    case eModuleType::HVX:
        return std::make_unique<TavikModuleHVX>(implementation);
    case eModuleType::SWAX:
        return std::make_unique<TavikModuleSWAX>(implementation);
    case eModuleType::BW:
        return std::make_unique<TavikModuleBW>(implementation);
    case eModuleType::BWR:
        return std::make_unique<TavikModuleBWR>(implementation);
    case eModuleType::BWK:
        return std::make_unique<TavikModuleBWK>(implementation);
    case eModuleType::RLK:
        return std::make_unique<TavikModuleRLK>(implementation);
    case eModuleType::SWAX2:
        return std::make_unique<TavikModuleSWAX2>(implementation);
    case eModuleType::PNX:
        return std::make_unique<TavikModulePNX>(implementation);
    case eModuleType::Unknown:
        break;
    }
    return nullptr;
}

} // namespace TavikSimulator
