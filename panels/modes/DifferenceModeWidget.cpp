#include "panels/modes/DifferenceModeWidget.h"

#include "ui_DifferenceModeWidget.h"

DifferenceModeWidget::DifferenceModeWidget(QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::DifferenceModeWidget>()) {
    ui->setupUi(this);
}

DifferenceModeWidget::~DifferenceModeWidget() = default;
