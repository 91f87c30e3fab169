#include "simulator/bench/ListedModule.h"

#include "library/TavikException.h"

namespace TavikSimulator {

using TavikLibrary::eTavikErrors;

void ListedModule::KeepReadingOf(Nanoseconds time) {
    if (!hardware->Answers(time)) {
        last.code = static_cast<int>(eTavikErrors::ModuleNotResponding);
        return;
    }
    try {
        hardware->RequireReadable();
        last = hardware->ReadAt(time);
    } catch (const TavikLibrary::TavikException& exception) {
        last.code = exception.errorCode;
    }
}

void ListedModule::RequireAnswer(Nanoseconds time, const std::string& networkName) {
    if (!hardware->Answers(time)) {
        last.code = static_cast<int>(eTavikErrors::ModuleNotResponding);
    }
    hardware->RequireAnswer(time, networkName);
}

void ListedModule::EndObject() {
    object.reset();
    position.reset();
    last = Reading();
}

} // namespace TavikSimulator
