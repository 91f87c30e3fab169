#include "simulator/boundary/ChannelReadings.h"

#include "simulator/hardware/ErrorTexts.h"

namespace TavikLibrary {

TavikChannelReadings::Implementation::Implementation(const TavikSimulator::SlotAccess& slotAccess,
                                                     const std::vector<TavikSimulator::ToolReading>& toolReadings)
    : access(slotAccess), name(slotAccess.Named("readings")) {
    for (const TavikSimulator::ToolReading& reading : toolReadings) {
        readings.push_back({reading.id, reading.stroke, reading.reading, reading.status, reading.tag});
    }
}

TavikChannelReadings::TavikChannelReadings() : implementation(new Implementation()) {}

TavikChannelReadings::TavikChannelReadings(Implementation* readings) : implementation(readings) {}

TavikChannelReadings::TavikChannelReadings(const TavikChannelReadings& other)
    : implementation(new Implementation(*other.implementation)) {}

TavikChannelReadings& TavikChannelReadings::operator=(const TavikChannelReadings& other) {
    if (this != &other) {
        auto* copy = new Implementation(*other.implementation);
        delete implementation;
        implementation = copy;
    }
    return *this;
}

TavikChannelReadings::~TavikChannelReadings() {
    delete implementation;
}

int TavikChannelReadings::ReadingCount() {
    const auto count = [this] { return static_cast<int>(implementation->readings.size()); };
    if (!implementation->access) {
        return count();
    }
    return implementation->access->module.LocalOf(implementation->name, "ReadingCount", count);
}

const TavikChannelReading& TavikChannelReadings::operator[](int channel) {
    const auto find = [this, channel] {
        if (channel < 0 || channel >= static_cast<int>(implementation->readings.size())) {
            TavikSimulator::Reject(eTavikErrors::InvalidArgument,
                                   "There is no reading of a channel " + std::to_string(channel) + ".");
        }
        return &implementation->readings[static_cast<std::size_t>(channel)];
    };
    if (!implementation->access) {
        return *find();
    }
    return *implementation->access->module.LocalOf(implementation->name, "operator[]", find, channel);
}

} // namespace TavikLibrary
