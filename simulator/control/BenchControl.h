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

// How tests and demonstrations steer the simulated bench behind libTavikLibrary.so.
//
// There is one current bench per process. The Use... functions replace it by a fresh one with an empty
// journal, no calls counted and only the faults of its file; the next TavikServer takes the current bench
// and keeps it. A bench outlives its server, so that the journal can be read after the window has closed.
// A TavikServer, or any function below, that finds no current bench makes one: of the file that
// TAVIK_BENCH names, or else the one that is compiled in.
//
// Every function may be called from any thread, also while calls are running, and throws
// TavikLibrary::TavikException when it cannot do what is asked of it. None of them is a call of the
// library: none is counted, journaled, delayed or made to fail.
namespace TavikSimulator {

// ---- The bench -------------------------------------------------------------------------------------

/// A fresh bench of the kind that is compiled in.
void UseDefaultBench();
/// A fresh bench described by a bench file; path in UTF-8. Throws with file, line and reason.
void UseBenchFile(const std::string& path);
/// A fresh bench described by the text of a bench file; the name stands for the file in messages.
void UseBenchText(const std::string& text, const std::string& name);
/// The same, but its clock stands still at 0 and its calls take no time, whatever the text says: what follows is
/// the same however busy the computer is.
void UseStillBenchText(const std::string& text, const std::string& name);
/// The text of the bench file that is compiled in.
std::string DefaultBenchText();

// ---- Time ------------------------------------------------------------------------------------------

/// The bench's time runs with the computer's clock, this many times as fast (more than 0). It goes on
/// from where it stands. A fresh bench runs in real time.
void UseRealClock(double speed = 1.0);
/// The bench's time stands still, but for AdvanceClock and the time that calls take.
void UseManualClock();
/// Lets time pass on a manual clock; refused on a real one.
void AdvanceClock(double seconds);
/// Seconds since the bench was made.
double BenchTime();
/// Whether calls take the time that they take on real networks. A fresh bench has latency unless its
/// file says otherwise. With latency off, delays of faults still pass.
void SetLatency(bool on);

// ---- Journal ---------------------------------------------------------------------------------------

/// Starts the journal, empty; the oldest entries make room for new ones beyond the capacity.
void StartJournal(std::size_t capacity = 1000000);
void StopJournal();
void ClearJournal();
/// The entries kept, in the order of their numbers.
std::vector<JournalEntry> Journal();
/// How many entries had to make room since the journal was started.
std::uint64_t JournalDropped();
// ---- Faults ----------------------------------------------------------------------------------------

/// Sets a fault and returns its number, by which it can be removed. Throws on a fault that can never
/// take effect (such as a probability beyond 0 to 1).
int AddFault(const Fault& fault);
void RemoveFault(int number);
/// Removes all faults, those of the bench file and that of FailCall too.
void ClearFaults();

/// Makes the k-th call from now fail (k from 1), whatever its object and operation are; with
/// everyCallAfter also all calls after it. Replaces the previous FailCall. Calls that never fail
/// (destructors, GetErrorDescription) are not counted.
void FailCall(std::uint64_t k, int code = 0x2101, const std::string& text = std::string(), bool everyCallAfter = false);
/// As FailCall, but the call throws a plain std::runtime_error.
void FailCallPlainly(std::uint64_t k, const std::string& text, bool everyCallAfter = false);

/// How many calls a fault took part in since the bench was made.
std::uint64_t FaultsTriggered();
/// The same for one fault by its number; also after it was removed.
std::uint64_t FaultsTriggered(int number);
/// The call that a fault hit last, known also while no journal is kept (without its result); the number
/// is 0 when no fault has taken effect yet.
JournalEntry LastFaultedCall();

/// Calls of the library since the bench was made, without those that never fail.
std::uint64_t CallCount();

// ---- What happens on the bench ---------------------------------------------------------------------

/// Pulls a module off its network (it does not answer any more) or plugs it in again.
void SetModulePresent(const std::string& networkName, const std::string& identity, bool present);
/// Takes a controller away (its network is disconnected at once) or brings it back.
void SetNetworkPresent(const std::string& networkName, bool present);
/// Plugs another module of the same kind into the connector of a listed one, which is pulled off.
/// FindHotswapped finds it.
void ReplaceModule(const std::string& networkName, const std::string& oldIdentity, const std::string& newIdentity);
/// The same with a module of another kind, by its name ("KX", "SWAX2", ...).
void ReplaceModule(const std::string& networkName, const std::string& oldIdentity, const std::string& newIdentity,
                   const std::string& newType);
/// Puts a still, noiseless part under a gauge: from now on it feels this position, in its unit.
void HoldPosition(const std::string& networkName, const std::string& identity, double position);
/// Gives the gauge back the signal that the bench file describes.
void ReleasePosition(const std::string& networkName, const std::string& identity);

/// Puts something into the nozzle of an air gauge, where it stays until ReleasePosition. The work piece has
/// the size that the bench file describes, or that of HoldPosition, which puts it into the nozzle as well.
void PutInNozzle(const std::string& networkName, const std::string& identity, NozzlePart part);
/// Chooses another unit at an air gauge's own display. The library has to read the module's information again.
/// Refused with a pass code that is not the gauge's, and by a gauge without a display.
void ChangeUnitAtDisplay(const std::string& networkName, const std::string& identity, TavikLibrary::ePNX_UOM unit,
                         int passcode = 0);

/// The identities in a network's list, connected or not, without a call of the library.
std::vector<std::string> ListedModules(const std::string& networkName);
/// How many calls were made on modules that had been removed from the list. 0 in a front-end that asks
/// for its modules again after every change of the list.
std::uint64_t CallsOnRemovedModules();

} // namespace TavikSimulator
