#include "tools/monkey/BenchSteps.h"

#include "library/TavikException.h"
#include "library/TavikModulePNX.h"
#include "simulator/control/BenchControl.h"
#include "simulator/control/HandToolControl.h"
#include "tools/bench/VirtualClock.h"

#include <QHash>

#include <functional>

using namespace TavikSimulator;

namespace {

std::string Text(const Step& step, int index) {
    return step.Word(index).toStdString();
}

FaultTrigger TriggerOf(const QString& word) {
    static const QHash<QString, FaultTrigger> triggers = {{QStringLiteral("once"), FaultTrigger::Once},
                                                          {QStringLiteral("nth"), FaultTrigger::Nth},
                                                          {QStringLiteral("from-nth"), FaultTrigger::FromNth},
                                                          {QStringLiteral("during"), FaultTrigger::During},
                                                          {QStringLiteral("probability"), FaultTrigger::Probability}};
    return triggers.value(word, FaultTrigger::Once);
}

FaultEffect EffectOf(const QString& word) {
    static const QHash<QString, FaultEffect> effects = {{QStringLiteral("throw"), FaultEffect::ThrowLibrary},
                                                        {QStringLiteral("throw-plain"), FaultEffect::ThrowPlain},
                                                        {QStringLiteral("slow"), FaultEffect::Slow},
                                                        {QStringLiteral("result"), FaultEffect::Result}};
    return effects.value(word, FaultEffect::ThrowLibrary);
}

/// "fault TRIGGER NUMBER EFFECT OPERATION CODE TEXT": the number is that of the call, the length of the time or the
/// probability; the effect "slow" takes 3 s.
void SetFault(const Step& step) {
    Fault fault;
    fault.trigger = TriggerOf(step.Word(1));
    fault.n = fault.trigger == FaultTrigger::Probability ? 1 : static_cast<std::uint64_t>(qMax(1.0, step.Number(2)));
    fault.duration = step.Number(2);
    fault.probability = fault.trigger == FaultTrigger::Probability ? step.Number(2) : 1.0;
    fault.effect = EffectOf(step.Word(3));
    fault.operation = Text(step, 4);
    fault.code = step.Word(5).toInt();
    fault.text = Text(step, 6);
    fault.delay = fault.effect == FaultEffect::Slow ? 3.0 : 0.0;
    AddFault(fault);
}

using Happening = std::function<void(const Step& step)>;

const QHash<QString, Happening>& Happenings() {
    static const QHash<QString, Happening> happenings = {
        {QStringLiteral("wait"), [](const Step& step) { VirtualClock::Pass(step.Number(1)); }},
        {QStringLiteral("fault"), SetFault},
        {QStringLiteral("no-faults"), [](const Step&) { ClearFaults(); }},
        {QStringLiteral("module-leaves"),
         [](const Step& step) { SetModulePresent(Text(step, 1), Text(step, 2), false); }},
        {QStringLiteral("module-returns"),
         [](const Step& step) { SetModulePresent(Text(step, 1), Text(step, 2), true); }},
        {QStringLiteral("network-drops"), [](const Step& step) { SetNetworkPresent(Text(step, 1), false); }},
        {QStringLiteral("network-returns"), [](const Step& step) { SetNetworkPresent(Text(step, 1), true); }},
        {QStringLiteral("hold-position"),
         [](const Step& step) { HoldPosition(Text(step, 1), Text(step, 2), step.Number(3)); }},
        {QStringLiteral("release-position"), [](const Step& step) { ReleasePosition(Text(step, 1), Text(step, 2)); }},
        {QStringLiteral("put-in-nozzle"),
         [](const Step& step) {
             PutInNozzle(Text(step, 1), Text(step, 2), static_cast<NozzlePart>(step.Word(3).toInt()));
         }},
        {QStringLiteral("unit-at-display"),
         [](const Step& step) {
             ChangeUnitAtDisplay(Text(step, 1), Text(step, 2),
                                 static_cast<TavikLibrary::ePNX_UOM>(step.Word(3).toInt()));
         }},
        {QStringLiteral("tool-button"), [](const Step& step) { PressToolButton(Text(step, 1), step.Word(2).toInt()); }},
        {QStringLiteral("tool-off-and-on"), [](const Step& step) { PowerCycleTool(Text(step, 1)); }},
        {QStringLiteral("tool-away"), [](const Step& step) { CarryToolAway(Text(step, 1), true); }},
        {QStringLiteral("tool-back"), [](const Step& step) { CarryToolAway(Text(step, 1), false); }},
        {QStringLiteral("tool-leaves-configuration"), [](const Step& step) { DropToolConfigMode(Text(step, 1)); }},
    };
    return happenings;
}

} // namespace

bool IsBenchStep(const Step& step) {
    return Happenings().contains(step.Verb());
}

bool HappenOnBench(const Step& step) {
    try {
        Happenings().value(step.Verb())(step);
        return true;
    } catch (const TavikLibrary::TavikException&) {
        return false;
    }
}
