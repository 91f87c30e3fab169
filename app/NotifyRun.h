#pragma once

class Run;

namespace TavikLibrary {
class TavikNetwork;
}

/// Begins a notify run and keeps the window alive until it is over, showing in the status bar for how long it has been
/// on. Ends early when the window closes. A run that fails is cancelled, so that the operator can begin another; what
/// the library threw is passed on.
void RunNotify(Run& run, TavikLibrary::TavikNetwork* network);
