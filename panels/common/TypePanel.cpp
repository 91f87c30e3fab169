#include "panels/common/TypePanel.h"

#include <QDialog>
#include <QPointer>

void TypePanel::SetEnabled(bool enable) {
    for (QWidget* command : Commands()) {
        command->setEnabled(enable && filled);
    }
}

void TypePanel::FillAnew() {
    filled = false;
    SetEnabled(false);
    const QPointer<TypePanel> panel(this);
    Fill();
    // A box that the filling opens may outlive the panel.
    if (panel != nullptr) {
        filled = true;
        SetEnabled(true);
    }
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
