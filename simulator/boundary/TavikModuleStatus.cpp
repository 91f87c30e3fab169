#include "simulator/boundary/StatusImplementation.h"
#include "simulator/hardware/ErrorTexts.h"

namespace TavikLibrary {

namespace {

// Status numbers.
constexpr int Fine = 0;
constexpr int LastReadingDoubtful = 1; ///< with a warning, or beyond the measuring range
constexpr int HadNotAnswered = 2;      ///< and has not been read since

int StatusFor(int lastCode) {
    if (lastCode == static_cast<int>(eTavikErrors::NoError)) {
        return Fine;
    }
    return lastCode == static_cast<int>(eTavikErrors::ModuleNotResponding) ? HadNotAnswered : LastReadingDoubtful;
}

} // namespace

TavikModuleStatus::TavikModuleStatus(Implementation* status) : implementation(status) {}

TavikModuleStatus::~TavikModuleStatus() {
    delete implementation;
}

void TavikModuleStatus::UpdateStatus() {
    Implementation& self = *implementation;
    self.module.OnBusOf(self.name, "UpdateStatus", [&self] {
        self.errorCode = self.module.listed.last.code;
        self.status = StatusFor(self.errorCode);
    });
}

int TavikModuleStatus::Status() {
    Implementation& self = *implementation;
    return self.module.LocalOf(self.name, "Status", [&self] { return self.status; });
}

int TavikModuleStatus::ErrorCode() {
    Implementation& self = *implementation;
    return self.module.LocalOf(self.name, "ErrorCode", [&self] { return self.errorCode; });
}

std::string TavikModuleStatus::ErrorString() {
    Implementation& self = *implementation;
    return self.module.LocalOf(self.name, "ErrorString",
                               [&self] { return TavikSimulator::ErrorDescription(self.errorCode); });
}

} // namespace TavikLibrary
