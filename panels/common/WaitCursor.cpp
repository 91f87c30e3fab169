#include "panels/common/WaitCursor.h"

#include <QApplication>

WaitCursor::WaitCursor() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

WaitCursor::~WaitCursor() {
    Restore();
}

void WaitCursor::Restore() {
    if (shown) {
        QApplication::restoreOverrideCursor();
        shown = false;
    }
}
