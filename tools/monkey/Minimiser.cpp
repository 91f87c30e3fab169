#include "tools/monkey/Minimiser.h"

#include <algorithm>

namespace {

Steps Without(const Steps& steps, std::size_t from, std::size_t count) {
    Steps rest(steps.begin(), steps.begin() + static_cast<std::ptrdiff_t>(from));
    const std::size_t end = std::min(from + count, steps.size());
    rest.insert(rest.end(), steps.begin() + static_cast<std::ptrdiff_t>(end), steps.end());
    return rest;
}

} // namespace

Steps Minimise(const Steps& steps, const std::function<bool(const Steps& steps)>& fails, int questions) {
    Steps rest = steps;
    std::size_t part = std::max<std::size_t>(1, rest.size() / 2);
    while (!rest.empty()) {
        bool shorter = false;
        for (std::size_t from = 0; from < rest.size() && questions > 0;) {
            --questions;
            const Steps without = Without(rest, from, part);
            if (fails(without)) {
                rest = without;
                shorter = true;
            } else {
                from += part;
            }
        }
        if (questions <= 0 || (part == 1 && !shorter)) {
            break;
        }
        part = std::max<std::size_t>(1, std::min(part / 2, rest.size()));
    }
    return rest;
}
