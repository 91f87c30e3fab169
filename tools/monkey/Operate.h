#pragma once

#include "tools/monkey/Step.h"

/// Does one step. What the operator does is put into the queue of the window system, as a real mouse and keyboard do
/// it, and is delivered by whatever event loop runs next. A step that cannot be done now (its control is not there, is
/// disabled or is covered) does nothing; the answer is whether it was done.
bool Operate(const Step& step);

/// What happens to a network's description in files: the names that are typed into file boxes lie in this folder, in
/// which one of the files is no such description.
void UseFolder(const QString& folder);
