#pragma once

#include "panels/common/HostWindow.h"
#include "tools/driver/DialogResponder.h"

/// What must hold of the program's window, whatever the operator did and whatever failed before. Each function returns
/// the violations, one sentence each. The sweep checks after every step, the monkey after every event.
namespace Oracle {

/// The runs that the window offers to stop, such as "notify run".
QStringList RunsOffered(const QWidget& window);

/// While nothing runs: no override cursor, no activity in the status bar (the text of an outcome is cleared by this
/// check), every control of a filled page enabled, no stop of a loop offered.
QStringList IdleErrors(HostWindow& window);
/// While a loop of the program runs: something can be stopped, and every main control is disabled.
QStringList LoopErrors(const QWidget& window);
/// At any time: a list shows the modules of the selected network or none, a page shows the selected module or none, and
/// a page that shows none has no enabled command that acts on its content.
QStringList PageErrors(const QWidget& window);

/// The form of a message box: title, plain text, buttons.
QStringList BoxErrors(const SeenBox& box);

/// What the program leaves behind when its window is destroyed: windows, an override cursor, calls on removed modules.
QStringList TeardownErrors();

} // namespace Oracle
