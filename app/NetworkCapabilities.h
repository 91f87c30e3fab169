#pragma once

namespace TavikLibrary {
class TavikNetwork;
}

class QWidget;

/// Shows on the network's page what a network and its speeds are capable of. Throws what the library throws.
void ShowCapabilities(const QWidget& page, TavikLibrary::TavikNetwork& network);
