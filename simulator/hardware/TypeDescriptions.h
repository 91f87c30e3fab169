#pragma once

#include "library/TavikModuleHVX.h"
#include "library/TavikModuleLaser.h"
#include "library/TavikModuleQTA.h"
#include "simulator/signals/Nanoseconds.h"

#include <optional>
#include <string>
#include <vector>

// Descriptions for single module types in a bench file.
namespace TavikSimulator {

/// Output of an encoder on its channels A and B.
enum class EncoderOutput {
    Quadrature,     ///< two square waves a quarter of a line apart
    UpDown,         ///< a pulse per line, on A when it moves forward and on B when it moves back
    CountDirection, ///< a pulse per line on A; B is the direction
};

/// Encoder of an encoder interface.
struct EncoderDescription {
    EncoderOutput output = EncoderOutput::Quadrature;
    TavikLibrary::eEncoderInterfaceType wiring = TavikLibrary::eEncoderInterfaceType::Differential;
    std::optional<double> mark; ///< position of the reference mark, in lines
    double markEvery = 0.0;     ///< lines from one mark to the next; 0 for a single mark
};

/// Reference mark of a linear encoder, and the simulated operator that moves its tip.
struct LinearEncoderDescription {
    std::optional<double> mark; ///< in the module's unit; none: a quarter of the span from the lower range limit
    std::optional<Nanoseconds> operatorDelay =
        std::chrono::seconds(3); ///< from the start of a search until the operator moves the tip; none for never
};

/// An output that is wired to an input of the same module.
struct WireDescription {
    int from = 0;
    int to = 0;
};

/// Pulses at an input: high for a time, once every period.
struct PulsesDescription {
    int pin = 0;
    Nanoseconds period = std::chrono::seconds(1);
    Nanoseconds high = period / 2;
    Nanoseconds start{};
};

/// Pins of a digital I/O module. Bit i is pin i.
struct PinsDescription {
    int outputs = 0; ///< pins that are outputs when power comes on
    int inputs = 0;  ///< inputs that are held high
    int pullUps = 0; ///< wired inputs that a resistor pulls high; the others are pulled low
    std::vector<WireDescription> wires;
    std::vector<PulsesDescription> pulses;
    int debounceTime = 0; ///< in milliseconds
    unsigned short outputPolarity = 0x000F;
    unsigned short inputPolarity = 0x003F;
};

struct LaserDescription {
    bool beamOn = true;
    std::string model;
    std::string serial;
    std::string firmware;
    TavikLibrary::eFilter filter = TavikLibrary::eFilter::Filter20KHz;
    int levelCutTime = 0; ///< in steps of 0.1 ms
    int levelCutTimeMax = 500;
    std::vector<TavikLibrary::eMeasuringRate> rates; ///< on offer, in display order
    TavikLibrary::eMeasuringRate rate = TavikLibrary::eMeasuringRate::Rate1KHz;
};

/// Information about a module from a bench time on.
struct InformationChange {
    Nanoseconds at{};
    std::optional<std::string> deviceType;
    std::optional<std::string> softwareVersion;
    std::optional<std::string> probeIdentity;
};

struct ReadModeDescription {
    TavikLibrary::eHvxReadMode mode = TavikLibrary::eHvxReadMode::ReadContinuous;
    Nanoseconds switchEvery{}; ///< from one press of the switch to the next; 0 for no press
    std::optional<InformationChange> change;
};

} // namespace TavikSimulator
