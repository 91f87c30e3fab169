#pragma once

#include "tools/sweep/ScenarioRun.h"

extern const char* const failureText;
extern const int failureCode;

/// The critical boxes among those that the operator has seen.
QVector<SeenBox> CriticalBoxes(const QVector<SeenBox>& boxes);

/// Waits until the boxes of a step with a fault of this type have been closed. Returns their errors.
QStringList BoxErrors(DialogResponder& boxes, const IndexedStep& indexed, FaultType faultType);
