#pragma once

#include <string>

namespace TavikLibrary {

class TavikNetworks;

/// The root of the library: owns everything that the other classes hand out. All pointers that come
/// from the library are borrowed and end with the server. The server is held by value, so that its size is part of the
/// binary interface.
class TavikServer {
public:
    /// Throws TavikException when the library cannot start.
    TavikServer();
    ~TavikServer();
    TavikServer(const TavikServer&) = delete;
    TavikServer& operator=(const TavikServer&) = delete;

    std::string LibraryPartNumber();
    std::string LibraryVersion();
    std::string LibraryBuildDate();

    /// The networks of this computer.
    TavikNetworks* Networks();

    /// A sentence for a result code; answers for every code.
    std::string GetErrorDescription(int code);

    /// Starts every prepared dynamic collection. The callback is called from the library's own thread
    /// when a collection has come to its end, by itself or because it was stopped.
    void StartAllDynamic(void (*collectionFinished)());
    /// Stops the dynamic collections of all networks. May be called from any thread.
    void StopAllDynamic();

private:
    class Implementation;
    Implementation* implementation;
};

} // namespace TavikLibrary
