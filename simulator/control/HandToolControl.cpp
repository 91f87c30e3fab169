#include "simulator/control/HandToolControl.h"

#include "simulator/bench/SimulatedNetwork.h"
#include "simulator/boundary/CurrentBench.h"
#include "simulator/hardware/ErrorTexts.h"
#include "simulator/hardware/WirelessHardware.h"

#include <mutex>

namespace TavikSimulator {

namespace {

HandTool& ToolNamed(Bench& bench, const std::string& identity) {
    for (const auto& network : bench.Networks()) {
        for (const auto& module : network->Modules().All()) {
            auto* wireless = dynamic_cast<WirelessHardware*>(module.get());
            HandTool* tool = wireless ? wireless->ToolNamed(identity) : nullptr;
            if (tool) {
                return *tool;
            }
        }
    }
    Reject(TavikLibrary::eTavikErrors::InvalidArgument, "The bench has no hand tool " + identity + ".");
}

template <class Action>
void OnTool(const std::string& identity, Action action) {
    const std::shared_ptr<Bench> bench = CurrentBench();
    const std::lock_guard lock(bench->gate.mutex);
    bench->AdvanceToNow();
    action(ToolNamed(*bench, identity), bench->clock.Now());
}

} // namespace

void PressToolButton(const std::string& toolIdentity, int button) {
    OnTool(toolIdentity, [button](HandTool& tool, Nanoseconds now) { tool.Press(button, now); });
}

void PowerCycleTool(const std::string& toolIdentity) {
    OnTool(toolIdentity, [](HandTool& tool, Nanoseconds now) { tool.PowerCycle(now); });
}

void CarryToolAway(const std::string& toolIdentity, bool away) {
    OnTool(toolIdentity, [away](HandTool& tool, Nanoseconds) { tool.CarryAway(away); });
}

void DropToolConfigMode(const std::string& toolIdentity) {
    OnTool(toolIdentity, [](HandTool& tool, Nanoseconds) { tool.DropConfigMode(); });
}

} // namespace TavikSimulator
