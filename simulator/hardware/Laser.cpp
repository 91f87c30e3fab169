#include "simulator/hardware/Laser.h"

#include <algorithm>

namespace TavikSimulator {

using TavikLibrary::eFilter;
using TavikLibrary::eMeasuringRate;

namespace {

struct FilterRow {
    eFilter filter;
    const char* word;
    double cutoff;
};

const FilterRow Filters[] = {
    {eFilter::Filter20KHz, "20kHz", 20000.0}, {eFilter::Filter4KHz, "4kHz", 4000.0},
    {eFilter::Filter1KHz, "1kHz", 1000.0},    {eFilter::Filter200Hz, "200Hz", 200.0},
    {eFilter::Filter25Hz, "25Hz", 25.0},      {eFilter::Filter1Hz, "1Hz", 1.0},
    {eFilter::Filter0_1Hz, "0.1Hz", 0.1},
};

struct RateRow {
    eMeasuringRate rate;
    const char* word;
    double perSecond;
};

const RateRow Rates[] = {
    {eMeasuringRate::Rate100Hz, "100Hz", 100.0}, {eMeasuringRate::Rate500Hz, "500Hz", 500.0},
    {eMeasuringRate::Rate1KHz, "1kHz", 1000.0},  {eMeasuringRate::Rate2KHz, "2kHz", 2000.0},
    {eMeasuringRate::Rate4KHz, "4kHz", 4000.0},
};

} // namespace

const std::vector<std::pair<std::string, eFilter>>& FilterWords() {
    static const auto words = [] {
        std::vector<std::pair<std::string, eFilter>> all;
        for (const FilterRow& row : Filters) {
            all.emplace_back(row.word, row.filter);
        }
        return all;
    }();
    return words;
}

const std::vector<std::pair<std::string, eMeasuringRate>>& RateWords() {
    static const auto words = [] {
        std::vector<std::pair<std::string, eMeasuringRate>> all;
        for (const RateRow& row : Rates) {
            all.emplace_back(row.word, row.rate);
        }
        return all;
    }();
    return words;
}

std::optional<double> CutoffOf(eFilter filter) {
    for (const FilterRow& row : Filters) {
        if (row.filter == filter) {
            return row.cutoff;
        }
    }
    return std::nullopt;
}

std::optional<double> ValuesPerSecond(eMeasuringRate rate) {
    for (const RateRow& row : Rates) {
        if (row.rate == rate) {
            return row.perSecond;
        }
    }
    return std::nullopt;
}

bool Offers(const LaserDescription& laser, eMeasuringRate rate) {
    return std::find(laser.rates.begin(), laser.rates.end(), rate) != laser.rates.end();
}

} // namespace TavikSimulator
