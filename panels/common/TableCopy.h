#pragma once

class QTableView;

/// Lets the operator copy what is selected in a table, with its headers, as tab-separated text that a
/// spreadsheet takes: with the keys for copying, and from a context menu that offers "Select All" too.
void OfferCopying(QTableView* table);
