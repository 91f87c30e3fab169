#include "panels/modes/DifferenceModeWidget.h"

#include "ui_DifferenceModeWidget.h"

DifferenceModeWidget::DifferenceModeWidget(QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::DifferenceModeWidget>()) {
    ui->setupUi(this);
}

DifferenceModeWidget::~DifferenceModeWidget() = default;

void DifferenceModeWidget::setNetwork(HostWindow*, TavikLibrary::TavikServer*, TavikLibrary::TavikNetwork*,
                                      TavikLibrary::TavikModule*) {}

void DifferenceModeWidget::setCommandsEnabled(bool) {}

void DifferenceModeWidget::ForgetModule() {}

void DifferenceModeWidget::RaiseStopFlag() {}
