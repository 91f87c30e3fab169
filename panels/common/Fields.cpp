#include "panels/common/Fields.h"

#include "panels/common/Text.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>

void ShowInField(QLineEdit* field, const QString& text) {
    field->setText(text);
    field->setCursorPosition(0);
    field->setToolTip(PlainToolTip(text));
}

void ShowInField(QLabel* field, const QString& text) {
    field->setText(text);
    field->setToolTip(PlainToolTip(text));
}

void Check(QRadioButton* button, bool checked) {
    // Exclusive buttons would hold on to the last checked one.
    button->setAutoExclusive(checked);
    button->setChecked(checked);
    button->setAutoExclusive(true);
}

void FitToRows(QListWidget* list) {
    constexpr int spare = 2;
    const int around = 2 * list->frameWidth() + spare;
    list->setMinimumSize(list->sizeHintForColumn(0) + around, list->count() * list->sizeHintForRow(0) + around);
}
