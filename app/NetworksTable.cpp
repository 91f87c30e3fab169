#include "app/NetworksTable.h"

#include "library/TavikNetwork.h"
#include "library/TavikNetworks.h"
#include "panels/common/Inputs.h"
#include "panels/common/Text.h"

#include <QPushButton>

namespace {

enum Column { NameColumn, IdColumn, DescriptionColumn, TypeColumn, StateColumn, ButtonColumn };

constexpr const char* rowProperty = "TavikNetworkPtr";

QString StateText(bool connected) {
    return connected ? QStringLiteral("Connected") : QStringLiteral("Disconnected");
}

void CaptionButton(QAbstractButton* button, bool connected, const QString& networkName) {
    const QString caption = connected ? QStringLiteral("Disconnect") : QStringLiteral("Connect");
    button->setText(caption);
    button->setAccessibleName(caption + QLatin1Char(' ') + networkName);
}

/// The columns share the width, so a long text may not fit its cell; the tool tip shows it whole.
void SetDescription(QTableWidgetItem* item, const QString& description) {
    item->setText(description);
    item->setToolTip(PlainToolTip(description));
}

} // namespace

TavikLibrary::TavikNetwork* NetworkOfRow(TavikLibrary::TavikNetworks* networks, int row) {
    return networks->Network(static_cast<unsigned int>(row));
}

void ClearNetworkRows(ChoiceTable* table) {
    for (int row = 0; row < table->rowCount(); ++row) {
        // A table whose rows are taken off with the buttons in them remembers where each button was.
        table->removeCellWidget(row, ButtonColumn);
    }
    table->setRowCount(0);
}

QPushButton* AppendNetworkRow(ChoiceTable* table, TavikLibrary::TavikNetwork* network) {
    const QString name = FromLibrary(network->NetworkName());
    const QString id = FromLibrary(network->ControllerID());
    const QString description = FromLibrary(network->Description());
    const QString type = FromLibrary(TavikLibrary::eNetworkType_ToString(network->NetworkType()));
    const bool connected = network->IsConnected();

    const int row = table->rowCount();
    table->insertRow(row);
    table->setItem(row, NameColumn, new QTableWidgetItem(name));
    table->setItem(row, IdColumn, new QTableWidgetItem(id));
    table->setItem(row, DescriptionColumn, new QTableWidgetItem);
    SetDescription(table->item(row, DescriptionColumn), description);
    table->setItem(row, TypeColumn, new QTableWidgetItem(type));
    table->setItem(row, StateColumn, new QTableWidgetItem(StateText(connected)));

    auto* button = new QPushButton(table);
    button->setProperty(rowProperty, row);
    CaptionButton(button, connected, name);
    table->SetRowButton(row, button);
    return button;
}

void RefreshNetworkRow(ChoiceTable* table, int row, TavikLibrary::TavikNetwork* network) {
    const bool connected = network->IsConnected();
    table->item(row, StateColumn)->setText(StateText(connected));
    CaptionButton(table->RowButton(row), connected, table->item(row, NameColumn)->text());
    table->item(row, IdColumn)->setText(FromLibrary(network->ControllerID()));
    SetDescription(table->item(row, DescriptionColumn), FromLibrary(network->Description()));
}

void SetRowButtonsEnabled(ChoiceTable* table, bool enable) {
    for (int row = 0; row < table->rowCount(); ++row) {
        table->RowButton(row)->setEnabled(enable);
    }
}

int RowOfButton(const QPushButton* button) {
    return button->property(rowProperty).toInt();
}
