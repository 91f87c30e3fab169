#pragma once

#include "library/TavikModuleRN.h"
#include "simulator/hardware/ModuleHardware.h"

#include <cstdint>
#include <optional>

namespace TavikSimulator {

/// A linear encoder. It counts from its datum, the count that belongs to one position of its tip: in the beginning
/// 0 at the lower limit of the stroke, later what a preset or a recall at the reference mark made of it. Without
/// power the datum is lost. Whether the tip is within the stroke depends on its position alone.
///
/// While a search for the reference mark is on, a simulated hand comes and moves the tip over the mark and back.
/// Setters throw TavikException, and change nothing, for a value that the encoder cannot use.
class LinearEncoderHardware : public ModuleHardware {
public:
    explicit LinearEncoderHardware(const ModuleDescription& description);

    Reading ReadAt(Nanoseconds time) const override;
    /// The count begins at 0 where the tip is now; a search is over.
    void PowerOn(Nanoseconds time) override;

    TavikLibrary::eDirection Direction() const { return direction; }
    /// The count goes on from where it is, the same way or the other.
    void SetDirection(TavikLibrary::eDirection direction, Nanoseconds time);
    void PresetInCounts(int counts, Nanoseconds time);
    void PresetInUnits(double value, Nanoseconds time);

    /// Both begin a search, in place of one that is on; the recall value matters in recall mode only.
    void FindMarkInCounts(TavikLibrary::eReferenceMarkMode mode, int recallValue, Nanoseconds time);
    void FindMarkInUnits(TavikLibrary::eReferenceMarkMode mode, double recallValue, Nanoseconds time);
    bool IsSearching(Nanoseconds time) const;
    bool MarkFound(Nanoseconds time) const;
    /// The count that the encoder had at the mark, after a recall. Both throw TavikException if the last search did not
    /// find it.
    int CountsAtMark(Nanoseconds time) const;
    double UnitsAtMark(Nanoseconds time) const;
    /// Nothing when no search is on.
    void StopSearch(Nanoseconds time);

protected:
    /// The direction; the datum is lost without power, and a file does not bring it back.
    std::vector<KeptSetting> KeptSettings(Nanoseconds time) override;

private:
    void RequireDirection(TavikLibrary::eDirection direction) const;

    /// The count that belongs to a position; positions in counts from the lower limit of the stroke.
    struct Datum {
        std::int64_t count = 0;
        std::int64_t position = 0;
    };
    struct Search {
        std::optional<int> recall; ///< in counts; none in learn mode
        Nanoseconds instant{};     ///< until which the tip has been followed
        double tip = 0.0;          ///< where it was then
    };
    /// The way of the simulated hand.
    struct Hand {
        Nanoseconds comes{};
        double beyond = 0.0; ///< how far it moves the tip
    };

    /// Where the tip is when the part in front of it is at a position.
    double TipFor(double part, Nanoseconds instant) const;
    double TipWithoutNoise(Nanoseconds instant) const;
    Reading PositionAt(Nanoseconds time) const;
    std::int64_t CountAt(std::int64_t position) const;
    int CountsOf(double value) const;
    void RequireCount(int counts) const;
    void RequireFound(Nanoseconds time) const;
    void RequireKnown(TavikLibrary::eReferenceMarkMode mode) const;
    void Find(std::optional<int> recall, Nanoseconds time);
    /// Follows the tip of a search until now, and ends the search where the tip passes the mark.
    void Follow(Nanoseconds time) const;
    void StepTo(Nanoseconds instant) const;
    void EndAtMark() const;

    const double mark; ///< in the module's unit
    TavikLibrary::eDirection direction = TavikLibrary::eDirection::Normal;
    std::optional<Hand> hand;
    mutable Datum datum;
    mutable std::optional<Search> search;
    mutable std::optional<int> foundCount;
};

} // namespace TavikSimulator
