#include "app/MainWindow.h"

#include "app/AboutBox.h"
#include "app/Connections.h"
#include "app/ErrorDecoder.h"
#include "app/ModulePages.h"
#include "app/NetworkFiles.h"
#include "app/NetworkPage.h"
#include "app/NetworksTable.h"
#include "app/NotifyRun.h"
#include "library/TavikModule.h"
#include "library/TavikModuleRN.h"
#include "library/TavikNetwork.h"
#include "library/TavikNetworks.h"
#include "panels/common/BlockingOperation.h"
#include "panels/common/Fields.h"
#include "panels/common/LastResort.h"
#include "panels/common/MessageBoxes.h"
#include "panels/common/Run.h"
#include "ui_MainWindow.h"

#include <QCloseEvent>
#include <QInputDialog>
#include <QScopeGuard>
#include <QScrollArea>
#include <QSignalBlocker>

#include <initializer_list>

using TavikLibrary::TavikModule;
using TavikLibrary::TavikModuleRN;
using TavikLibrary::TavikNetwork;

namespace {

const QLatin1String connectTitle("Connect to Network");
const QLatin1String errorTitle("Error!");
const QLatin1String errorPrefix("Error: ");

/// Pages before the ones of the selected network.
constexpr int serverPages = PageTabs::networkPage;

/// In the order of their tabs.
std::vector<ModulePages::Page> PagesOf(const Ui::MainWindow& ui) {
    return {
        {ui.tabModule, ui.moduleWidget, QStringLiteral("Module %1"), [](TavikNetwork&, TavikModule&) { return true; }},
        {ui.tabBuffered, ui.bufferedModeWidget, QStringLiteral("Buffered Mode"),
         [](TavikNetwork&, TavikModule& module) { return module.BufferedCapable(); }},
        {ui.tabRefMark, ui.refMarkWidget, QStringLiteral("Ref Mark Mode"),
         [](TavikNetwork&, TavikModule& module) { return dynamic_cast<TavikModuleRN*>(&module) != nullptr; }},
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
    networkPage = std::make_unique<NetworkPage>(*this, *ui->tabNetwork);
    ui->tableNetworks->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    // After a set-up that failed, the operator can choose the row that is selected already.
    connect(ui->tableNetworks, &ChoiceTable::chosenAgain, this, [this] {
        if (ui->tabWidget->indexOf(ui->tabNetwork) < 0 || !networkPage->IsFilled()) {
            on_tableNetworks_itemSelectionChanged();
        }
    });
    connect(ui->listModules, &ChoiceList::chosenAgain, this, [this] {
        if (!modulePages->AreComplete()) {
            on_listModules_currentRowChanged(ui->listModules->currentRow());
        }
    });
    ShowLibrary();
    modulePages->RemoveFrom(serverPages);
    ui->btnConnectAll->setFocus();
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
    LastResort::Run([this] { ShowInField(ui->editPartNumber, FromLibrary(server.LibraryPartNumber())); });
    LastResort::Run([this] { ShowInField(ui->editVersion, FromLibrary(server.LibraryVersion())); });
    LastResort::Run([this] { ShowInField(ui->editBuildDate, FromLibrary(server.LibraryBuildDate())); });
    LastResort::Run([this] { server.Networks()->FindNetworks(); });
    FillNetworksTable();
}

void MainWindow::FillNetworksTable() {
    ClearNetworkRows(ui->tableNetworks);
    const auto fill = [this] {
        auto* networks = server.Networks();
        for (int row = 0; row < networks->Count(); ++row) {
            const QPushButton* button = AppendNetworkRow(ui->tableNetworks, NetworkOfRow(networks, row));
            connect(button, &QPushButton::clicked, this, &MainWindow::tableNetConnectionButton_clicked);
        }
    };
    if (!IsClosing() && !LastResort::Run(fill)) {
        ClearNetworkRows(ui->tableNetworks);
    }
}

void MainWindow::on_btnConnectAll_clicked() {
    const BlockingOperation blocking(this, QStringLiteral("Finding and connecting networks..."));
    if (!ReconnectAllNetworks(server)) {
        ShowErrorBox(this, connectTitle, QStringLiteral("Failed to connect to all network(s)."));
    }
    FillNetworksTable();
    if (ui->tableNetworks->rowCount() > 0) {
        ui->tableNetworks->selectRow(0);
    }
}

void MainWindow::on_btnDisconnectAll_clicked() {
    const BlockingOperation blocking(this, QStringLiteral("Disconnecting all networks..."));
    DisconnectAllNetworks(server);
    FillNetworksTable();
    on_tableNetworks_itemSelectionChanged();
}

void MainWindow::tableNetConnectionButton_clicked() {
    const auto* button = qobject_cast<QPushButton*>(sender());
    const int row = RowOfButton(button);
    const BlockingOperation blocking(this, button->accessibleName() + QStringLiteral("..."));
    TavikNetwork* rowNetwork = nullptr;
    LastResort::Run([&] {
        rowNetwork = NetworkOfRow(server.Networks(), row);
        if (!ToggleConnection(server, rowNetwork)) {
            ShowErrorBox(this, connectTitle, QStringLiteral("Failed to connect to network"));
        }
    });
    // Whatever was thrown, the network may have been connected or disconnected.
    const auto refresh = [&] { RefreshNetworkRow(ui->tableNetworks, row, rowNetwork); };
    if (!IsClosing() && (rowNetwork == nullptr || !LastResort::Run(refresh))) {
        FillNetworksTable();
    }
    {
        const QSignalBlocker handledBelow(ui->tableNetworks);
        ui->tableNetworks->selectRow(row);
    }
    on_tableNetworks_itemSelectionChanged();
}

void MainWindow::on_tableNetworks_itemSelectionChanged() {
    if (IsClosing()) {
        return;
    }
    const BlockingOperation blocking(this);
    auto nothingToShow = qScopeGuard([this] { modulePages->RemoveFrom(serverPages); });
    const QModelIndexList rows = ui->tableNetworks->selectionModel()->selectedRows();
    if (rows.isEmpty()) {
        network = nullptr;
        return;
    }
    LastResort::Run([&] {
        TavikNetwork* selected = NetworkOfRow(server.Networks(), rows.first().row());
        if (selected->IsConnected()) {
            ui->tabWidget->ShowPage(ui->tabNetwork, FromLibrary(selected->Description()));
            nothingToShow.dismiss();
            network = selected;
            RefreshNetworkPage();
        }
    });
}

// The selected network's page

void MainWindow::RefreshNetworkPage() {
    if (!HasNetwork()) {
        return;
    }
    const BlockingOperation blocking(this);
    QWidget* page = ui->tabWidget->currentWidget();
    networkPage->Fill(*network);
    // The module's pages were removed and added.
    if (ui->tabWidget->indexOf(page) >= 0) {
        ui->tabWidget->setCurrentWidget(page);
    }
}

void MainWindow::on_listModules_currentRowChanged(int currentRow) {
    LastResort::Run([this, currentRow] {
        if (!modulePages->Show(network, currentRow)) {
            // The list has become shorter. It is read when the press that has chosen the row is over.
            QMetaObject::invokeMethod(
                this, [this] { LastResort::Run([this] { RefreshNetworkPage(); }); }, Qt::QueuedConnection);
        }
    });
}

// Changing the module list

bool MainWindow::HasNetwork() const {
    return network != nullptr && ui->tabWidget->indexOf(ui->tabNetwork) >= 0 && !IsClosing();
}

bool MainWindow::MayAct() const {
    return HasNetwork() && !ControlsAreHeld();
}

template <class Calls>
void MainWindow::CallAndRefresh(const QString& title, const QString& activity, const QString& outcome, Calls&& calls) {
    if (!MayAct()) {
        return;
    }
    const BlockingOperation blocking(this, activity);
    // Modules that leave the list are destroyed.
    modulePages->Forget();
    if (ErrorBox(this, title, errorPrefix).Try(calls)) {
        ShowOutcome(outcome);
    }
    LastResort::Run([this] { RefreshNetworkPage(); });
}

template <class Calls>
void MainWindow::CallAndRefreshIfDone(const QString& activity, const QString& outcome, Calls&& calls) {
    if (!MayAct()) {
        return;
    }
    const BlockingOperation blocking(this, activity);
    ErrorBox(this, errorTitle).Try([&] {
        calls();
        ShowOutcome(outcome);
        RefreshNetworkPage();
    });
}

void MainWindow::on_btnNotify_clicked() {
    if (!MayAct()) {
        return;
    }
    Run run(*this, QStringLiteral("notify"), ui->btnStopNotify);
    const bool ended = LastResort::Run([&] { RunNotify(run, network); });
    if (LastResort::Run([this] { RefreshNetworkPage(); }) && ended) {
        run.activity.SetOutcome(QStringLiteral("Notify: %1 s, modules in the list: ") +
                                QString::number(ui->listModules->count()));
    }
}

void MainWindow::on_btnStopNotify_clicked() {
    if (network != nullptr) {
        LastResort::Run([this] { network->CancelNotifying(); });
    }
}

void MainWindow::on_btnAddModule_clicked() {
    bool accepted = MayAct();
    const QString identity = accepted ? QInputDialog::getText(this, QStringLiteral("Add module by ID"),
                                                              QStringLiteral("Enter the module tavik identity."),
                                                              QLineEdit::Normal, QString(), &accepted)
                                            .toUpper()
                                      : QString();
    if (accepted) {
        CallAndRefresh(QStringLiteral("Add Module"), QStringLiteral("Adding a module..."),
                       QStringLiteral("Added: ") + identity,
                       [&] { network->AddModule(ToLibrary(identity), std::string()); });
    }
}

void MainWindow::on_btnDeleteModule_clicked() {
    const QListWidgetItem* item = ui->listModules->currentItem();
    if (item != nullptr) {
        const int row = ui->listModules->currentRow();
        CallAndRefresh(QStringLiteral("Delete Module"), QStringLiteral("Deleting the module..."),
                       QStringLiteral("Deleted: ") + item->text(), [&] { network->DeleteModule(row); });
    }
}

void MainWindow::on_btnClearModules_clicked() {
    CallAndRefresh(QStringLiteral("Clear Modules"), QStringLiteral("Clearing the list of modules..."),
                   QStringLiteral("List of modules cleared"), [this] { network->ClearModules(); });
}

void MainWindow::on_btnClearTcons_clicked() {
    CallAndRefresh(QStringLiteral("Clear TCons"), QStringLiteral("Clearing the TCons..."),
                   QStringLiteral("TCons cleared"), [this] { network->ClearTCons(); });
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
    if (!MayAct() || row < 0 || otherRow < 0 || otherRow >= ui->listModules->count()) {
        return;
    }
    const BlockingOperation blocking(this, QStringLiteral("Moving the module..."));
    bool moved = false;
    LastResort::Run([&] {
        // The list may have become shorter than it is shown.
        if (qMax(row, otherRow) < network->ModuleCount()) {
            network->GetModule(static_cast<unsigned int>(row))->SetPosition(otherRow);
            network->GetModule(static_cast<unsigned int>(otherRow))->SetPosition(row);
            network->ApplyRemap();
            moved = true;
        }
    });
    LastResort::Run([this] { RefreshNetworkPage(); });
    ui->listModules->setCurrentRow(moved ? otherRow : ui->listModules->currentRow());
}

void MainWindow::on_btnHotswap_clicked() {
    CallAndRefreshIfDone(QStringLiteral("Finding hot-swapped modules..."), QStringLiteral("Find Hot Swapped: done"),
                         [this] { network->FindHotswapped(); });
}

void MainWindow::on_btnPing_clicked() {
    CallAndRefreshIfDone(QStringLiteral("Pinging the modules..."), QStringLiteral("Ping: done"),
                         [this] { network->Ping(); });
}

void MainWindow::on_btnSetSpeed_clicked() {
    const QList<QListWidgetItem*> selected = ui->listAvailableSpeeds->selectedItems();
    if (!MayAct()) {
        return;
    }
    if (selected.isEmpty()) {
        ShowErrorBox(this, errorTitle, QStringLiteral("A speed to set has not been selected."));
        return;
    }
    const QString text = selected.first()->text();
    CallAndRefreshIfDone(QStringLiteral("Setting the speed..."), QStringLiteral("Speed set: ") + text,
                         [&] { network->setNetSpeed(TavikLibrary::eNetSpeed_FromString(ToLibrary(text))); });
}

void MainWindow::on_btnLoadXML_clicked() {
    const QString name = MayAct() ? AskFileToLoad(this) : QString();
    if (!name.isEmpty()) {
        CallAndRefresh(QStringLiteral("Error Loading File"), QStringLiteral("Loading the file..."),
                       QStringLiteral("Loaded: ") + name, [&] { network->Load(ToLibrary(name)); });
    }
}

void MainWindow::on_btnSaveXML_clicked() {
    const QString name = MayAct() ? AskFileToSave(this) : QString();
    if (!name.isEmpty()) {
        CallAndRefresh(QStringLiteral("Error Saving File"), QStringLiteral("Saving the file..."),
                       QStringLiteral("Saved: ") + name, [&] { network->Save(ToLibrary(name)); });
    }
}

void MainWindow::SetControlsEnabled(bool enable) {
    for (QWidget* widget : std::initializer_list<QWidget*>{
             ui->btnConnectAll, ui->btnDisconnectAll, ui->tableNetworks, ui->listModules, ui->btnHotswap, ui->btnPing,
             ui->btnNotify, ui->btnAddModule, ui->btnClearModules, ui->btnClearTcons, ui->btnLoadXML, ui->btnSaveXML}) {
        widget->setEnabled(enable);
    }
    networkPage->EnableCommands();
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
    AboutBox(this).exec();
}
