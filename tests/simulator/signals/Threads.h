#pragma once

#include <cstddef>
#include <functional>
#include <thread>
#include <vector>

/// Asks for the values 0 to count - 1 from several threads at once, each thread in another order and
/// each for all of them; answers with one vector of values per thread.
inline std::vector<std::vector<double>> AskedFromThreads(std::size_t count,
                                                         const std::function<double(std::size_t)>& value) {
    // Odd strides: with a power of two as count every thread visits every value.
    const std::vector<std::size_t> strides{1, 3, 77, count - 1};
    std::vector<std::vector<double>> answers(strides.size(), std::vector<double>(count));
    std::vector<std::thread> threads;
    for (std::size_t t = 0; t < strides.size(); ++t) {
        threads.emplace_back([&, t] {
            for (std::size_t i = 0; i < count; ++i) {
                const std::size_t asked = i * strides[t] % count;
                answers[t][asked] = value(asked);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    return answers;
}
