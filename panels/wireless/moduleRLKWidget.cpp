#include "panels/wireless/moduleRLKWidget.h"

#include "library/TavikModuleRLK.h"
#include "panels/common/BackgroundCalls.h"
#include "panels/common/BlockingOperation.h"
#include "panels/common/Fields.h"
#include "panels/common/HostWindow.h"
#include "panels/common/LastResort.h"
#include "panels/common/MessageBoxes.h"
#include "panels/common/ModalDialog.h"
#include "panels/common/Run.h"
#include "panels/wireless/DialogReadKRV.h"
#include "panels/wireless/KRV_Settings_Dialog.h"
#include "panels/wireless/KRV_X_Settings_Dialog.h"
#include "ui_moduleRLKWidget.h"

#include <QPointer>

using TavikLibrary::eRLK_DeviceType;
using TavikLibrary::RLK_Device;

namespace {

const QLatin1String moduleTitle("RLK Module");

/// How many characters a hand tool's identity has.
constexpr int identityLength = 10;

} // namespace

moduleRLKWidget::moduleRLKWidget(QWidget* parent)
    : TypePanelOf(parent, moduleTitle), ui(std::make_unique<Ui::moduleRLKWidget>()) {
    ui->setupUi(this);
    rows = Rows();
    // The panel does not jump when the banner comes and goes.
    QSizePolicy bannerPolicy = ui->lblWait->sizePolicy();
    bannerPolicy.setRetainSizeWhenHidden(true);
    ui->lblWait->setSizePolicy(bannerPolicy);
    ui->lblWait->hide();
    connect(this, &moduleRLKWidget::restartFinished, this, &moduleRLKWidget::onRestartFinished);
}

moduleRLKWidget::~moduleRLKWidget() = default;

std::array<moduleRLKWidget::Row, moduleRLKWidget::slotCount> moduleRLKWidget::Rows() const {
    return {{
        {ui->tbTavikID1, ui->tbName1, ui->tbDeviceType1, ui->btnRead1, ui->btnConfig1},
        {ui->tbTavikID2, ui->tbName2, ui->tbDeviceType2, ui->btnRead2, ui->btnConfig2},
        {ui->tbTavikID3, ui->tbName3, ui->tbDeviceType3, ui->btnRead3, ui->btnConfig3},
        {ui->tbTavikID4, ui->tbName4, ui->tbDeviceType4, ui->btnRead4, ui->btnConfig4},
        {ui->tbTavikID5, ui->tbName5, ui->tbDeviceType5, ui->btnRead5, ui->btnConfig5},
        {ui->tbTavikID6, ui->tbName6, ui->tbDeviceType6, ui->btnRead6, ui->btnConfig6},
    }};
}

RLK_Device* moduleRLKWidget::Device(int slot) {
    return module->Devices()->GetDevice(slot);
}

bool moduleRLKWidget::HasIdentity(int slot) {
    return FromLibrary(Device(slot)->TavikIdentity()).toUcs4().size() == identityLength;
}

// Filling

void moduleRLKWidget::Fill() {
    for (const Row& row : rows) {
        row.identity->clear();
        row.name->clear();
        ShowInField(row.deviceType, QString());
    }
    WakeDevices();
    for (int slot = 0; slot < slotCount; ++slot) {
        Device(slot)->UpdateDeviceFieldData();
    }
    ShowDevices();
}

void moduleRLKWidget::WakeDevices() {
    for (int slot = 0; slot < slotCount; ++slot) {
        try {
            Device(slot)->ReadAllChannels();
        } catch (const std::runtime_error&) {
            // An empty slot has nothing to read, and a hand tool may be out of range.
            continue;
        }
    }
}

void moduleRLKWidget::ShowDevices() {
    std::array<QString, slotCount> identities;
    std::array<QString, slotCount> types;
    std::array<QString, slotCount> names;
    for (int slot = 0; slot < slotCount; ++slot) {
        identities[slot] = FromLibrary(Device(slot)->TavikIdentity());
    }
    for (int slot = 0; slot < slotCount; ++slot) {
        types[slot] = FromLibrary(TavikLibrary::eRLK_DeviceType_ToString(Device(slot)->DeviceType()));
    }
    for (int slot = 0; slot < slotCount; ++slot) {
        names[slot] = FromLibrary(Device(slot)->DeviceName());
    }
    // All or nothing: Apply writes what is shown.
    for (int slot = 0; slot < slotCount; ++slot) {
        rows[slot].identity->setText(identities[slot]);
        ShowInField(rows[slot].deviceType, types[slot]);
        rows[slot].name->setText(names[slot]);
    }
}

