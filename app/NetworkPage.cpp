#include "app/NetworkPage.h"

#include "app/CapabilityLabel.h"
#include "library/TavikModule.h"
#include "library/TavikNetwork.h"
#include "panels/common/Fields.h"
#include "panels/common/HostWindow.h"
#include "panels/common/Text.h"
#include "ui_MainWindow.h"

#include <QScopeGuard>

using TavikLibrary::eNetSpeed;
using TavikLibrary::TavikNetwork;

NetworkPage::NetworkPage(HostWindow& mainWindow, const Ui::MainWindow& form) : window(mainWindow), ui(form) {}

void NetworkPage::Fill(TavikNetwork& network) {
    auto failed = qScopeGuard([this] { Empty(); });
    ShowCapabilities(network);
    ShowSpeeds(network);
    ListModules(network);
    failed.dismiss();
    filled = true;
    EnableCommands();
}

void NetworkPage::EnableCommands() {
    for (QPushButton* command : {ui.btnMoveUp, ui.btnMoveDown, ui.btnDeleteModule, ui.btnSetSpeed}) {
        if (!filled && command->hasFocus()) {
            // The focus would go on to a button that changes the list.
            ui.listModules->setFocus();
        }
        command->setEnabled(filled && !window.ControlsAreHeld());
    }
}

void NetworkPage::Empty() {
    const QList<CapabilityLabel*> labels = ui.tabNetwork->findChildren<CapabilityLabel*>();
    for (CapabilityLabel* label : labels) {
        label->ShowNothing();
    }
    ShowInField(ui.editCurrentSpeed, QString());
    ui.listAvailableSpeeds->clear();
    ui.listModules->clear();
    filled = false;
    EnableCommands();
}

void NetworkPage::ShowCapabilities(TavikNetwork& network) {
    ui.lblBufferedCapable->ShowCapability("Buffered Capable:\t\t\t", network.BufferedCapable());
    ui.lblBufferedExternalSourceCapable->ShowCapability("Buffered External Source Capable:\t\t",
                                                        network.BufferedExternalSourceCapable());
    ui.lblDynamicCapable->ShowCapability("Dynamic Capable:\t\t\t\t", network.DynamicCapable());
    // Deliberate: repeats DynamicCapable(), whatever Dynamic2Capable() returns.
    ui.lblDynamic2Capable->ShowCapability("Dynamic 2 Capable:\t\t\t", network.DynamicCapable());
    ui.lblDynamicExternalSourceCapable->ShowCapability("Dynamic External Source Capable:\t\t",
                                                       network.DynamicExternalSourceCapable());
    ui.lblReadburstCapable->ShowCapability("Readburst Capable:\t\t\t", network.ReadBurstCapable());
    ui.lblLowSpeedCapable->ShowCapability("Low Speed Capable:\t\t", network.SpeedAvailable(eNetSpeed::Low));
    ui.lblHighSpeedCapable->ShowCapability("High Speed Capable:\t\t", network.SpeedAvailable(eNetSpeed::High));
    ui.lblUltraHighSpeedCapable->ShowCapability("Ultra High Speed Capable:\t\t",
                                                network.SpeedAvailable(eNetSpeed::UltraHigh));
}

void NetworkPage::ShowSpeeds(TavikNetwork& network) {
    ShowInField(ui.editCurrentSpeed, FromLibrary(TavikLibrary::eNetSpeed_ToString(network.NetSpeed())));
    ui.listAvailableSpeeds->clear();
    for (const eNetSpeed speed : network.AvailableSpeeds()) {
        ui.listAvailableSpeeds->addItem(FromLibrary(TavikLibrary::eNetSpeed_ToString(speed)));
    }
}

void NetworkPage::ListModules(TavikNetwork& network) {
    const int row = ui.listModules->currentRow();
    ui.listModules->clear();
    for (int index = 0; index < network.ModuleCount(); ++index) {
        ui.listModules->addItem(FromLibrary(network.GetModule(static_cast<unsigned int>(index))->Identity()));
    }
    if (row < ui.listModules->count()) {
        ui.listModules->setCurrentRow(row);
    }
}
