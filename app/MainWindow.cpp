#include "app/MainWindow.h"

#include "app/AboutBox.h"
#include "app/Connections.h"
#include "app/ErrorDecoder.h"
#include "app/ModulePages.h"
#include "app/NetworkCapabilities.h"
#include "app/NetworkFiles.h"
#include "app/NetworksTable.h"
#include "app/NotifyRun.h"
#include "library/TavikModule.h"
#include "library/TavikModuleRN.h"
#include "library/TavikNetwork.h"
#include "library/TavikNetworks.h"
#include "panels/common/Fields.h"
#include "panels/common/IgnoreErrors.h"
#include "panels/common/LastResort.h"
#include "panels/common/MessageBoxes.h"
#include "panels/common/Run.h"
#include "panels/common/WaitCursor.h"
#include "ui_MainWindow.h"

#include <QCloseEvent>
#include <QInputDialog>
#include <QScopeGuard>
#include <QScrollArea>
#include <QSignalBlocker>

#include <initializer_list>

using TavikLibrary::TavikModule;
using TavikLibrary::TavikNetwork;

namespace {

const QLatin1String connectTitle("Connect to Network");
const QLatin1String errorTitle("Error!");
const QLatin1String errorPrefix("Error: ");

/// Pages before the ones of the selected network.
constexpr int serverPages = 1;

/// In the order of their tabs.
std::vector<ModulePages::Page> PagesOf(const Ui::MainWindow& ui) {
    return {
        {ui.tabModule, ui.moduleWidget, QStringLiteral("Module %1"), [](TavikNetwork&, TavikModule&) { return true; }},
        {ui.tabBuffered, ui.bufferedModeWidget, QStringLiteral("Buffered Mode"),
         [](TavikNetwork&, TavikModule& module) { return module.BufferedCapable(); }},
        {ui.tabRefMark, ui.refMarkWidget, QStringLiteral("Ref Mark Mode"),
         [](TavikNetwork&, TavikModule& module) {
             return dynamic_cast<TavikLibrary::TavikModuleRN*>(&module) != nullptr;
         }},
        {ui.tabDifference, ui.differenceModeWidget, QStringLiteral("Difference Mode"),
         [](TavikNetwork&, TavikModule& module) { return module.DifferenceCapable(); }},
        {ui.tabDynamic, ui.dynamicWidget, QStringLiteral("Dynamic Mode"),
         [](TavikNetwork& network, TavikModule&) { return network.DynamicCapable() || network.Dynamic2Capable(); }},
        {ui.tabReadburst, ui.readBurstWidget, QStringLiteral("Readburst Mode"),
         [](TavikNetwork& network, TavikModule&) { return network.ReadBurstCapable(); }},
    };
}

} // namespace

MainWindow::MainWindow(QWidget* parent) : HostWindow(parent), ui(std::make_unique<Ui::MainWindow>()) {
    ui->setupUi(this);
    // The pages that scroll have the background of those that do not.
    const auto scrolling = ui->tabWidget->findChildren<QScrollArea*>();
    for (QScrollArea* area : scrolling) {
        area->viewport()->setAutoFillBackground(false);
        area->widget()->setAutoFillBackground(false);
    }
    modulePages = std::make_unique<ModulePages>(ui->tabWidget, PagesOf(*ui), *this, server);
    ui->tableNetworks->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    LastResort::Run([this] { ShowLibrary(); });
    modulePages->RemoveFrom(serverPages);
}

MainWindow::~MainWindow() {
    // The library goes before the widgets. What these do when they lose the focus must not reach it.
    modulePages->RemoveFrom(serverPages);
}

void MainWindow::RedisplayModuleInformation() {
    ui->moduleWidget->RedisplayInformation();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (!IsClosing()) {
        BeginClosing();
        modulePages->Stop();
        ShutDown(server);
    }
    HostWindow::closeEvent(event);
}

// The library and its networks

void MainWindow::ShowLibrary() {
    ShowInField(ui->editPartNumber, FromLibrary(server.LibraryPartNumber()));
    ShowInField(ui->editVersion, FromLibrary(server.LibraryVersion()));
    ShowInField(ui->editBuildDate, FromLibrary(server.LibraryBuildDate()));
    server.Networks()->FindNetworks();
    FillNetworksTable();
}

void MainWindow::FillNetworksTable() {
    ClearNetworkRows(ui->tableNetworks);
    auto* networks = server.Networks();
    for (int row = 0; row < networks->Count(); ++row) {
        const QPushButton* button = AppendNetworkRow(ui->tableNetworks, NetworkOfRow(networks, row));
        connect(button, &QPushButton::clicked, this, &MainWindow::tableNetConnectionButton_clicked);
    }
}

void MainWindow::on_btnConnectAll_clicked() {
    LastResort::Run([this] {
        const WaitCursor waitCursor;
        auto showWhatBecame = qScopeGuard([this] { IgnoreErrors([this] { FillNetworksTable(); }); });
        ReconnectAllNetworks(server);
        if (!AllConnected(server.Networks())) {
            ShowErrorBox(this, connectTitle, QStringLiteral("Failed to connect to all network(s)."));
        }
        FillNetworksTable();
        showWhatBecame.dismiss();
        if (ui->tableNetworks->rowCount() > 0) {
            ui->tableNetworks->selectRow(0);
        }
    });
}

