#include "app/NetworkPage.h"

#include "app/CapabilityLabel.h"
#include "library/TavikModule.h"
#include "library/TavikNetwork.h"
#include "panels/common/Fields.h"
#include "panels/common/HostWindow.h"
#include "panels/common/Text.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScopeGuard>

using TavikLibrary::eNetSpeed;
using TavikLibrary::TavikNetwork;

NetworkPage::NetworkPage(HostWindow& mainWindow, QWidget& networkTab)
    : window(mainWindow),
      tab(networkTab),
      listModules(tab.findChild<QListWidget*>(QStringLiteral("listModules"))),
      listSpeeds(tab.findChild<QListWidget*>(QStringLiteral("listAvailableSpeeds"))),
      currentSpeed(tab.findChild<QLineEdit*>(QStringLiteral("editCurrentSpeed"))) {}

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
    for (const char* name : {"btnMoveUp", "btnMoveDown", "btnDeleteModule", "btnSetSpeed"}) {
        auto* command = tab.findChild<QPushButton*>(QLatin1String(name));
        if (!filled && command->hasFocus()) {
            // The focus would go on to a button that changes the list.
            listModules->setFocus();
        }
        command->setEnabled(filled && !window.ControlsAreHeld());
    }
}

void NetworkPage::Empty() {
    const QList<CapabilityLabel*> labels = tab.findChildren<CapabilityLabel*>();
    for (CapabilityLabel* label : labels) {
        label->ShowNothing();
    }
    ShowInField(currentSpeed, QString());
    listSpeeds->clear();
    listModules->clear();
    filled = false;
    EnableCommands();
}

void NetworkPage::ShowCapabilities(TavikNetwork& network) {
    const auto show = [this](const char* label, const char* prefixAndTabs, bool capable) {
        tab.findChild<CapabilityLabel*>(QLatin1String(label))->ShowCapability(prefixAndTabs, capable);
    };
    show("lblBufferedCapable", "Buffered Capable:\t\t\t", network.BufferedCapable());
    show("lblBufferedExternalSourceCapable", "Buffered External Source Capable:\t\t",
         network.BufferedExternalSourceCapable());
    show("lblDynamicCapable", "Dynamic Capable:\t\t\t\t", network.DynamicCapable());
    // Deliberate: repeats DynamicCapable(), whatever Dynamic2Capable() returns.
    show("lblDynamic2Capable", "Dynamic 2 Capable:\t\t\t", network.DynamicCapable());
    show("lblDynamicExternalSourceCapable", "Dynamic External Source Capable:\t\t",
         network.DynamicExternalSourceCapable());
    show("lblReadburstCapable", "Readburst Capable:\t\t\t", network.ReadBurstCapable());
    show("lblLowSpeedCapable", "Low Speed Capable:\t\t", network.SpeedAvailable(eNetSpeed::Low));
    show("lblHighSpeedCapable", "High Speed Capable:\t\t", network.SpeedAvailable(eNetSpeed::High));
    show("lblUltraHighSpeedCapable", "Ultra High Speed Capable:\t\t", network.SpeedAvailable(eNetSpeed::UltraHigh));
}

void NetworkPage::ShowSpeeds(TavikNetwork& network) {
    ShowInField(currentSpeed, FromLibrary(TavikLibrary::eNetSpeed_ToString(network.NetSpeed())));
    listSpeeds->clear();
    for (const eNetSpeed speed : network.AvailableSpeeds()) {
        listSpeeds->addItem(FromLibrary(TavikLibrary::eNetSpeed_ToString(speed)));
    }
}

void NetworkPage::ListModules(TavikNetwork& network) {
    const int row = listModules->currentRow();
    listModules->clear();
    for (int index = 0; index < network.ModuleCount(); ++index) {
        listModules->addItem(FromLibrary(network.GetModule(static_cast<unsigned int>(index))->Identity()));
    }
    if (row < listModules->count()) {
        listModules->setCurrentRow(row);
    }
}
