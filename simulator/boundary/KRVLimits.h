#pragma once

#include "simulator/boundary/HandToolSettings.h"

#include <string>

/// Tolerance limits of the tool in a slot.
class TavikLibrary::KRV_Limits::Implementation {
public:
    explicit Implementation(RLK_DeviceSettingsBase::Implementation& settings);

    RLK_DeviceSettingsBase::Implementation& settings;
    const std::string name; ///< in the journal
    KRV_Limit upper;
    KRV_Limit lower;
};

/// One tolerance limit of the tool in a slot.
class TavikLibrary::KRV_Limit::Implementation {
public:
    Implementation(RLK_DeviceSettingsBase::Implementation& settings, const char* kind,
                   double TavikSimulator::KRVSettings::*member);

    RLK_DeviceSettingsBase::Implementation& settings;
    const std::string name; ///< in the journal
    double TavikSimulator::KRVSettings::*const member;
};
