#pragma once

#include "simulator/bench/BenchDescription.h"

#include <string>

namespace TavikSimulator {

/// Reads a bench file; path in UTF-8. Throws TavikException with file, line and reason.
BenchDescription ReadBenchFile(const std::string& path);

/// Reads the text of a bench file; messages name it as the file.
BenchDescription ReadBenchText(const std::string& text, const std::string& name);

/// Text of the compiled-in bench file.
const std::string& CompiledInBench();

} // namespace TavikSimulator
