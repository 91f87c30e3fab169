#include "panels/types/ModuleKXwidget.h"

#include "library/TavikModuleKX.h"
#include "panels/common/Fields.h"
#include "ui_ModuleKXwidget.h"

namespace {

bool HasSelection(const QListWidget* list) {
    return !list->selectedItems().isEmpty();
}

} // namespace

ModuleKXwidget::ModuleKXwidget(QWidget* parent) : TypePanelWithForm(parent, QStringLiteral("KX Module")) {
    ui->setupUi(this);
}

void ModuleKXwidget::Fill() {
    ShowCurrentResolution();
    ShowCurrentAveraging();
    ui->listResolutions->clear();
    for (const TavikLibrary::eResolution resolution : module->AvailableResolutions()) {
        ui->listResolutions->addItem(FromLibrary(TavikLibrary::eResolution_ToString(resolution)));
    }
    ui->listAveragings->clear();
    for (const TavikLibrary::eAveraging averaging : module->AvailableAveragings()) {
        ui->listAveragings->addItem(FromLibrary(TavikLibrary::eAveraging_ToString(averaging)));
    }
}

std::vector<QWidget*> ModuleKXwidget::Commands() const {
    std::vector<QWidget*> commands;
    if (ui->listResolutions->count() > 0) {
        commands.push_back(ui->btnSetResolution);
    }
    if (ui->listAveragings->count() > 0) {
        commands.push_back(ui->btnSetAveraging);
    }
    return commands;
}

void ModuleKXwidget::on_btnSetResolution_clicked() {
    errors.Try([this] {
        if (HasSelection(ui->listResolutions)) {
            const QString text = ui->listResolutions->currentItem()->text();
            module->setResolution(TavikLibrary::eResolution_FromString(ToLibrary(text)));
        }
        ShowCurrentResolution();
    });
}

void ModuleKXwidget::on_btnSetAveraging_clicked() {
    errors.Try([this] {
        if (HasSelection(ui->listAveragings)) {
            const QString text = ui->listAveragings->currentItem()->text();
            module->setAveraging(TavikLibrary::eAveraging_FromString(ToLibrary(text)));
        }
        ShowCurrentAveraging();
    });
}

void ModuleKXwidget::ShowCurrentResolution() {
    ShowInField(ui->tbCurrentResolution, FromLibrary(TavikLibrary::eResolution_ToString(module->Resolution())));
}

void ModuleKXwidget::ShowCurrentAveraging() {
    ShowInField(ui->tbCurrentAveraging, FromLibrary(TavikLibrary::eAveraging_ToString(module->Averaging())));
}
