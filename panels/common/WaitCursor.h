#pragma once

/// Shows the wait cursor over the whole program for as long as it lives, or until Restore.
class WaitCursor {
public:
    WaitCursor();
    ~WaitCursor();
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

    void Restore();

private:
    bool shown = true;
};
