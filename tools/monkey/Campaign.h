#pragma once

#include "tools/monkey/Options.h"

/// Plays the events that the options ask for, in child processes; prints each failure with the steps that lead to it,
/// as few as can be, and the command that repeats it. Returns 0 when nothing failed, otherwise 1.
int RunCampaign(const Options& options);
