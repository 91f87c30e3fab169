#include "panels/common/TypePanel.h"

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
