#pragma once

#include "panels/common/HostWindow.h"

#include <QDialog>
#include <QPointer>

#include <utility>

/// A modal dialog, from its making to its end. Its parent may be deleted while it is open, and the dialog with it.
template <class Dialog>
class ModalDialog {
public:
    /// Propagates what the dialog's constructor throws.
    template <class... Arguments>
    explicit ModalDialog(Arguments&&... arguments) : dialog(new Dialog(std::forward<Arguments>(arguments)...)) {}
    ~ModalDialog() { delete dialog.data(); }
    ModalDialog(const ModalDialog&) = delete;
    ModalDialog& operator=(const ModalDialog&) = delete;

    Dialog* operator->() const { return dialog; }
    Dialog& operator*() const { return *dialog; }

    /// Shows the dialog until the operator closes it, and returns its result. It does not open once the host window has
    /// begun to close. Look at IsAlive() and at the owner before going on.
    int Run() { return HostWindow::IsClosingOver(dialog) ? static_cast<int>(QDialog::Rejected) : dialog->exec(); }
    bool IsAlive() const { return dialog != nullptr; }

private:
    QPointer<Dialog> dialog;
};
