#pragma once

#include "panels/common/HostWindow.h"

/// The least that a panel needs of a window.
class FakeHostWindow : public HostWindow {
    Q_OBJECT

public:
    void RedisplayModuleInformation() override { ++redisplayed; }
    void Close() { BeginClosing(); }

protected:
    void SetControlsEnabled(bool enable) override { ++(enable ? enabled : disabled); }

public:
    int disabled = 0;
    int enabled = 0;
    int redisplayed = 0;
};
