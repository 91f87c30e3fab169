#include "panels/wireless/moduleRLKWidget.h"

#include "library/TavikModuleRLK.h"
#include "panels/common/Fields.h"
#include "panels/common/HostWindow.h"
#include "panels/common/LastResort.h"
#include "panels/common/MessageBoxes.h"
#include "panels/common/ModalDialog.h"
#include "panels/common/Run.h"
#include "panels/common/WaitCursor.h"
#include "panels/wireless/DialogReadKRV.h"
#include "panels/wireless/KRV_Settings_Dialog.h"
#include "panels/wireless/KRV_X_Settings_Dialog.h"
#include "panels/wireless/ModuleRestart.h"
#include "ui_moduleRLKWidget.h"

#include <QScopeGuard>

using TavikLibrary::eRLK_DeviceType;
using TavikLibrary::RLK_Device;

namespace {

const QLatin1String moduleTitle("RLK Module");

/// How many characters a hand tool's identity has.
constexpr int identityLength = 10;

} // namespace

moduleRLKWidget::moduleRLKWidget(QWidget* parent)
    : TypePanelOf(parent, moduleTitle),
      ui(std::make_unique<Ui::moduleRLKWidget>()),
      restart(std::make_shared<ModuleRestart>(this)) {
    ui->setupUi(this);
    rows = Rows();
    // The panel does not jump when the banner comes and goes.
    QSizePolicy bannerPolicy = ui->lblWait->sizePolicy();
    bannerPolicy.setRetainSizeWhenHidden(true);
    ui->lblWait->setSizePolicy(bannerPolicy);
    connect(this, &moduleRLKWidget::restartFinished, this, &moduleRLKWidget::onRestartFinished);
}

moduleRLKWidget::~moduleRLKWidget() {
    restart->Forget();
}

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
    WakeDevices();
    for (int slot = 0; slot < slotCount; ++slot) {
        Device(slot)->UpdateDeviceFieldData();
    }
    ShowDevices();
    EnableCommands(true);
    ui->lblWait->hide();
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
    for (int slot = 0; slot < slotCount; ++slot) {
        rows[slot].identity->setText(FromLibrary(Device(slot)->TavikIdentity()));
    }
    for (int slot = 0; slot < slotCount; ++slot) {
        const eRLK_DeviceType type = Device(slot)->DeviceType();
        ShowInField(rows[slot].deviceType, FromLibrary(TavikLibrary::eRLK_DeviceType_ToString(type)));
    }
    for (int slot = 0; slot < slotCount; ++slot) {
        rows[slot].name->setText(FromLibrary(Device(slot)->DeviceName()));
    }
}

void moduleRLKWidget::SetEnabled(bool enable) {
    LastResort::Run([this, enable] { EnableCommands(enable); });
}

void moduleRLKWidget::EnableCommands(bool enable) {
    if (module == nullptr) {
        return;
    }
    for (int slot = 0; slot < slotCount; ++slot) {
        const bool known = enable && HasIdentity(slot) && Device(slot)->DeviceType() != eRLK_DeviceType::None;
        rows[slot].configure->setEnabled(known);
        rows[slot].read->setEnabled(enable && HasIdentity(slot));
    }
    for (const Row& row : rows) {
        row.deviceType->setEnabled(enable);
        row.name->setEnabled(enable);
    }
    ui->btnApplySettings->setEnabled(enable);
}

// Writing identities and names, and the restart that makes them effective

void moduleRLKWidget::on_btnApplySettings_clicked() {
    if (run != nullptr) {
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
    auto giveUp = qScopeGuard([this] { ShowRestarting(false); });
    ShowRestarting(true);
    restart->Start(module);
    giveUp.dismiss();
}

void moduleRLKWidget::ShowRestarting(bool nowRestarting) {
    ui->lblWait->setVisible(nowRestarting);
    run.reset();
    if (nowRestarting) {
        run = std::make_unique<Run>(*mainWindow, QStringLiteral("wireless restart"), nullptr);
        run->activity.ShowSeconds(QStringLiteral("Restarting the wireless connection module"));
    }
}

void moduleRLKWidget::onRestartFailed() {
    const auto goOn = qScopeGuard([keep = restart] { keep->FailureSeen(); });
    ShowErrorBox(mainWindow, moduleTitle, restart->Failure());
}

void moduleRLKWidget::onRestartFinished() {
    if (mainWindow->IsClosing()) {
        return;
    }
    const auto idleAgain = qScopeGuard([this] { ShowRestarting(false); });
    LastResort::Run([this] {
        const WaitCursor waitCursor;
        FillAnew();
    });
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
    TavikLibrary::RLK_DeviceSettingsBase* settings = device->Settings();
    ModalDialog<Dialog>(mainWindow, device, settings).Run();
}

void moduleRLKWidget::on_btnRead1_clicked() {
    ReadDevice(0);
}

void moduleRLKWidget::on_btnRead2_clicked() {
    ReadDevice(1);
}

void moduleRLKWidget::on_btnRead3_clicked() {
    ReadDevice(2);
}

void moduleRLKWidget::on_btnRead4_clicked() {
    ReadDevice(3);
}

void moduleRLKWidget::on_btnRead5_clicked() {
    ReadDevice(4);
}

void moduleRLKWidget::on_btnRead6_clicked() {
    ReadDevice(5);
}

void moduleRLKWidget::on_btnConfig1_clicked() {
    ConfigureDevice(0);
}

void moduleRLKWidget::on_btnConfig2_clicked() {
    ConfigureDevice(1);
}

void moduleRLKWidget::on_btnConfig3_clicked() {
    ConfigureDevice(2);
}

void moduleRLKWidget::on_btnConfig4_clicked() {
    ConfigureDevice(3);
}

void moduleRLKWidget::on_btnConfig5_clicked() {
    ConfigureDevice(4);
}

void moduleRLKWidget::on_btnConfig6_clicked() {
    ConfigureDevice(5);
}
