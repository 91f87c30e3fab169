#include "panels/common/TypePanel.h"

#include <QDialog>

void TypePanel::SetEnabled(bool enable) {
    for (QWidget* command : Commands()) {
        command->setEnabled(enable && filled);
    }
}

void TypePanel::FillAnew() {
    filled = false;
    SetEnabled(false);
    Fill();
    filled = true;
    SetEnabled(true);
}

void TypePanel::closeEvent(QCloseEvent* event) {
    closed = true;
    const auto dialogs = findChildren<QDialog*>();
    for (QDialog* dialog : dialogs) {
        dialog->done(QDialog::Rejected);
    }
    emit Closed();
    QWidget::closeEvent(event);
}
