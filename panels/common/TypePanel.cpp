#include "panels/common/TypePanel.h"

#include <QWidget>

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
