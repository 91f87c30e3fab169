#include "simulator/boundary/HandToolSettings.h"

#include "simulator/boundary/KRVLimits.h"

#include <sstream>

namespace TavikLibrary {

using TavikSimulator::HandTool;

RLK_DeviceSettingsBase::Implementation::Implementation(const TavikSimulator::SlotAccess& slotAccess,
                                                       eRLK_DeviceType toolType)
    : access(slotAccess),
      name(access.Named("settings")),
      type(toolType),
      limits(new KRV_Limits::Implementation(*this)) {}

void RLK_DeviceSettingsBase::Implementation::RequireType(const HandTool& tool) const {
    if (tool.Description().type != type) {
        TavikSimulator::Reject(eTavikErrors::NotSupported, "Hand tool " + tool.Identity() + " is a " +
                                                               eRLK_DeviceType_ToString(tool.Description().type) +
                                                               ", not a " + eRLK_DeviceType_ToString(type) + ".");
    }
}

void RLK_DeviceSettingsBase::Implementation::RejectValue(const char* what, double value, double least,
                                                         double most) const {
    std::ostringstream sentence;
    sentence.imbue(std::locale::classic());
    sentence << what << " must lie within " << least << " to " << most << ", not at " << value << ".";
    TavikSimulator::Reject(eTavikErrors::InvalidArgument, sentence.str());
}

RLK_DeviceSettingsBase::RLK_DeviceSettingsBase(Implementation* settings) : implementation(settings) {}

RLK_DeviceSettingsBase::~RLK_DeviceSettingsBase() {
    delete implementation;
}

void RLK_DeviceSettingsBase::setConfigMode(bool on) {
    const auto set = [&](HandTool& tool) {
        implementation->RequireType(tool);
        if (on) {
            tool.AskForConfigMode(implementation->access.Now());
        } else {
            tool.LeaveConfigMode(implementation->access.Now());
        }
    };
    implementation->access.ByRadio(implementation->name, "setConfigMode", set, on);
}

bool RLK_DeviceSettingsBase::EnteredConfigMode() {
    return implementation->access.module.OnBusOf(implementation->name, "EnteredConfigMode", [this] {
        const TavikSimulator::SlotAccess& access = implementation->access;
        HandTool* tool = access.Hardware().ToolOf(access.slot);
        return tool && tool->InConfigMode(access.Now());
    });
}

std::string RLK_DeviceSettingsBase::SendCommand(std::string command, bool waitForReply) {
    return implementation->Get(
        "SendCommand",
        [&](const HandTool& tool) {
            const std::string reply = tool.Reply(command);
            return waitForReply ? reply : std::string();
        },
        command, waitForReply);
}

} // namespace TavikLibrary
