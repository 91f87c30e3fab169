#pragma once

#include "simulator/bench/Fault.h"
#include "simulator/bench/JournalEntry.h"
#include "simulator/hardware/NozzlePart.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace TavikLibrary {
enum class ePNX_UOM : int;
} // namespace TavikLibrary

// Operates the simulated bench behind libTavikLibrary.so from tests and demonstrations.
//
// A process has one current bench. The Use... functions replace it by a new bench with an empty journal, a call count
// of 0 and only the faults of its file. The next TavikServer uses the current bench and keeps it. A bench outlives its
// server, so that the journal can be read after the window is closed. A TavikServer or a function below that finds no
// current bench creates one from the file that TAVIK_BENCH names, else from the compiled-in bench file.
//
// Functions are safe from any thread, also during calls of the library. They throw TavikLibrary::TavikException on
// failure. They are not library calls: they are not counted, journaled, delayed or made to fail.
namespace TavikSimulator {

// ---- The bench -------------------------------------------------------------------------------------

/// Uses a new bench of the compiled-in bench file.
void UseDefaultBench();
/// Uses a new bench of a bench file; path in UTF-8. Throws with file, line and reason.
void UseBenchFile(const std::string& path);
/// Uses a new bench of the text of a bench file; messages name it as the file.
void UseBenchText(const std::string& text, const std::string& name);
/// Uses a new bench of the text of a bench file with a stopped clock at 0 and without latency, whatever the text says:
/// results do not depend on the load of the computer.
void UseStillBenchText(const std::string& text, const std::string& name);
/// Text of the compiled-in bench file.
std::string DefaultBenchText();

// ---- Time ------------------------------------------------------------------------------------------

/// Runs bench time with the computer's clock at this speed (bench seconds per second, above 0), from the present bench
/// time. A new bench runs at speed 1.
void UseRealClock(double speed = 1.0);
/// Stops bench time. AdvanceClock and the durations of calls advance it.
void UseManualClock();
/// Advances a stopped clock by 0 s or more; rejected on a running one. Rounded to whole nanoseconds.
void AdvanceClock(double seconds);
/// Seconds since the bench was created.
double BenchTime();
/// Turns the latency of calls on or off. A new bench has latency unless its file says otherwise. Delays of faults pass
/// without latency too.
void SetLatency(bool on);

// ---- Journal ---------------------------------------------------------------------------------------

/// Starts an empty journal. Beyond the capacity the oldest entries are overwritten.
void StartJournal(std::size_t capacity = 1000000);
void StopJournal();
void ClearJournal();
/// Returns the kept entries in the order of their numbers.
std::vector<JournalEntry> Journal();
/// Number of entries that were overwritten since the journal was started.
std::uint64_t JournalDropped();
// ---- Faults ----------------------------------------------------------------------------------------

/// Adds a fault and returns its number. Throws for a fault that can never take effect, such as a probability outside 0
/// to 1.
int AddFault(const Fault& fault);
void RemoveFault(int number);
/// Removes all faults, including those of the bench file and that of FailCall.
void ClearFaults();

/// Makes the k-th call from now fail (k from 1), whatever its object and operation; with everyCallAfter all calls after
/// it as well. Replaces the previous FailCall. Calls that never fail (destructors, GetErrorDescription) are not
/// counted.
void FailCall(std::uint64_t k, int code = 0x2101, const std::string& text = std::string(), bool everyCallAfter = false);
/// Makes the k-th call from now throw std::runtime_error; otherwise like FailCall.
void FailCallPlainly(std::uint64_t k, const std::string& text, bool everyCallAfter = false);

/// Number of calls that any fault affected since the bench was created.
std::uint64_t FaultsTriggered();
/// Number of calls that one fault affected; valid after its removal too.
std::uint64_t FaultsTriggered(int number);
/// The call that a fault affected last, without its result; available without a journal. Its number is 0 before the
/// first one.
JournalEntry LastFaultedCall();

/// Number of library calls since the bench was created, without those that never fail.
std::uint64_t CallCount();

// ---- What happens on the bench ---------------------------------------------------------------------

/// Unplugs a module, which stops responding, or plugs it in again.
void SetModulePresent(const std::string& networkName, const std::string& identity, bool present);
/// Unplugs a controller, which disconnects its network, or plugs it in again.
void SetNetworkPresent(const std::string& networkName, bool present);
/// Plugs another module of the same type into the T-connector of a listed one, which is unplugged. FindHotswapped finds
/// it.
void ReplaceModule(const std::string& networkName, const std::string& oldIdentity, const std::string& newIdentity);
/// Plugs a module of another type, by its name ("KX", "SWAX2", ...), into the T-connector of a listed one, which is
/// unplugged.
void ReplaceModule(const std::string& networkName, const std::string& oldIdentity, const std::string& newIdentity,
                   const std::string& newType);
/// Holds the measurand of a gauge at a position, in the gauge's unit, without motion and noise.
void HoldPosition(const std::string& networkName, const std::string& identity, double position);
/// Restores the signal that the bench file describes.
void ReleasePosition(const std::string& networkName, const std::string& identity);

/// Puts a part on the air plug of an air gauge until ReleasePosition. The work piece has the size that the bench file
/// describes, or that of HoldPosition, which puts it on the air plug as well.
void PutInNozzle(const std::string& networkName, const std::string& identity, NozzlePart part);
/// Changes the unit at an air gauge's own display. The library must read the module's information again. Rejected for a
/// wrong pass code and for a gauge without a display.
void ChangeUnitAtDisplay(const std::string& networkName, const std::string& identity, TavikLibrary::ePNX_UOM unit,
                         int passcode = 0);

/// Identities in a network's list, connected or not, without a library call.
std::vector<std::string> ListedModules(const std::string& networkName);
/// Number of calls on modules that had been removed from the list. It is 0 for a front-end that gets its modules anew
/// after every change of the list.
std::uint64_t CallsOnRemovedModules();

} // namespace TavikSimulator
