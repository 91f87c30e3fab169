#pragma once

class ChoiceTable;
class QPushButton;

namespace TavikLibrary {
class TavikNetwork;
class TavikNetworks;
} // namespace TavikLibrary

// The rows of the networks table: one network a row, with a button that connects or disconnects it. The table
// keeps no network; a row's button knows its row number by a property, and the network is asked for again.

TavikLibrary::TavikNetwork* NetworkOfRow(TavikLibrary::TavikNetworks* networks, int row);

/// Takes all rows off the table.
void ClearNetworkRows(ChoiceTable* table);

/// Appends a row for a network and returns its button. The row appears only when the network could be asked.
QPushButton* AppendNetworkRow(ChoiceTable* table, TavikLibrary::TavikNetwork* network);

/// Shows anew what connecting or disconnecting a row's network may have changed.
void RefreshNetworkRow(ChoiceTable* table, int row, TavikLibrary::TavikNetwork* network);

void SetRowButtonsEnabled(ChoiceTable* table, bool enable);

/// The row that a row's button stands in.
int RowOfButton(const QPushButton* button);
