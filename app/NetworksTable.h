#pragma once

class QPushButton;
class QTableWidget;

namespace TavikLibrary {
class TavikNetwork;
class TavikNetworks;
} // namespace TavikLibrary

// The rows of the networks table: one network a row, with a button that connects or disconnects it. The table
// keeps no network; a row's button knows its row number by a property, and the network is asked for again.

TavikLibrary::TavikNetwork* NetworkOfRow(TavikLibrary::TavikNetworks* networks, int row);

/// Takes all rows off the table.
void ClearNetworkRows(QTableWidget* table);

/// Appends a row for a network and returns its button. The row appears only when the network could be asked.
QPushButton* AppendNetworkRow(QTableWidget* table, TavikLibrary::TavikNetwork* network);

/// Shows anew what connecting or disconnecting a row's network may have changed.
void RefreshNetworkRow(QTableWidget* table, int row, TavikLibrary::TavikNetwork* network);

/// Asks one network after the other, as far as the first that is not connected.
bool AllConnected(TavikLibrary::TavikNetworks* networks);

void SetRowButtonsEnabled(QTableWidget* table, bool enable);

/// The row that a row's button stands in.
int RowOfButton(const QPushButton* button);
