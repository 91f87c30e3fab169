#include "simulator/boundary/KRVLimits.h"

namespace TavikLibrary {

using TavikSimulator::HandTool;
using TavikSimulator::KRVSettings;

namespace {

constexpr double LargestLimit = 9999.0;

} // namespace

KRV_Limits::Implementation::Implementation(RLK_DeviceSettingsBase::Implementation& owner)
    : settings(owner),
      name(owner.access.Named("limits")),
      upper(new KRV_Limit::Implementation(owner, "upper limit", &KRVSettings::upperLimit)),
      lower(new KRV_Limit::Implementation(owner, "lower limit", &KRVSettings::lowerLimit)) {}

KRV_Limits::KRV_Limits(Implementation* limits) : implementation(limits) {}

KRV_Limits::~KRV_Limits() {
    delete implementation;
}

bool KRV_Limits::Enabled() {
    return implementation->settings.GetOf(implementation->name, "Enabled",
                                          [](const HandTool& tool) { return tool.krv.limitsEnabled; });
}

void KRV_Limits::setEnabled(bool enabled) {
    implementation->settings.AskOf(
        implementation->name, "setEnabled", [&](HandTool& tool) { tool.krv.limitsEnabled = enabled; }, enabled);
}

KRV_Limit* KRV_Limits::Upper() {
    return implementation->settings.access.module.LocalOf(implementation->name, "Upper",
                                                          [this] { return &implementation->upper; });
}

KRV_Limit* KRV_Limits::Lower() {
    return implementation->settings.access.module.LocalOf(implementation->name, "Lower",
                                                          [this] { return &implementation->lower; });
}

KRV_Limit::Implementation::Implementation(RLK_DeviceSettingsBase::Implementation& owner, const char* kind,
                                          double KRVSettings::*limit)
    : settings(owner), name(owner.access.Named(kind)), member(limit) {}

KRV_Limit::KRV_Limit(Implementation* limit) : implementation(limit) {}

KRV_Limit::~KRV_Limit() {
    delete implementation;
}

double KRV_Limit::Value() {
    return implementation->settings.GetOf(implementation->name, "Value",
                                          [this](const HandTool& tool) { return tool.krv.*(implementation->member); });
}

void KRV_Limit::setValue(double value) {
    implementation->settings.AskOf(
        implementation->name, "setValue",
        [&](HandTool& tool) {
            implementation->settings.RequireWithin("A limit", value, -LargestLimit, LargestLimit);
            tool.krv.*(implementation->member) = value;
        },
        value);
}

} // namespace TavikLibrary
