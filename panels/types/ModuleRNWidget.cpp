#include "panels/types/ModuleRNWidget.h"

#include "library/TavikModuleRN.h"
#include "panels/common/Fields.h"
#include "panels/common/MessageBoxes.h"
#include "ui_ModuleRNWidget.h"

#include <algorithm>
#include <limits>

using TavikLibrary::eDirection;

namespace {

const QLatin1String boxTitle("RN Module");

/// Without the decimals; what no count can be is the nearest one that can.
int ToCounts(double value) {
    constexpr double least = std::numeric_limits<int>::min();
    constexpr double most = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(value, least, most));
}

} // namespace

ModuleRNWidget::ModuleRNWidget(QWidget* parent) : TypePanel(parent), ui(std::make_unique<Ui::ModuleRNWidget>()) {
    ui->setupUi(this);
}

ModuleRNWidget::~ModuleRNWidget() = default;

void ModuleRNWidget::SetModule(HostWindow* newMainWindow, TavikLibrary::TavikServer* newServer,
                               TavikLibrary::TavikNetwork* newNetwork, TavikLibrary::TavikModuleRN* newModule) {
    mainWindow = newMainWindow;
    server = newServer;
    network = newNetwork;
    module = newModule;

    Check(ui->radioNormal, module->Direction() == eDirection::Normal);
    Check(ui->radioReversed, module->Direction() == eDirection::Reversed);
}

void ModuleRNWidget::SetEnabled(bool enable) {
    ui->radioNormal->setEnabled(enable);
    ui->radioReversed->setEnabled(enable);
    ui->btnPresetinCounts->setEnabled(enable);
    ui->btnPresetinUnits->setEnabled(enable);
}

void ModuleRNWidget::on_radioNormal_clicked(bool checked) {
    SetDirection(checked);
}

void ModuleRNWidget::on_radioReversed_clicked(bool checked) {
    SetDirection(!checked);
}

void ModuleRNWidget::SetDirection(bool normal) {
    Guarded(this, boxTitle, QString(),
            [&] { module->setDirection(normal ? eDirection::Normal : eDirection::Reversed); });
}

void ModuleRNWidget::on_btnPresetinCounts_clicked() {
    Guarded(this, boxTitle, QString(), [this] { module->setPresetInCounts(ToCounts(ui->sbPreset->value())); });
}

void ModuleRNWidget::on_btnPresetinUnits_clicked() {
    Guarded(this, boxTitle, QString(), [this] { module->setPresetInUnits(ui->sbPreset->value()); });
}
