#include "panels/types/RowValues.h"

void FitToRows(QListWidget* list) {
    constexpr int spare = 2;
    const int around = 2 * list->frameWidth() + spare;
    list->setMinimumSize(list->sizeHintForColumn(0) + around, list->count() * list->sizeHintForRow(0) + around);
}
