#pragma once

class QWidget;

namespace TavikLibrary {
class TavikNetwork;
}

// Network descriptions in files, which the library reads and writes. Both ask the operator for the file, show a box
// when the library fails, and return whether a file was chosen at all.

bool LoadNetwork(QWidget* parent, TavikLibrary::TavikNetwork* network);
bool SaveNetwork(QWidget* parent, TavikLibrary::TavikNetwork* network);
