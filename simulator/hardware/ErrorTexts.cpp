#include "simulator/hardware/ErrorTexts.h"

#include "library/TavikException.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

namespace TavikSimulator {

using TavikLibrary::eTavikErrors;

namespace {

struct ErrorText {
    eTavikErrors error;
    const char* name;
    const char* sentence;
};

const ErrorText Texts[] = {
    {eTavikErrors::NoError, "No error", "No error."},
    {eTavikErrors::NotAvailable, "Not available", "The value does not exist on this module."},
    {eTavikErrors::NetworkNotConnected, "Network not connected", "The network is not connected."},
    {eTavikErrors::NetworkNotResponding, "Network not responding", "The network's controller does not answer."},
    {eTavikErrors::ControllerNotFound, "Controller not found", "The controller was not found on this computer."},
    {eTavikErrors::SpeedNotAvailable, "Speed not available",
     "The controller or one of the modules cannot work at this speed."},
    {eTavikErrors::NotifyRunning, "Notify running", "A notify run is going on; stop it first."},
    {eTavikErrors::AcquisitionRunning, "Acquisition running", "Readings are being collected; stop that first."},
    {eTavikErrors::IdentityMalformed, "Identity malformed",
     "A module identity has 10 characters, upper-case letters and digits."},
    {eTavikErrors::IdentityUnknown, "Identity unknown", "No module with this identity answers on the network."},
    {eTavikErrors::IdentityDuplicate, "Identity duplicate", "The module is in the list already."},
    {eTavikErrors::ModuleIndexOutOfRange, "Index out of range", "There is nothing at this position of the list."},
    {eTavikErrors::PositionInvalid, "Position invalid",
     "The new positions do not give every module a place of its own."},
    {eTavikErrors::NetworkFull, "Network full", "The network holds as many modules as it can."},
    {eTavikErrors::HotSwapMismatch, "Hot swap mismatch", "A module was replaced by one that cannot take its place."},
    {eTavikErrors::ModuleNotResponding, "Module not responding", "The module does not answer."},
    {eTavikErrors::ModuleRemoved, "Module removed", "The module has been removed from the network's list."},
    {eTavikErrors::ReadingNotAvailable, "Reading not available", "The module has no reading to give yet."},
    {eTavikErrors::InvalidArgument, "Invalid argument", "A value was handed over that cannot be used."},
    {eTavikErrors::NotSupported, "Not supported", "The module does not support this operation."},
    {eTavikErrors::UnderRange, "Under range", "The reading lies below the module's measuring range."},
    {eTavikErrors::OverRange, "Over range", "The reading lies above the module's measuring range."},
    {eTavikErrors::SignalFault, "Signal fault",
     "The encoder's signals make no sense; it is wired in another way than the interface is set to."},
    {eTavikErrors::BeamOff, "Beam off", "The laser's beam is off."},
    {eTavikErrors::NoModuleEnabled, "No module enabled", "No module is enabled for the run."},
    {eTavikErrors::StopAwaited, "Stop awaited", "The last run has ended by itself; stop it first."},
    {eTavikErrors::BufferOverrun, "Buffer overrun", "The module's buffer was full; later readings were lost."},
    {eTavikErrors::DroppedOut, "Dropped out", "The module dropped out of the collection."},
    {eTavikErrors::NoSuchReading, "No such reading", "There is no reading at this index."},
    {eTavikErrors::NotRunning, "Not running", "Nothing is being collected in this mode."},
    {eTavikErrors::MarkNotFound, "Mark not found", "The linear encoder's reference mark has not been found."},
    {eTavikErrors::DynamicEnabled, "Dynamic mode enabled",
     "The network is enabled for dynamic mode; disable that first."},
    {eTavikErrors::DynamicNotPossible, "Dynamic mode not possible", "The settings of dynamic mode do not go together."},
    {eTavikErrors::DynamicNotReady, "Dynamic mode not ready", "Dynamic mode has not been enabled or prepared."},
    {eTavikErrors::SyncsDropped, "Syncs dropped", "The memory was full; the oldest syncs made room for later ones."},
    {eTavikErrors::SyncsMissed, "Syncs missed", "The master triggered faster than the modules can answer."},
    {eTavikErrors::ReadingUnsettled, "Reading unsettled",
     "Warning: the reading was taken before the module had settled."},
    {eTavikErrors::NotMastered, "Not mastered", "Warning: the reading was taken by an air gauge that is not mastered."},
    {eTavikErrors::BelowLimit, "Below limit", "Warning: the reading lies below the limit set on the hand tool."},
    {eTavikErrors::AboveLimit, "Above limit", "Warning: the reading lies above the limit set on the hand tool."},
};

const ErrorText* Find(int code) {
    const auto found = std::find_if(std::begin(Texts), std::end(Texts),
                                    [code](const ErrorText& text) { return static_cast<int>(text.error) == code; });
    return found == std::end(Texts) ? nullptr : found;
}

std::string Unknown(int code, const char* end) {
    char text[64];
    std::snprintf(text, sizeof text, "Unknown error code %d (0x%X)%s", code, static_cast<unsigned>(code), end);
    return text;
}

} // namespace

std::string ErrorName(int code) {
    const ErrorText* text = Find(code);
    return text ? text->name : Unknown(code, "");
}

std::string ErrorDescription(int code) {
    const ErrorText* text = Find(code);
    return text ? text->sentence : Unknown(code, ".");
}

bool ComesWithoutReading(int code) {
    return code == static_cast<int>(eTavikErrors::ReadingNotAvailable) ||
           code == static_cast<int>(eTavikErrors::SignalFault) || code == static_cast<int>(eTavikErrors::BeamOff);
}

void Reject(eTavikErrors error, const std::string& sentence) {
    throw TavikLibrary::TavikException(static_cast<int>(error), sentence);
}

} // namespace TavikSimulator
