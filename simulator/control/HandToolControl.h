#pragma once

#include <string>

// What happens to the hand tools around a wireless connection module, steered by tests and demonstrations.
// Every function names the tool by its identity and throws TavikLibrary::TavikException when the current
// bench has no such tool. Like those of BenchControl.h they are no calls of the library.
namespace TavikSimulator {

/// The tool's user presses button 1 or 2. A sleeping tool is woken by it and does nothing else.
void PressToolButton(const std::string& toolIdentity, int button);
/// The tool's user switches it off and on again.
void PowerCycleTool(const std::string& toolIdentity);
/// The tool is carried out of the radio's reach, or back to where it was.
void CarryToolAway(const std::string& toolIdentity, bool away);
/// The tool leaves configuration mode by itself.
void DropToolConfigMode(const std::string& toolIdentity);

} // namespace TavikSimulator
