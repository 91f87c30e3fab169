#include "panels/common/HostWindow.h"

#include <QEvent>
#include <QStatusBar>

#include <algorithm>

namespace {

constexpr int outcomeMs = 8000;

} // namespace

ControlsHold::ControlsHold(HostWindow& heldWindow, int holdNumber) : window(&heldWindow), number(holdNumber) {}

ControlsHold::ControlsHold(ControlsHold&& other) noexcept
    : window(other.window), number(std::exchange(other.number, 0)) {}

ControlsHold& ControlsHold::operator=(ControlsHold&& other) noexcept {
    if (this != &other) {
        Release();
        window = other.window;
        number = std::exchange(other.number, 0);
    }
    return *this;
}

void ControlsHold::Release() noexcept {
    const int released = std::exchange(number, 0);
    if (released != 0 && window != nullptr) {
        window->ReleaseHold(released);
    }
}

HostWindow::HostWindow(QWidget* parent) : QMainWindow(parent) {
    // No form has a status bar of its own: it would replace this one and leave it without the connection.
    statusBar()->setObjectName(QStringLiteral("statusBar"));
    connect(statusBar(), &QStatusBar::messageChanged, this, [this](const QString& text) {
        if (text.isEmpty()) {
            ShowLatestActivity();
        }
    });
}

HostWindow* HostWindow::Of(QWidget* widget) {
    for (; widget != nullptr; widget = widget->parentWidget()) {
        if (auto* host = qobject_cast<HostWindow*>(widget)) {
            return host;
        }
    }
    return nullptr;
}

bool HostWindow::IsClosingOver(QWidget* widget) {
    const HostWindow* host = Of(widget);
    return host != nullptr && host->IsClosing();
}

ControlsHold HostWindow::DisableControls(const QString& holder) {
    const bool first = holds.empty();
    holds.push_back({++lastHoldNumber, holder});
    if (first) {
        SetControlsEnabled(false);
    }
    return ControlsHold(*this, lastHoldNumber);
}

void HostWindow::ReleaseHold(int number) noexcept {
    holds.erase(
        std::remove_if(holds.begin(), holds.end(), [number](const Hold& hold) { return hold.number == number; }),
        holds.end());
    if (holds.empty() && !closing) {
        SetControlsEnabled(true);
    }
}

QStringList HostWindow::Holders() const {
    QStringList names;
    for (const Hold& hold : holds) {
        names.append(hold.holder);
    }
    return names;
}

void HostWindow::ShowOutcome(const QString& text) {
    statusBar()->showMessage(text, outcomeMs);
}

void HostWindow::SetActivity(const void* owner, const QString& text) {
    const auto own = std::find_if(activities.begin(), activities.end(),
                                  [owner](const auto& activity) { return activity.first == owner; });
    const QString before = own == activities.end() ? QString() : own->second;
    if (own != activities.end()) {
        activities.erase(own);
    }
    if (!text.isEmpty()) {
        activities.emplace_back(owner, text);
        ShowLatestActivity();
    } else if (!before.isEmpty() && statusBar()->currentMessage() == before) {
        ShowLatestActivity();
    }
}

void HostWindow::ShowLatestActivity() {
    const QString text = activities.empty() ? QString() : activities.back().second;
    if (statusBar()->currentMessage() != text) {
        statusBar()->showMessage(text);
    }
}

bool HostWindow::event(QEvent* event) {
    // Nothing here has a tip for the status bar, but a menu that is passed over would clear it, though something runs.
    return event->type() == QEvent::StatusTip || QMainWindow::event(event);
}
