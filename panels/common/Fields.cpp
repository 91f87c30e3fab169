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
    // Exclusive buttons would hold on to the last checked one.
    button->setAutoExclusive(checked);
    button->setChecked(checked);
    button->setAutoExclusive(true);
}
