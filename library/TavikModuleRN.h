#pragma once

#include "library/TavikModule.h"

namespace TavikLibrary {

/// Counting direction of a linear encoder.
enum class eDirection : int {
    Normal = 0,
    Reversed = 1,
};

/// What a search for the reference mark does when the mark passes.
enum class eReferenceMarkMode : int {
    Learn = 1,  ///< keeps the reading found at the mark
    Recall = 2, ///< sets the reading to the given value
};

/// A linear encoder. It is incremental: its datum is lost when it loses power.
class TavikModuleRN : public TavikModule {
public:
    explicit TavikModuleRN(Implementation* implementation);
    ~TavikModuleRN() override;

    eDirection Direction();
    void setDirection(eDirection direction);
    void setPresetInCounts(int counts);
    /// The value is in the unit of measure.
    void setPresetInUnits(double value);

    /// Starts a search for the reference mark; the recall value is in the unit of measure.
    void FindRefMark_Units(eReferenceMarkMode mode, double recallValue);
    /// Starts a search for the reference mark; the recall value is in counts.
    void FindRefMark_Counts(eReferenceMarkMode mode, int recallValue);
    bool RefmarkInProgress();
    bool RefmarkFound();
    double ReadInUnitsAtRefmark();
    int ReadInCountsAtRefmark();
    /// Abandons the search.
    void StopRefMark();
};

} // namespace TavikLibrary
