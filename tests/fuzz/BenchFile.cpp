#include "simulator/files/BenchFile.h"

#include "library/TavikException.h"
#include "tests/fuzz/Fuzz.h"

// A bench file is either taken or refused with a sentence that names it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        TavikSimulator::ReadBenchText(TextOfInput(data, size), "bench.xml");
    } catch (const TavikLibrary::TavikException& refusal) {
        RequireOfInput(std::string(refusal.what()).rfind("bench.xml, line ", 0) == 0,
                       "a refusal without file and line");
    }
    return 0;
}
