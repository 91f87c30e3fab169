#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>

/// The entry that a fuzzer calls with one input after another; a replay calls it with the files of a corpus.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Ends the process, which is how a fuzzer is told that an input has shown a defect.
inline void RequireOfInput(bool holds, const char* what) {
    if (!holds) {
        std::cerr << "This input shows a defect: " << what << "\n";
        std::abort();
    }
}

inline std::string TextOfInput(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}
