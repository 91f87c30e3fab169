#pragma once

#include "panels/common/WaitCursor.h"

#include <QPointer>
#include <QScopeGuard>

#include <utility>

class QWidget;

/// Makes a results dialog for a page, has it filled, and runs it until the operator closes it. Throws what the filling
/// throws; nothing has been shown then. The page may go while the dialog is open.
template <class Dialog, class Fill>
void RunResultsDialog(QWidget* page, Fill&& fill) {
    const QPointer<Dialog> dialog = new Dialog(page);
    const auto deleteAfterwards = qScopeGuard([&dialog] { delete dialog.data(); });
    {
        const WaitCursor waiting;
        std::forward<Fill>(fill)(*dialog);
    }
    dialog->exec();
}
