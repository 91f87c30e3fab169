#include "simulator/acquisition/DifferenceTally.h"

#include "library/TavikEnums.h"
#include "simulator/hardware/ErrorTexts.h"

#include <algorithm>
#include <limits>

namespace TavikSimulator {

using TavikLibrary::eTavikErrors;

namespace {

constexpr int firstWarning = 0x10000;

int Severity(int code) {
    if (code == static_cast<int>(eTavikErrors::NoError)) {
        return 0;
    }
    if (code >= firstWarning) {
        return 1;
    }
    const bool beyondStroke =
        code == static_cast<int>(eTavikErrors::UnderRange) || code == static_cast<int>(eTavikErrors::OverRange);
    return beyondStroke ? 2 : 3;
}

int ToInt(std::int64_t value) {
    constexpr std::int64_t most = std::numeric_limits<int>::max();
    return static_cast<int>(std::min(value, most));
}

} // namespace

void DifferenceTally::Add(const Reading& reading, std::int64_t alike) {
    AddCode(reading.code);
    if (ComesWithoutReading(reading.code)) {
        return;
    }
    if (readings == 0 || reading.counts > highest.counts) {
        highest = reading;
    }
    if (readings == 0 || reading.counts < lowest.counts) {
        lowest = reading;
    }
    readings += alike;
    sumCounts += alike * reading.counts;
    sumUnits += static_cast<double>(alike) * reading.units;
}

void DifferenceTally::AddCode(int newCode) {
    if (Severity(newCode) > Severity(code)) {
        code = newCode;
    }
}

DifferenceValues DifferenceTally::Values() const {
    DifferenceValues values;
    const bool nothingYet = readings == 0 && code == static_cast<int>(eTavikErrors::NoError);
    values.code = nothingYet ? static_cast<int>(eTavikErrors::ReadingNotAvailable) : code;
    values.readings = ToInt(readings);
    values.maxCounts = highest.counts;
    values.minCounts = lowest.counts;
    values.diffCounts = ToInt(std::int64_t{highest.counts} - lowest.counts);
    values.sumCounts = sumCounts;
    values.max = highest.units;
    values.min = lowest.units;
    values.diff = highest.units - lowest.units;
    values.sum = sumUnits;
    return values;
}

} // namespace TavikSimulator
