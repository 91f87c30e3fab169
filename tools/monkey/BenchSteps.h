#pragma once

#include "tools/monkey/Step.h"

// What happens on the bench while the program runs, as steps: "wait 0.25", "module-leaves Alpha KX00000001",
// "fault once throw * ReadInCounts 8449 \"No answer\"".

bool IsBenchStep(const Step& step);
/// Whether it came to pass; what the bench refuses (such as a module of another network) does not.
bool HappenOnBench(const Step& step);
