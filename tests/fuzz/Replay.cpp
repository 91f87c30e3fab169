#include "tests/fuzz/Fuzz.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

// Gives every file of a folder to the fuzzer's entry, in the order of their names.
int main(int argc, char** argv) {
    namespace files = std::filesystem;
    if (argc != 2) {
        std::cerr << "The folder of the corpus is missing.\n";
        return 2;
    }
    std::vector<files::path> corpus;
    for (const auto& entry : files::directory_iterator(argv[1])) {
        corpus.push_back(entry.path());
    }
    std::sort(corpus.begin(), corpus.end());
    for (const files::path& path : corpus) {
        std::cout << path.filename().string() << std::endl;
        std::ifstream file(path, std::ios::binary);
        const std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
    }
    std::cout << corpus.size() << " inputs" << std::endl;
    return corpus.empty() ? 1 : 0;
}
