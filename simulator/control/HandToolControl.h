#pragma once

#include <string>

// Operates the hand tools of a wireless connection module from tests and demonstrations. Functions name the tool by its
// identity and throw TavikLibrary::TavikException when the current bench has no such tool. They are not library calls.
namespace TavikSimulator {

/// Presses button 1 or 2 of the tool. The press only wakes a sleeping tool.
void PressToolButton(const std::string& toolIdentity, int button);
/// Switches the tool off and on again.
void PowerCycleTool(const std::string& toolIdentity);
/// Carries the tool out of the radio's range, or back.
void CarryToolAway(const std::string& toolIdentity, bool away);
/// Makes the tool leave configuration mode without a command.
void DropToolConfigMode(const std::string& toolIdentity);

} // namespace TavikSimulator