void MainWindow::on_btnDisconnectAll_clicked() {
    LastResort::Run([this] {
        auto showWhatBecame = qScopeGuard([this] { IgnoreErrors([this] { FillNetworksTable(); }); });
        DisconnectAllNetworks(server);
        FillNetworksTable();
        showWhatBecame.dismiss();
        ShowSelectedNetwork();
    });
}

void MainWindow::tableNetConnectionButton_clicked() {
    LastResort::Run([this] {
        const WaitCursor waitCursor;
        const int row = RowOfButton(qobject_cast<QPushButton*>(sender()));
        TavikNetwork* rowNetwork = NetworkOfRow(server.Networks(), row);
        auto showWhatBecame =
            qScopeGuard([&] { IgnoreErrors([&] { RefreshNetworkRow(ui->tableNetworks, row, rowNetwork); }); });
        ToggleConnection(rowNetwork);
        RefreshNetworkRow(ui->tableNetworks, row, rowNetwork);
        showWhatBecame.dismiss();
        {
            const QSignalBlocker handledBelow(ui->tableNetworks);
            ui->tableNetworks->selectRow(row);
        }
        ShowSelectedNetwork();
    });
}

void MainWindow::ToggleConnection(TavikNetwork* rowNetwork) {
    if (rowNetwork->IsConnected()) {
        DisconnectNetwork(server, rowNetwork);
        return;
    }
    rowNetwork->Connect();
    if (!rowNetwork->IsConnected()) {
        ShowErrorBox(this, connectTitle, QStringLiteral("Failed to connect to network"));
    }
}

void MainWindow::on_tableNetworks_itemSelectionChanged() {
    LastResort::Run([this] { ShowSelectedNetwork(); });
}

void MainWindow::ShowSelectedNetwork() {
    const QModelIndexList rows = ui->tableNetworks->selectionModel()->selectedRows();
    if (rows.isEmpty()) {
        network = nullptr;
        modulePages->RemoveFrom(serverPages);
        return;
    }
    TavikNetwork* selected = NetworkOfRow(server.Networks(), rows.first().row());
    if (!selected->IsConnected()) {
        modulePages->RemoveFrom(serverPages);
        return;
    }
    const QString caption = FromLibrary(selected->Description());
    if (ui->tabWidget->count() == serverPages) {
        ui->tabWidget->addTab(ui->tabNetwork, caption);
    } else {
        ui->tabWidget->setTabText(serverPages, caption);
    }
    network = selected;
    RefreshNetworkPage();
}

// The selected network's page

void MainWindow::RefreshNetworkPage() {
    if (!HasNetwork()) {
        return;
    }
    const WaitCursor waitCursor;
    ShowCapabilities(*ui->tabNetwork, *network);
    ShowSpeeds();
    ListModules();
}

void MainWindow::ShowSpeeds() {
    ui->editCurrentSpeed->setText(FromLibrary(TavikLibrary::eNetSpeed_ToString(network->NetSpeed())));
    ui->listAvailableSpeeds->clear();
    for (const TavikLibrary::eNetSpeed speed : network->AvailableSpeeds()) {
        ui->listAvailableSpeeds->addItem(FromLibrary(TavikLibrary::eNetSpeed_ToString(speed)));
    }
}

void MainWindow::ListModules() {
    const int row = ui->listModules->currentRow();
    ui->listModules->clear();
    for (int index = 0; index < network->ModuleCount(); ++index) {
        ui->listModules->addItem(FromLibrary(network->GetModule(static_cast<unsigned int>(index))->Identity()));
    }
    if (row < ui->listModules->count()) {
        ui->listModules->setCurrentRow(row);
    }
}

void MainWindow::on_listModules_currentRowChanged(int currentRow) {
    if (currentRow >= 0) {
        // A list that gets the focus makes its first row current without showing it as chosen, but the buttons beside
        // the list act on it.
        ui->listModules->item(currentRow)->setSelected(true);
    }
    LastResort::Run([this, currentRow] { modulePages->Show(network, currentRow); });
}

// Changing the module list

/// A button's key clicks it a moment later, when the network's page may be gone or the window closed.
bool MainWindow::HasNetwork() const {
    return network != nullptr && ui->tabWidget->indexOf(ui->tabNetwork) >= 0 && !IsClosing();
}

template <class Calls>
void MainWindow::ChangeModules(const QString& title, Calls&& calls) {
    if (HasNetwork()) {
        // What a page does with a module that is removed by the calls ends while the module exists.
        modulePages->Forget();
        ErrorBox(this, title, errorPrefix).Try(calls);
        LastResort::Run([this] { RefreshNetworkPage(); });
    }
}

