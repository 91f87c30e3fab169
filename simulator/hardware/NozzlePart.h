#pragma once

namespace TavikSimulator {

/// Part on the air plug of an air gauge.
enum class NozzlePart { Nothing, MasterA, MasterB, WorkPiece };

} // namespace TavikSimulator
