#pragma once

#include "tools/sweep/Walk.h"

extern const char* const failureText;
extern const int failureCode;

/// The critical boxes among those that the operator has seen.
QVector<SeenBox> CriticalBoxes(const QVector<SeenBox>& boxes);

/// Waits until the boxes of a step whose calls failed in this way have come and gone. Returns what is wrong with them.
QStringList JudgeBoxes(DialogResponder& boxes, const OutlinedStep& outlined, Variant variant);