void moduleRLKWidget::SetEnabled(bool enable) {
    if (module == nullptr) {
        return;
    }
    const bool usable = enable && filled;
    for (int slot = 0; slot < slotCount; ++slot) {
        bool known = false;
        bool hasIdentity = false;
        if (usable) {
            LastResort::Run([&] {
                known = HasIdentity(slot) && Device(slot)->DeviceType() != eRLK_DeviceType::None;
                hasIdentity = HasIdentity(slot);
            });
        }
        rows[slot].configure->setEnabled(known);
        rows[slot].read->setEnabled(hasIdentity);
        rows[slot].deviceType->setEnabled(usable);
        rows[slot].name->setEnabled(usable);
    }
    ui->btnApplySettings->setEnabled(usable);
}

// Writing identities and names, and the restart that makes them effective

void moduleRLKWidget::on_btnApplySettings_clicked() {
    if (!filled || !restart.expired()) {
        return;
    }
    errors.Try([this] {
        WriteIdentitiesAndNames();
        StartRestart();
    });
}

void moduleRLKWidget::WriteIdentitiesAndNames() {
    std::array<RLK_Device*, slotCount> devices;
    for (int slot = 0; slot < slotCount; ++slot) {
        devices[slot] = Device(slot);
    }
    for (int slot = 0; slot < slotCount; ++slot) {
        devices[slot]->setTavikIdentity(ToLibrary(rows[slot].identity->text()));
    }
    for (int slot = 0; slot < slotCount; ++slot) {
        devices[slot]->setDeviceName(ToLibrary(rows[slot].name->text()));
    }
}

void moduleRLKWidget::StartRestart() {
    auto run = std::make_shared<Run>(*mainWindow, QStringLiteral("wireless restart"), nullptr);
    run->activity.ShowSeconds(QStringLiteral("Restarting the wireless connection module"));
    restart = run;
    const QPointer<moduleRLKWidget> panel(this);
    const QPointer<HostWindow> host(mainWindow);
    const auto finished = [panel, host, run = std::move(run)](const std::optional<QString>& failure) mutable {
        if (!failure.has_value()) {
            run->activity.SetOutcome(QStringLiteral("Wireless connection module restarted, %1 s"));
        } else if (host != nullptr) {
            ShowErrorBox(host, moduleTitle, *failure);
        }
        run.reset();
        if (panel != nullptr) {
            emit panel->restartFinished();
        }
    };
    BackgroundCalls::Start([restarted = module] { restarted->Restart(); }, finished);
    ui->lblWait->show();
}

void moduleRLKWidget::onRestartFinished() {
    if (mainWindow->IsClosing()) {
        return;
    }
    const BlockingOperation blocking(mainWindow, QStringLiteral("Reading the hand tools..."));
    LastResort::Run([this] { FillAnew(); });
    ui->lblWait->hide();
}

// The dialogs of the slots

void moduleRLKWidget::ReadDevice(int slot) {
    LastResort::Run([this, slot] { ModalDialog<DialogReadKRV>(slot, Device(slot), this).Run(); });
}

void moduleRLKWidget::ConfigureDevice(int slot) {
    errors.Try([this, slot] {
        RLK_Device* device = Device(slot);
        switch (device->DeviceType()) {
        case eRLK_DeviceType::KRV:
            RunSettingsDialog<KRV_Settings_Dialog>(device);
            break;
        case eRLK_DeviceType::KRVX:
            RunSettingsDialog<KRV_X_Settings_Dialog>(device);
            break;
        default:
            ShowErrorBox(this, QStringLiteral("RLK Config"), QStringLiteral("Unsupported KRV type"));
        }
    });
}

template <class Dialog>
void moduleRLKWidget::RunSettingsDialog(RLK_Device* device) {
    const QPointer<TypePanel> panel(this);
    ModalDialog<Dialog> dialog(mainWindow, device, device->Settings());
    if (IsOpen(panel)) {
        // The dialog belongs to the window, but its settings to the module, which goes with the panel.
        connect(this, &TypePanel::Closed, &*dialog, &QDialog::reject);
        dialog.Run();
    }
}
