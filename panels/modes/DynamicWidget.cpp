#include "panels/modes/DynamicWidget.h"

#include "ui_DynamicWidget.h"

DynamicWidget::DynamicWidget(QWidget* parent) : QWidget(parent), ui(std::make_unique<Ui::DynamicWidget>()) {
    ui->setupUi(this);
}

DynamicWidget::~DynamicWidget() = default;

void DynamicWidget::setNetwork(HostWindow*, TavikLibrary::TavikServer*, TavikLibrary::TavikNetwork*,
                               TavikLibrary::TavikModule*) {}

void DynamicWidget::setCommandsEnabled(bool) {}

void DynamicWidget::ForgetNetwork() {}
