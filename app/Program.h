#pragma once

/// The whole program: shows the main window and returns the exit code, 0 after the operator closed it and
/// 1 when the gauge library could not be started.
int RunProgram(int argc, char* argv[]);