void MainWindow::on_btnNotify_clicked() {
    if (notifyRunning || !HasNetwork()) {
        return;
    }
    notifyRunning = true;
    const auto over = qScopeGuard([this] { notifyRunning = false; });
    Run run(*this, QStringLiteral("notify"), ui->btnStopNotify);
    LastResort::Run([&] {
        RunNotify(run, network);
        RefreshNetworkPage();
    });
}

void MainWindow::on_btnStopNotify_clicked() {
    if (network != nullptr) {
        LastResort::Run([this] { network->CancelNotifying(); });
    }
}

void MainWindow::on_btnAddModule_clicked() {
    if (!HasNetwork()) {
        return;
    }
    bool accepted = false;
    const QString identity = QInputDialog::getText(this, QStringLiteral("Add module by ID"),
                                                   QStringLiteral("Enter the module tavik identity."),
                                                   QLineEdit::Normal, QString(), &accepted);
    if (!accepted) {
        return;
    }
    ChangeModules(QStringLiteral("Add Module"),
                  [&] { network->AddModule(ToLibrary(identity.toUpper()), std::string()); });
}

void MainWindow::on_btnDeleteModule_clicked() {
    const int row = ui->listModules->currentRow();
    if (row >= 0) {
        ChangeModules(QStringLiteral("Delete Module"), [&] { network->DeleteModule(row); });
    }
}

void MainWindow::on_btnClearModules_clicked() {
    ChangeModules(QStringLiteral("Clear Modules"), [this] { network->ClearModules(); });
}

void MainWindow::on_btnClearTcons_clicked() {
    ChangeModules(QStringLiteral("Clear TCons"), [this] { network->ClearTCons(); });
}

void MainWindow::on_btnMoveUp_clicked() {
    MoveSelectedModule(-1);
}

void MainWindow::on_btnMoveDown_clicked() {
    MoveSelectedModule(1);
}

void MainWindow::MoveSelectedModule(int step) {
    const int row = ui->listModules->currentRow();
    const int otherRow = row + step;
    if (!HasNetwork() || row < 0 || otherRow < 0 || otherRow >= ui->listModules->count()) {
        return;
    }
    LastResort::Run([&] {
        network->GetModule(static_cast<unsigned int>(row))->SetPosition(otherRow);
        network->GetModule(static_cast<unsigned int>(otherRow))->SetPosition(row);
        network->ApplyRemap();
        RefreshNetworkPage();
        ui->listModules->setCurrentRow(otherRow);
    });
}

void MainWindow::on_btnHotswap_clicked() {
    if (!HasNetwork()) {
        return;
    }
    const WaitCursor waitCursor;
    ErrorBox(this, errorTitle).Try([this] {
        network->FindHotswapped();
        modulePages->Forget();
        RefreshNetworkPage();
    });
}

void MainWindow::on_btnPing_clicked() {
    if (!HasNetwork()) {
        return;
    }
    const WaitCursor waitCursor;
    ErrorBox(this, errorTitle).Try([this] {
        network->Ping();
        RefreshNetworkPage();
    });
}

void MainWindow::on_btnSetSpeed_clicked() {
    if (!HasNetwork()) {
        return;
    }
    const QList<QListWidgetItem*> selected = ui->listAvailableSpeeds->selectedItems();
    if (selected.isEmpty()) {
        ShowErrorBox(this, errorTitle, QStringLiteral("A speed to set has not been selected."));
        return;
    }
    ErrorBox(this, errorTitle).Try([&] {
        network->setNetSpeed(TavikLibrary::eNetSpeed_FromString(ToLibrary(selected.first()->text())));
        RefreshNetworkPage();
    });
}

void MainWindow::on_btnLoadXML_clicked() {
    if (HasNetwork() && LoadNetwork(this, network)) {
        modulePages->Forget();
        LastResort::Run([this] { RefreshNetworkPage(); });
    }
}

void MainWindow::on_btnSaveXML_clicked() {
    if (HasNetwork() && SaveNetwork(this, network)) {
        LastResort::Run([this] { RefreshNetworkPage(); });
    }
}

void MainWindow::SetControlsEnabled(bool enable) {
    for (QWidget* widget : std::initializer_list<QWidget*>{
             ui->btnConnectAll, ui->btnDisconnectAll, ui->tableNetworks, ui->listModules, ui->btnMoveUp,
             ui->btnMoveDown, ui->btnHotswap, ui->btnPing, ui->btnNotify, ui->btnAddModule, ui->btnDeleteModule,
             ui->btnClearModules, ui->btnClearTcons, ui->btnLoadXML, ui->btnSaveXML, ui->btnSetSpeed}) {
        widget->setEnabled(enable);
    }
    SetRowButtonsEnabled(ui->tableNetworks, enable);
    // A module that was selected when the controls were disabled may have left the list since.
    if (enable || ui->listModules->currentRow() >= 0) {
        modulePages->SetEnabled(enable);
    }
}

void MainWindow::on_actionE_xit_triggered() {
    close();
}

void MainWindow::on_action_Decode_Error_triggered() {
    LastResort::Run([this] { DecodeError(this, server); });
}

void MainWindow::on_action_About_triggered() {
    LastResort::Run([this] { AboutBox(FromLibrary(server.LibraryVersion()), this).exec(); });
}
