#include "panels/common/Fields.h"

#include "panels/common/Text.h"

#include <QLineEdit>
#include <QRadioButton>

void ShowInField(QLineEdit* field, const QString& text) {
    field->setText(text);
    field->setCursorPosition(0);
    field->setToolTip(PlainToolTip(text));
}

void Check(QRadioButton* button, bool checked) {
    // An exclusive pair would hold on to its last checked button.
    button->setAutoExclusive(checked);
    button->setChecked(checked);
    button->setAutoExclusive(true);
}
