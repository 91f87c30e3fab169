#pragma once

class QPoint;
class QSize;

/// The position of a window in the middle of the desktop. Where the desktop is smaller than the window, the window's
/// upper left corner, with the title bar and the menus, stays on it.
QPoint CentredOn(const QSize& desktop, const QSize& window);

/// The whole program: shows the main window and returns the exit code, 0 after the operator closed it and
/// 1 when the gauge library could not be started.
int RunProgram(int argc, char* argv[]);
