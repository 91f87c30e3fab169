#pragma once

class QWidget;

namespace TavikLibrary {
class TavikServer;
}

/// Asks the operator for an error code, 0 to 131072, and shows what the library says of it.
void DecodeError(QWidget* parent, TavikLibrary::TavikServer& server);
