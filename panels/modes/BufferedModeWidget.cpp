#include "panels/modes/BufferedModeWidget.h"

#include "ui_BufferedModeWidget.h"

BufferedModeWidget::BufferedModeWidget(QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::BufferedModeWidget>()) {
    ui->setupUi(this);
}

BufferedModeWidget::~BufferedModeWidget() = default;

void BufferedModeWidget::setNetwork(HostWindow*, TavikLibrary::TavikServer*, TavikLibrary::TavikNetwork*,
                                    TavikLibrary::TavikModule*) {}

void BufferedModeWidget::setCommandsEnabled(bool) {}

void BufferedModeWidget::ForgetModule() {}
