#pragma once

#include "tools/monkey/Step.h"

/// Does one step. What the operator does comes as events of the window system, like those of a real mouse and keyboard.
/// A step that cannot be done now (its control is not there, is disabled or is covered) does nothing; the answer is
/// whether it was done. An event may lead into a loop of the program: this comes back when that has ended.
bool Operate(const Step& step);
/// Delivers what is left of a step whose first event has led into a loop of the program; to be called there.
void DeliverInputs();

/// What happens to a network's description in files: the names that are typed into file boxes lie in this folder, in
/// which one of the files is no such description.
void UseFolder(const QString& folder);
