#include "panels/airgauge/ModulePNXWidget.h"

#include "library/TavikModulePNX.h"
#include "panels/airgauge/LengthUnits.h"
#include "panels/airgauge/PNXConfigurationDialog.h"
#include "panels/airgauge/PNXMaster.h"
#include "panels/common/Fields.h"
#include "panels/common/HostWindow.h"
#include "panels/common/MessageBoxes.h"
#include "panels/common/WaitCursor.h"
#include "ui_ModulePNXWidget.h"

#include <QPointer>

namespace {

const QLatin1String boxTitle("PNX Module");

/// How a reading's failure begins after something was changed at the air gauge itself.
const QLatin1String informationIsOld("Module Information needs reading.");

/// The pressure sensor's 14-bit counts stand for 0 to 30 psi.
double PressureOf(int counts) {
    return counts / 16383.0 * 30.0;
}

} // namespace

ModulePNXWidget::ModulePNXWidget(QWidget* parent) : TypePanel(parent), ui(std::make_unique<Ui::ModulePNXWidget>()) {
    ui->setupUi(this);
}

ModulePNXWidget::~ModulePNXWidget() = default;

void ModulePNXWidget::SetModule(HostWindow* newMainWindow, TavikLibrary::TavikServer* newServer,
                                TavikLibrary::TavikNetwork* newNetwork, TavikLibrary::TavikModulePNX* newModule) {
    mainWindow = newMainWindow;
    server = newServer;
    network = newNetwork;
    module = newModule;

    ShowInformation();
    RefreshFromModule();
}

void ModulePNXWidget::SetEnabled(bool enable) {
    ui->btnMaster->setEnabled(enable);
    ui->btnConfigure->setEnabled(enable);
    ui->btnUpdateModuleInfo->setEnabled(enable);
}

void ModulePNXWidget::ShowInformation() {
    const WaitCursor waitCursor;
    const TavikLibrary::ePNX_UOM unit = module->DisplayUnitsOfMeasure();
    ShowInField(ui->tbMasterA, LengthText(module->MasterMinReadingInUOM(), unit));
    ShowInField(ui->tbMasterB, LengthText(module->MasterMaxReadingInUOM(), unit));
    ShowInField(ui->tbLimitHigh, LengthText(module->LimitHigh(), unit));
    ShowInField(ui->tbLimitLow, LengthText(module->LimitLow(), unit));
    ShowInField(ui->tbStatus, module->IsMastered() ? QStringLiteral("Mastered") : QStringLiteral("Not Mastered"));
}

void ModulePNXWidget::UpdateModuleInformation() {
    Guarded(this, boxTitle, QString(), [this] {
        module->UpdateInfo();
        ShowInformation();
        mainWindow->RedisplayModuleInformation();
    });
}

void ModulePNXWidget::RefreshFromModule() {
    const double length = ReadLength();
    ShowInField(ui->tbPressure, PressureText(module->PressureReading()));
    const TavikLibrary::ePNX_UOM unit = module->DisplayUnitsOfMeasure();
    const bool asPressure = module->OutputReadingAsPressure();
    ShowInField(ui->tbReading,
                asPressure ? PressureText(PressureOf(module->ReadInCounts())) : LengthText(length, unit));
}

double ModulePNXWidget::ReadLength() {
    try {
        return module->ReadInUnits();
    } catch (const std::runtime_error& error) {
        if (!FromLibrary(error.what()).startsWith(informationIsOld)) {
            return 0.0;
        }
    }
    UpdateModuleInformation();
    return module->ReadInUnits();
}

bool ModulePNXWidget::RunDialog(QDialog* dialog) {
    // Whoever deletes this panel while the dialog is open deletes the dialog with it.
    const QPointer<ModulePNXWidget> panel(this);
    const QPointer<QDialog> stillThere(dialog);
    dialog->exec();
    delete stillThere.data();
    return panel != nullptr && !mainWindow->IsClosing();
}

void ModulePNXWidget::on_btnMaster_clicked() {
    if (RunDialog(new PNXMaster(module, this))) {
        UpdateModuleInformation();
    }
}

void ModulePNXWidget::on_btnConfigure_clicked() {
    Guarded(this, boxTitle, QString(), [this] {
        if (RunDialog(new PNXConfigurationDialog(module, this))) {
            UpdateModuleInformation();
            RefreshFromModule();
        }
    });
}

void ModulePNXWidget::on_btnUpdateModuleInfo_clicked() {
    UpdateModuleInformation();
}
