#include "panels/types/ModuleRNWidget.h"

#include "library/TavikModuleRN.h"
#include "panels/common/Fields.h"
#include "ui_ModuleRNWidget.h"

#include <algorithm>
#include <limits>

using TavikLibrary::eDirection;

namespace {

/// Without the decimals; what no count can be is the nearest one that can.
int ToCounts(double value) {
    constexpr double least = std::numeric_limits<int>::min();
    constexpr double most = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(value, least, most));
}

} // namespace

ModuleRNWidget::ModuleRNWidget(QWidget* parent) : TypePanelWithForm(parent, QStringLiteral("RN Module")) {
    ui->setupUi(this);
}

void ModuleRNWidget::Fill() {
    // Until the module has said so, no direction is shown.
    Check(ui->radioNormal, false);
    Check(ui->radioReversed, false);
    Check(ui->radioNormal, module->Direction() == eDirection::Normal);
    Check(ui->radioReversed, module->Direction() == eDirection::Reversed);
}

std::vector<QWidget*> ModuleRNWidget::Commands() const {
    return {ui->radioNormal, ui->radioReversed, ui->btnPresetinCounts, ui->btnPresetinUnits};
}

void ModuleRNWidget::on_radioNormal_clicked(bool checked) {
    SetDirection(checked);
}

void ModuleRNWidget::on_radioReversed_clicked(bool checked) {
    SetDirection(!checked);
}

void ModuleRNWidget::SetDirection(bool normal) {
    errors.Try([&] { module->setDirection(normal ? eDirection::Normal : eDirection::Reversed); });
}

void ModuleRNWidget::on_btnPresetinCounts_clicked() {
    errors.Try([this] { module->setPresetInCounts(ToCounts(ui->sbPreset->value())); });
}

void ModuleRNWidget::on_btnPresetinUnits_clicked() {
    errors.Try([this] { module->setPresetInUnits(ui->sbPreset->value()); });
}
