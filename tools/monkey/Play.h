#pragma once

#include "tools/monkey/Options.h"

/// Plays in this process what the options say, and ends it with 3 at the first failure. Returns the exit code.
int PlayHere(int argc, char* argv[], const Options& options);
