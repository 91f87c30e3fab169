#include "simulator/bench/ListedModule.h"

#include "library/TavikException.h"

namespace TavikSimulator {

using TavikLibrary::eTavikErrors;

void ListedModule::KeepReadingOf(double seconds) {
    if (!hardware->Answers(seconds)) {
        last.code = static_cast<int>(eTavikErrors::ModuleNotResponding);
        return;
    }
    try {
        hardware->RequireReadable();
        last = hardware->ReadAt(seconds);
    } catch (const TavikLibrary::TavikException& exception) {
        last.code = exception.ErrorCode();
    }
}

void ListedModule::RequireAnswer(double seconds, const std::string& networkName) {
    if (!hardware->Answers(seconds)) {
        last.code = static_cast<int>(eTavikErrors::ModuleNotResponding);
    }
    hardware->RequireAnswer(seconds, networkName);
}

void ListedModule::EndObject() {
    object.reset();
    position.reset();
    last = Reading();
}

} // namespace TavikSimulator
