#pragma once

#include "simulator/bench/BenchDescription.h"

#include <string>

namespace TavikSimulator {

/// Reads a bench file; path in UTF-8. Throws TavikException with file, line and reason.
BenchDescription ReadBenchFile(const std::string& path);

/// Reads the text of a bench file; the name stands for the file in messages.
BenchDescription ReadBenchText(const std::string& text, const std::string& name);

/// The text of the bench file that is compiled in.
const std::string& CompiledInBench();

} // namespace TavikSimulator
