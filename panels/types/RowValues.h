#pragma once

#include <QComboBox>
#include <QListWidget>

// Lists whose row numbers are the values of an enumeration of the library. A list without a current row
// stands for the value -1, which the library refuses; a value without a row selects none. Every
// enumeration of the library holds any int.

template <class Value>
Value CurrentRowAs(const QListWidget* list) {
    return static_cast<Value>(list->currentRow());
}

template <class Value>
void SelectRowOf(QListWidget* list, Value value) {
    list->setCurrentRow(static_cast<int>(value));
}

template <class Value>
Value CurrentIndexAs(const QComboBox* combo) {
    return static_cast<Value>(combo->currentIndex());
}

template <class Value>
void SelectIndexOf(QComboBox* combo, Value value) {
    combo->setCurrentIndex(static_cast<int>(value));
}
