#pragma once

#include "tools/monkey/Step.h"

#include <functional>

/// Leaves out of a list of steps what it can while the list still fails: halves first, then ever smaller parts, down to
/// single steps. Asks at most this often; a list that fails each time it is asked becomes one of which no step can be
/// left out, unless the questions run out before.
Steps Minimise(const Steps& steps, const std::function<bool(const Steps& steps)>& fails, int questions);
