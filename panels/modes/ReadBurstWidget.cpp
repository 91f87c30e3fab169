#include "panels/modes/ReadBurstWidget.h"

#include "ui_ReadBurstWidget.h"

ReadBurstWidget::ReadBurstWidget(QWidget* parent) : QWidget(parent), ui(std::make_unique<Ui::ReadBurstWidget>()) {
    ui->setupUi(this);
}

ReadBurstWidget::~ReadBurstWidget() = default;

void ReadBurstWidget::setNetwork(TavikLibrary::TavikServer*, TavikLibrary::TavikNetwork*) {}

void ReadBurstWidget::setCommandsEnabled(bool) {}
