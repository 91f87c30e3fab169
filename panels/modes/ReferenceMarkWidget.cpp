#include "panels/modes/ReferenceMarkWidget.h"

#include "ui_ReferenceMarkWidget.h"

ReferenceMarkWidget::ReferenceMarkWidget(QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::ReferenceMarkWidget>()) {
    ui->setupUi(this);
}

ReferenceMarkWidget::~ReferenceMarkWidget() = default;

void ReferenceMarkWidget::setNetwork(HostWindow*, TavikLibrary::TavikServer*, TavikLibrary::TavikNetwork*,
                                     TavikLibrary::TavikModuleRN*) {}

void ReferenceMarkWidget::setCommandsEnabled(bool) {}

void ReferenceMarkWidget::ForgetModule() {}

void ReferenceMarkWidget::AbandonSearch() {}
