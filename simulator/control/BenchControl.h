#pragma once

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

/// One call of the library. Objects are "server", "networks", "network <name>", "buffered <name>",
/// "difference <name>", "dynamic <name>", "module <identity>", "status <identity>",
/// "buffered <identity>" and "difference <identity>".
struct JournalEntry {
    std::uint64_t number = 0; ///< calls are numbered from 1 in the order in which they began
    double time = 0.0;        ///< bench time at the call's beginning, in seconds
    int thread = 0;           ///< threads are numbered from 1 in the order of their first call
    std::string object;
    std::string operation;  ///< as declared, for example "ReadInCounts", "setNetSpeed", "~TavikServer"
    std::string arguments;  ///< for example "3" or "\"KX20000001\", \"\""
    std::string result;     ///< the result; empty for a call without one and for one that failed
    bool failed = false;    ///< the call threw
    bool faulted = false;   ///< a fault took part in it
    int errorCode = 0;      ///< of the TavikException it threw
    std::string error;      ///< the text it threw
    bool takesCode = false; ///< the effect Result can put a code in place of its result
};

/// Starts the journal, empty; the oldest entries make room for new ones beyond the capacity.
void StartJournal(std::size_t capacity = 1000000);
void StopJournal();
void ClearJournal();
/// The entries kept, in the order of their numbers.
std::vector<JournalEntry> Journal();
/// How many entries had to make room since the journal was started.
std::uint64_t JournalDropped();
/// "network Mixed.setNetSpeed(High)": object, operation and arguments.
std::string CallText(const JournalEntry& entry);
/// The entry as a line for a person to read, as TAVIK_JOURNAL=FILE writes it.
std::string JournalLine(const JournalEntry& entry);

// ---- Faults ----------------------------------------------------------------------------------------

enum class FaultTrigger {
    Once,        ///< the first matching call
    Nth,         ///< the n-th matching call only
    FromNth,     ///< the n-th matching call and all later ones
    During,      ///< matching calls within a span of bench time, counted from when the fault was set
    Probability, ///< each matching call with a probability, drawn from a seeded generator
};

enum class FaultEffect {
    ThrowLibrary, ///< throws TavikException(code, text)
    ThrowPlain,   ///< throws std::runtime_error(text)
    Slow,         ///< takes longer by a delay, then does its work
    Result,       ///< a reading gets the code as its result code; another operation that returns a whole
                  ///< number or an enumeration returns the code without doing its work; other operations
                  ///< are left alone
};

/// A fault. A call that throws by a fault has had no effect. Destructors and GetErrorDescription never
/// fail. The patterns may hold "*" for any run of characters.
struct Fault {
    std::string object = "*";
    std::string operation = "*";
    FaultTrigger trigger = FaultTrigger::Once;
    std::uint64_t n = 1;      ///< for Nth and FromNth, from 1
    double from = 0.0;        ///< for During: seconds until the span begins
    double duration = 0.0;    ///< for During: length of the span in seconds
    double probability = 1.0; ///< for Probability, 0 to 1
    std::uint64_t seed = 1;   ///< for Probability
    FaultEffect effect = FaultEffect::ThrowLibrary;
    int code = 0x2101;  ///< for ThrowLibrary and Result
    std::string text;   ///< for the throwing effects; empty: the description of the code
    double delay = 0.0; ///< for Slow, in seconds
};

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

/// What can be in the nozzle of an air gauge.
enum class NozzlePart { Nothing, MasterA, MasterB, WorkPiece };
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
