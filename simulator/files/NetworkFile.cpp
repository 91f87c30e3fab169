#include "simulator/files/NetworkFile.h"

#include "simulator/bench/BenchDescription.h"
#include "simulator/files/BenchElement.h"
#include "simulator/files/ModuleElement.h"
#include "simulator/hardware/ErrorTexts.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <limits>
#include <optional>
#include <set>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

namespace TavikSimulator {

using TavikLibrary::eModuleType;
using TavikLibrary::eTavikErrors;

namespace {

constexpr const char* RootName = "tavik-network";
constexpr int Format = 1;
/// A network of 150 modules takes about 20 KB.
constexpr std::size_t LargestFile = std::size_t{1024} * 1024;

[[noreturn]] void RejectFile(const char* what, const std::string& path, const std::string& reason) {
    Reject(eTavikErrors::InvalidArgument, std::string(what) + " \"" + path + "\": " + reason + ".");
}

StoredModule ReadModule(BenchElement element) {
    StoredModule module;
    module.line = element.Line();
    module.identity = element.Required("identity");
    if (!IsIdentity(module.identity)) {
        element.Fail("\"" + module.identity + "\" is not a module identity.");
    }
    module.type = element.Meaning("type", element.Required("type"), TypeWords());
    for (BenchElement& child : element.Children("setting")) {
        const std::string name = child.Required("name");
        const std::optional<std::string> value = child.Text("value");
        if (!value) {
            child.Fail("The setting \"" + name + "\" has no value.");
        }
        if (!module.settings.emplace(name, *value).second) {
            child.Fail("The setting \"" + name + "\" is there twice.");
        }
        child.Finish();
    }
    element.Finish();
    return module;
}

StoredNetwork ReadRoot(BenchElement root) {
    if (root.Name() != RootName) {
        root.Fail("This is not a network file: it holds <" + root.Name() + ">, not <" + RootName + ">.");
    }
    const long long format = root.Whole("format", 0, 0, std::numeric_limits<int>::max());
    if (format != Format) {
        root.Fail("This file has the format " + std::to_string(format) + "; only format " + std::to_string(Format) +
                  " can be read.");
    }
    StoredNetwork network;
    network.line = root.Line();
    network.name = root.Required("name");
    network.speed = root.Meaning("speed", root.Required("speed"), SpeedWords());
    std::set<std::string> identities;
    for (BenchElement& child : root.Children("module")) {
        network.modules.push_back(ReadModule(child));
        if (!identities.insert(network.modules.back().identity).second) {
            child.Fail("There are two modules with the identity " + network.modules.back().identity + ".");
        }
    }
    root.Finish();
    return network;
}

template <class Value>
std::string WordFor(Value value, const std::vector<std::pair<std::string, Value>>& words) {
    for (const auto& [word, meaning] : words) {
        if (meaning == value) {
            return word;
        }
    }
    return {};
}

/// A temporary file beside the target, which replaces it at the end or is removed.
class TemporaryFile {
public:
    explicit TemporaryFile(const std::string& wantedPath) : path(wantedPath), waiting(wantedPath + ".XXXXXX") {
        descriptor = mkstemp(waiting.data());
        Check(descriptor >= 0);
    }
    ~TemporaryFile() {
        if (descriptor >= 0) {
            close(descriptor);
            unlink(waiting.c_str());
        }
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    void Write(const std::string& text) {
        for (std::size_t written = 0; written < text.size();) {
            const ssize_t now = write(descriptor, text.data() + written, text.size() - written);
            if (now < 0 && errno == EINTR) {
                continue;
            }
            Check(now >= 0);
            written += static_cast<std::size_t>(now);
        }
    }

    void ReplaceTarget() {
        Check(fchmod(descriptor, Mode()) == 0);
        Check(fsync(descriptor) == 0);
        Check(rename(waiting.c_str(), path.c_str()) == 0);
        close(descriptor);
        descriptor = -1;
    }

private:
    /// Permissions of the replaced file, or of a new file.
    mode_t Mode() const {
        struct stat before = {};
        if (stat(path.c_str(), &before) == 0) {
            return before.st_mode & 07777;
        }
        const mode_t mask = umask(0);
        umask(mask);
        return 0666 & ~mask;
    }

    void Check(bool good) const {
        if (!good) {
            const int reason = errno;
            RejectFile("The network cannot be saved to", path, std::strerror(reason));
        }
    }

    const std::string path;
    std::string waiting;
    int descriptor = -1;
};

} // namespace

std::string NetworkText(const StoredNetwork& network) {
    pugi::xml_document document;
    pugi::xml_node declaration = document.append_child(pugi::node_declaration);
    declaration.append_attribute("version") = "1.0";
    declaration.append_attribute("encoding") = "UTF-8";
    pugi::xml_node root = document.append_child(RootName);
    root.append_attribute("format") = Format;
    root.append_attribute("name") = network.name.c_str();
    root.append_attribute("speed") = WordFor(network.speed, SpeedWords()).c_str();
    for (const StoredModule& module : network.modules) {
        pugi::xml_node node = root.append_child("module");
        node.append_attribute("identity") = module.identity.c_str();
        node.append_attribute("type") = WordFor(module.type, TypeWords()).c_str();
        for (const auto& [name, value] : module.settings) {
            pugi::xml_node setting = node.append_child("setting");
            setting.append_attribute("name") = name.c_str();
            setting.append_attribute("value") = value.c_str();
        }
    }
    std::ostringstream text;
    document.save(text, "  ", pugi::format_default, pugi::encoding_utf8);
    return text.str();
}

StoredNetwork ReadNetworkText(const std::string& text, const std::string& name) {
    const BenchSource source(text, name);
    pugi::xml_document document;
    const pugi::xml_parse_result result =
        document.load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8);
    if (!result) {
        source.Fail(result.offset, std::string("This is not well-formed XML: ") + result.description() + ".");
    }
    return ReadRoot(BenchElement(source, document.document_element()));
}

StoredNetwork ReadNetworkFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::string text(LargestFile + 1, '\0');
    if (!file || !file.read(text.data(), static_cast<std::streamsize>(text.size())).eof()) {
        const int reason = errno;
        const bool large = file.gcount() == static_cast<std::streamsize>(text.size());
        RejectFile("The network file cannot be read", path,
                   large ? "it is larger than 1 MB, which no network needs" : std::strerror(reason));
    }
    text.resize(static_cast<std::size_t>(file.gcount()));
    return ReadNetworkText(text, path);
}

void WriteNetworkFile(const StoredNetwork& network, const std::string& path) {
    TemporaryFile file(path);
    file.Write(NetworkText(network));
    file.ReplaceTarget();
}

} // namespace TavikSimulator
