#pragma once

namespace TavikSimulator {

/// What can be in the nozzle of an air gauge.
enum class NozzlePart { Nothing, MasterA, MasterB, WorkPiece };

} // namespace TavikSimulator
