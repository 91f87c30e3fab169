#pragma once

#include "library/TavikModuleRN.h"
#include "simulator/hardware/ModuleHardware.h"

#include <cstdint>
#include <optional>

namespace TavikSimulator {

/// A linear encoder. It counts from its datum, the count at one position of its tip: initially 0 at the lower range
/// limit, later the value of a preset or of a recall at the reference mark. Without power the datum is lost. The range
/// limits depend on the position only.
///
/// During a search for the reference mark a simulated operator moves the tip over the mark and back. Setters throw
/// TavikException, and change nothing, for a value that the encoder does not support.
class LinearEncoderHardware : public ModuleHardware {
public:
    explicit LinearEncoderHardware(const ModuleDescription& description);

    Reading ReadAt(Nanoseconds time) const override;
    /// Sets the count to 0 at the present position and ends a search.
    void PowerOn(Nanoseconds time) override;

    TavikLibrary::eDirection Direction() const { return direction; }
    /// Changes the counting direction at the present count.
    void SetDirection(TavikLibrary::eDirection direction, Nanoseconds time);
    void PresetInCounts(int counts, Nanoseconds time);
    void PresetInUnits(double value, Nanoseconds time);

    /// Start a search, in place of a running one. The recall value is used in recall mode only.
    void FindMarkInCounts(TavikLibrary::eReferenceMarkMode mode, int recallValue, Nanoseconds time);
    void FindMarkInUnits(TavikLibrary::eReferenceMarkMode mode, double recallValue, Nanoseconds time);
    bool IsSearching(Nanoseconds time) const;
    bool MarkFound(Nanoseconds time) const;
    /// Count at the mark, after a recall. Throw TavikException when the last search did not find the mark.
    int CountsAtMark(Nanoseconds time) const;
    double UnitsAtMark(Nanoseconds time) const;
    /// Does nothing without a search.
    void StopSearch(Nanoseconds time);

protected:
    /// The counting direction only: the datum is lost without power.
    std::vector<KeptSetting> KeptSettings(Nanoseconds time) override;

private:
    void RequireDirection(TavikLibrary::eDirection direction) const;

    /// Count at a position; positions in counts from the lower range limit.
    struct Datum {
        std::int64_t count = 0;
        std::int64_t position = 0;
    };
    struct Search {
        std::optional<int> recall; ///< in counts; none in learn mode
        Nanoseconds instant{};     ///< until which the tip has been followed
        double tip = 0.0;          ///< position at that time
    };
    /// Movement of the tip by the simulated operator.
    struct Operator {
        Nanoseconds comes{};
        double beyond = 0.0; ///< end of the movement, beyond the mark
    };

    /// Position of the tip for a position of the part.
    double TipFor(double part, Nanoseconds instant) const;
    double TipWithoutNoise(Nanoseconds instant) const;
    Reading PositionAt(Nanoseconds time) const;
    std::int64_t CountAt(std::int64_t position) const;
    int CountsOf(double value) const;
    void RequireCount(int counts) const;
    void RequireFound(Nanoseconds time) const;
    void RequireKnown(TavikLibrary::eReferenceMarkMode mode) const;
    void Find(std::optional<int> recall, Nanoseconds time);
    /// Follows the tip until a time, and ends the search at the mark.
    void Follow(Nanoseconds time) const;
    void StepTo(Nanoseconds instant) const;
    void EndAtMark() const;

    const double mark; ///< in the module's unit
    TavikLibrary::eDirection direction = TavikLibrary::eDirection::Normal;
    std::optional<Operator> simulatedOperator;
    mutable Datum datum;
    mutable std::optional<Search> search;
    mutable std::optional<int> foundCount;
};

} // namespace TavikSimulator
