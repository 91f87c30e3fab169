#include "simulator/hardware/WirelessHardware.h"

#include "simulator/hardware/ErrorTexts.h"

#include <algorithm>
#include <utility>

namespace TavikSimulator {

using TavikLibrary::eRLK_DeviceStatus;
using TavikLibrary::eRLK_DeviceType;
using TavikLibrary::eTavikErrors;

namespace {

constexpr Nanoseconds LongAgo = -LatestTime;

} // namespace

std::size_t CharacterCount(const std::string& text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

WirelessHardware::WirelessHardware(const ModuleDescription& moduleDescription)
    : ModuleHardware(moduleDescription),
      downUntil(LongAgo),
      connectingSince(LongAgo),
      failedRestartsLeft(moduleDescription.wireless.failedRestarts) {
    for (const ToolDescription& tool : moduleDescription.wireless.tools) {
        tools.push_back(std::make_unique<HandTool>(tool));
    }
    for (int slot = 0; slot < WirelessSlots; ++slot) {
        const SlotDescription& remembered = moduleDescription.wireless.slots[static_cast<std::size_t>(slot)];
        At(slot).written = remembered.identity;
        At(slot).name = remembered.name;
    }
    Connect(LongAgo);
}

bool WirelessHardware::Answers(Nanoseconds time) const {
    return ModuleHardware::Answers(time) && time >= downUntil;
}

void WirelessHardware::PowerOn(Nanoseconds time) {
    Connect(time);
}

void WirelessHardware::RequireSlot(int slot) {
    if (slot < 0 || slot >= WirelessSlots) {
        Reject(eTavikErrors::InvalidArgument,
               "A wireless connection module has the slots 0 to 5, but no slot " + std::to_string(slot) + ".");
    }
}

const WirelessHardware::Slot& WirelessHardware::At(int slot) const {
    RequireSlot(slot);
    return slots[static_cast<std::size_t>(slot)];
}

WirelessHardware::Slot& WirelessHardware::At(int slot) {
    return const_cast<Slot&>(std::as_const(*this).At(slot));
}

namespace {

void RequireToolIdentity(const std::string& identity) {
    if (!identity.empty() && !IsIdentity(identity)) {
        Reject(eTavikErrors::IdentityMalformed,
               "\"" + identity +
                   "\" is not the identity of a hand tool: that has 10 characters, upper-case letters and digits.");
    }
}

void RequireToolName(const std::string& name) {
    if (CharacterCount(name) > LongestToolName) {
        Reject(eTavikErrors::InvalidArgument, "\"" + name + "\" has more than 20 characters.");
    }
}

} // namespace

void WirelessHardware::SetIdentityIn(int slot, const std::string& identity) {
    RequireToolIdentity(identity);
    At(slot).written = identity;
}

void WirelessHardware::SetNameOf(int slot, const std::string& name) {
    RequireToolName(name);
    At(slot).name = name;
}

// A loaded identity becomes effective at the next restart, as a written one.
std::vector<KeptSetting> WirelessHardware::KeptSettings(Nanoseconds) {
    std::vector<KeptSetting> kept;
    for (int slot = 0; slot < WirelessSlots; ++slot) {
        const std::string number = std::to_string(slot + 1);
        kept.push_back({"identity-" + number, [this, slot] { return IdentityIn(slot); }, RequireToolIdentity,
                        [this, slot](const std::string& identity) { SetIdentityIn(slot, identity); }});
        kept.push_back({"name-" + number, [this, slot] { return NameOf(slot); }, RequireToolName,
                        [this, slot](const std::string& name) { SetNameOf(slot, name); }});
    }
    return kept;
}

void WirelessHardware::UpdateFields(int slot) {
    const HandTool* tool = ToolOf(slot);
    At(slot).knownType = tool ? tool->Description().type : eRLK_DeviceType::None;
}

eRLK_DeviceStatus WirelessHardware::StatusOf(int slot, Nanoseconds now) {
    if (At(slot).effective.empty()) {
        return eRLK_DeviceStatus::Empty;
    }
    HandTool* tool = ToolOf(slot);
    if (!tool) {
        return eRLK_DeviceStatus::Searching;
    }
    const Nanoseconds connectTime = tool->Description().link.connectTime;
    if (now - connectingSince < connectTime) {
        return now - connectingSince < connectTime / 2 ? eRLK_DeviceStatus::Searching : eRLK_DeviceStatus::Connecting;
    }
    if (!tool->IsInRange() || tool->Battery(now) == 0) {
        return eRLK_DeviceStatus::OutOfRange;
    }
    return tool->IsAsleep(now) ? eRLK_DeviceStatus::Asleep : eRLK_DeviceStatus::Connected;
}

HandTool* WirelessHardware::ToolOf(int slot) {
    const std::string& identity = At(slot).effective;
    for (int earlier = 0; earlier < slot; ++earlier) {
        if (At(earlier).effective == identity) {
            // A tool is connected to one slot only.
            return nullptr;
        }
    }
    return ToolNamed(identity);
}

HandTool& WirelessHardware::ConnectedTool(int slot, Nanoseconds now) {
    const std::string number = std::to_string(slot + 1);
    switch (StatusOf(slot, now)) {
    case eRLK_DeviceStatus::Empty:
        Reject(eTavikErrors::NotAvailable, "Slot " + number + " of module " + Identity() + " is empty.");
    case eRLK_DeviceStatus::Searching:
    case eRLK_DeviceStatus::Connecting:
        Reject(eTavikErrors::ModuleNotResponding, "Slot " + number + " of module " + Identity() +
                                                      " is not connected to hand tool " + At(slot).effective + ".");
    default:
        return *ToolOf(slot);
    }
}

void WirelessHardware::ComeUp() {
    downUntil = LongAgo;
}

void WirelessHardware::Reconnect(Nanoseconds now) {
    if (failedRestartsLeft > 0) {
        --failedRestartsLeft;
        Reject(eTavikErrors::ModuleNotResponding,
               "Module " + Identity() + " did not connect to its hand tools after its restart.");
    }
    Connect(now);
}

void WirelessHardware::Connect(Nanoseconds now) {
    connectingSince = now;
    for (Slot& slot : slots) {
        slot.effective = slot.written;
    }
    for (int slot = 0; slot < WirelessSlots; ++slot) {
        UpdateFields(slot);
    }
    for (const auto& tool : tools) {
        tool->DropConfigMode();
    }
}

HandTool* WirelessHardware::ToolNamed(const std::string& identity) {
    for (const auto& tool : tools) {
        if (tool->Identity() == identity) {
            return tool.get();
        }
    }
    return nullptr;
}

} // namespace TavikSimulator
