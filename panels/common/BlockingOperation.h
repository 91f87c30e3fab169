#pragma once

#include "panels/common/Activity.h"
#include "panels/common/WaitCursor.h"

/// An operation that blocks the window: the wait cursor is shown, the status bar says what is done before it begins,
/// and keys and clicks made meanwhile are dropped, because they were aimed at what was shown before. Not for a loop
/// with a Stop.
class BlockingOperation {
public:
    explicit BlockingOperation(HostWindow* host, const QString& text = QString());
    ~BlockingOperation();
    BlockingOperation(const BlockingOperation&) = delete;
    BlockingOperation& operator=(const BlockingOperation&) = delete;

    /// What the status bar shows for a while when the operation has ended.
    void SetOutcome(const QString& text) { activity.SetOutcome(text); }

    /// Drops the keys and clicks that wait in the event queue. Called before a box opens over a blocking operation.
    static void DropQueuedInput();
    static bool IsOn();

private:
    Activity activity;
    WaitCursor cursor;
};
