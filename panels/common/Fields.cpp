#include "panels/common/Fields.h"

#include "panels/common/Text.h"

#include <QLineEdit>

void ShowInField(QLineEdit* field, const QString& text) {
    field->setText(text);
    field->setCursorPosition(0);
    field->setToolTip(PlainToolTip(text));
}
