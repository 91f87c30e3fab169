#pragma once

#include "panels/common/Inputs.h"
#include "panels/common/ModePage.h"

#include <functional>

/// The base of the pages on which an acquisition mode is set up. Each change is written at once and followed by a
/// refresh. After a change that failed the inputs show what they showed before.
class SettingsPage : public ModePage {
    Q_OBJECT

protected:
    using ModePage::ModePage;

    bool Fill() override;
    void Refresh() override { ShowAnswers(); }
    /// Shows the modules that can be chosen as the trigger master.
    virtual void FillMasters() = 0;
    /// Asks the library for settings and state and shows them.
    virtual void Show() = 0;
    /// Returns false if the network is not connected: nothing else is asked then, and nothing changes on the page.
    bool ShowAnswers();

    /// Runs a slot's library calls; a failure becomes a message box. Does nothing while the page itself changes its
    /// inputs.
    void Attempt(const std::function<void()>& calls);
    /// Attempts to change a setting. Does nothing while the controls are held: disabling an input ends an entry in it.
    void Change(const std::function<void()>& calls);

    /// Changes of the inputs come from the page itself, not from the operator.
    bool updating = false;

private:
    InputValues shown; ///< after the latest refresh
};
