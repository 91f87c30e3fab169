#include "panels/modes/SettingsPage.h"

#include "library/TavikNetwork.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

bool SettingsPage::Fill() {
    if (network == nullptr || module == nullptr) {
        return false;
    }
    {
        const QScopedValueRollback<bool> ownChanges(updating, true);
        FillMasters();
    }
    return ShowAnswers();
}

bool SettingsPage::ShowAnswers() {
    if (!network->IsConnected()) {
        return false;
    }
    const QScopedValueRollback<bool> ownChanges(updating, true);
    const auto remember = qScopeGuard([this] { shown = InputValues(this); });
    Show();
    return true;
}

void SettingsPage::Attempt(const std::function<void()>& calls) {
    if (!updating && MayAct()) {
        errors.Try(calls);
    }
}

void SettingsPage::Change(const std::function<void()>& calls) {
    if (CommandsAreHeld()) {
        return;
    }
    Attempt([&] {
        auto asBefore = qScopeGuard([this] {
            const QScopedValueRollback<bool> ownChanges(updating, true);
            shown.Restore();
        });
        calls();
        asBefore.dismiss();
        RefreshPage();
    });
}
