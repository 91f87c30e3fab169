#pragma once

#include "library/TavikModulePNX.h"
#include "simulator/signals/AirGap.h"
#include "tests/simulator/Bench.h"

#include <memory>
#include <string>

// Air gauges for tests: a bench with one, and what its circuit makes of a part.

/// An air gauge on a still supply of 28 psi, unless the content of its <air-gauge> says otherwise.
inline std::string StillGauge(const std::string& attributes = std::string(), const std::string& steps = std::string(),
                              const std::string& moduleAttributes = std::string()) {
    return "<module type=\"PNX\" identity=\"PNX0000001\" " + moduleAttributes + "><air-gauge " + attributes +
           "><supply noise=\"0\" drift-amplitude=\"0\"/>" + steps + "</air-gauge></module>";
}

/// The same on the supply of a real workshop: with noise and drift.
inline std::string NoisyGauge(const std::string& attributes = std::string(),
                              const std::string& moduleAttributes = std::string()) {
    return "<module type=\"PNX\" identity=\"PNX0000001\" " + moduleAttributes + "><air-gauge " + attributes +
           "/></module>";
}

/// A bench with one air gauge, and the library on it.
class GaugeOnBench {
public:
    explicit GaugeOnBench(const std::string& gauge) {
        Use(OneNetwork(gauge));
        server = std::make_unique<ConnectedServer>();
        module = dynamic_cast<TavikLibrary::TavikModulePNX*>(server->Module(0));
    }
    TavikLibrary::TavikModulePNX* operator->() const { return module; }

    /// Hands the gauge something, and waits until no sample of what was there before is in a reading.
    static void PutIn(TavikSimulator::NozzlePart part) {
        TavikSimulator::PutInNozzle("N", "PNX0000001", part);
        TavikSimulator::AdvanceClock(0.1);
    }
    static void PutInWorkPiece(double size) {
        TavikSimulator::HoldPosition("N", "PNX0000001", size);
        TavikSimulator::AdvanceClock(0.1);
    }
    /// Masters the gauge as the operator does: the two pressures as read, and the sizes as told.
    void Master(double sizeA, double sizeB) const {
        PutIn(TavikSimulator::NozzlePart::MasterA);
        module->setMasterMinPressure(module->PressureReading());
        PutIn(TavikSimulator::NozzlePart::MasterB);
        module->setMasterMaxPressure(module->PressureReading());
        module->setMasterMinReadingInUOM(sizeA);
        module->setMasterMaxReadingInUOM(sizeB);
        module->ApplyMastering();
    }

    std::unique_ptr<ConnectedServer> server;
    TavikLibrary::TavikModulePNX* module = nullptr;
};

/// One count of the pressure sensor, in psi.
constexpr double PressureCount = 30.0 / 16383.0;

/// The pressure in the chamber with a part of this size in the nozzle, at 28 psi.
inline double PressureFor(double size, double clearance = 0.055) {
    return TavikSimulator::BackPressure(28.0, clearance + size / 2.0, {});
}
