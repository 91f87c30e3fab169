#include "panels/types/ModuleKXwidget.h"

#include "library/TavikModuleKX.h"
#include "panels/common/MessageBoxes.h"
#include "ui_ModuleKXwidget.h"

namespace {

const QLatin1String boxTitle("KX Module");

bool HasSelection(const QListWidget* list) {
    return !list->selectedItems().isEmpty();
}

} // namespace

ModuleKXwidget::ModuleKXwidget(QWidget* parent) : TypePanel(parent), ui(std::make_unique<Ui::ModuleKXwidget>()) {
    ui->setupUi(this);
}

ModuleKXwidget::~ModuleKXwidget() = default;

void ModuleKXwidget::SetModule(HostWindow* newMainWindow, TavikLibrary::TavikServer* newServer,
                               TavikLibrary::TavikNetwork* newNetwork, TavikLibrary::TavikModuleKX* newModule) {
    mainWindow = newMainWindow;
    server = newServer;
    network = newNetwork;
    module = newModule;

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

void ModuleKXwidget::SetEnabled(bool enable) {
    ui->btnSetResolution->setEnabled(enable && ui->listResolutions->count() > 0);
    ui->btnSetAveraging->setEnabled(enable && ui->listAveragings->count() > 0);
}

void ModuleKXwidget::on_btnSetResolution_clicked() {
    Guarded(this, boxTitle, QString(), [this] {
        if (HasSelection(ui->listResolutions)) {
            const QString text = ui->listResolutions->currentItem()->text();
            module->setResolution(TavikLibrary::eResolution_FromString(ToLibrary(text)));
        }
        ShowCurrentResolution();
    });
}

void ModuleKXwidget::on_btnSetAveraging_clicked() {
    Guarded(this, boxTitle, QString(), [this] {
        if (HasSelection(ui->listAveragings)) {
            const QString text = ui->listAveragings->currentItem()->text();
            module->setAveraging(TavikLibrary::eAveraging_FromString(ToLibrary(text)));
        }
        ShowCurrentAveraging();
    });
}

void ModuleKXwidget::ShowCurrentResolution() {
    ui->tbCurrentResolution->setText(FromLibrary(TavikLibrary::eResolution_ToString(module->Resolution())));
}

void ModuleKXwidget::ShowCurrentAveraging() {
    ui->tbCurrentAveraging->setText(FromLibrary(TavikLibrary::eAveraging_ToString(module->Averaging())));
}
