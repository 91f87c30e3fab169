#pragma once

#include "panels/common/Fields.h"
#include "panels/common/HostWindow.h"
#include "panels/common/TypePanel.h"

#include <optional>
#include <utility>

class QComboBox;
class QRadioButton;

// What the panels of both generations of digital I/O modules have in common.

/// Two radio buttons of which at most one is checked.
struct RadioPair {
    QRadioButton* low;
    QRadioButton* high;
};

/// The buttons of a panel that have these names and the number of a channel.
RadioPair FindPair(const QWidget* panel, const char* low, const char* high, int number);
/// The same of an input, whose level is shown in black: its buttons are light in every palette.
RadioPair FindInputPair(const QWidget* panel, int number);

/// Shows a level: 0 checks the low button, 1 the high one, any other level neither. Each button has the
/// level read for itself, so a level that changes in between shows as it is last.
template <class ReadLevel>
void ShowLevel(const RadioPair& pair, ReadLevel&& readLevel) {
    Check(pair.low, readLevel() == 0);
    Check(pair.high, readLevel() == 1);
}

/// Selects the entry of a debounce time. A time without an entry leaves the selection as it is.
void ShowDebounceTime(QComboBox* combo, int milliseconds);

/// The time in milliseconds that the selected entry stands for; none for an entry without a time.
std::optional<int> SelectedDebounceTime(const QComboBox* combo);

/// The panel of a digital I/O module. Its commands can be used once the module has been read as a whole.
template <class Module, class Form>
class DigitalIOPanel : public TypePanelWithForm<Module, Form> {
public:
    void SetEnabled(bool enable) override { TypePanel::SetEnabled(enable && read); }
    /// Reads everything that is shown. A failure ends in an error box; what was shown until then stays.
    bool RefreshFromModule() override {
        if (!this->errors.Try([this] { ReadChannels(); })) {
            return false;
        }
        if (!std::exchange(read, true)) {
            SetEnabled(!this->mainWindow->ControlsAreHeld());
        }
        return true;
    }

protected:
    using TypePanelWithForm<Module, Form>::TypePanelWithForm;

    virtual void ReadChannels() = 0;
    void Fill() override { RefreshFromModule(); }
    /// Makes a change and shows what became of it.
    template <class Calls>
    void Change(Calls&& calls) {
        if (this->errors.Try(std::forward<Calls>(calls))) {
            RefreshFromModule();
        }
    }
    /// Deliberate: sends nothing for an entry without a time.
    void SendDebounceTime(const QComboBox* combo) {
        this->errors.Try([&] {
            if (const std::optional<int> milliseconds = SelectedDebounceTime(combo)) {
                this->module->setDebounceTime(*milliseconds);
            }
        });
    }

private:
    bool read = false;
};
