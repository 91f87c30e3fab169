#pragma once

#include "panels/common/Inputs.h"
#include "panels/common/MessageBoxes.h"
#include "panels/wireless/WaitForProcessDialog.h"

#include <QDialog>

#include <cstddef>
#include <functional>
#include <memory>
#include <stdexcept>

class HostWindow;
class QCheckBox;

namespace TavikLibrary {
class RLK_Device;
class RLK_DeviceSettingsBase;
} // namespace TavikLibrary

/// What the settings dialogs of all hand tools do alike: they bring the tool into configuration mode, read
/// every setting while a wait dialog shows the progress, and from then on write each change at once.
class HandToolSettingsDialog : public QDialog {
    Q_OBJECT

protected:
    HandToolSettingsDialog(QWidget* mainWindow, TavikLibrary::RLK_Device* device,
                           TavikLibrary::RLK_DeviceSettingsBase* settings);
    ~HandToolSettingsDialog() override;

    /// The settings as those of one kind of tool. Throws std::runtime_error for those of another kind: the slot may
    /// have got another tool since its type was asked for.
    template <class Settings>
    static Settings* SettingsOfKind(TavikLibrary::RLK_DeviceSettingsBase* settings) {
        auto* ofKind = dynamic_cast<Settings*>(settings);
        if (ofKind == nullptr) {
            throw std::runtime_error("The settings of this hand tool are those of another kind of tool.");
        }
        return ofKind;
    }

    /// Connects the tool and reads its settings by the calls given. Throws std::runtime_error when the tool
    /// cannot be brought into configuration mode or read, and when the main window closes meanwhile.
    void Open(const std::function<void()>& readSettings);
    /// Shows the progress of Open. Throws std::runtime_error when the main window has begun to close.
    void Step(int percent, const QString& text);
    /// The title of the form: its name, the tool's identity and the firmware number, which the tool's reply
    /// holds in four characters from a position on; empty when there is none.
    QString ReadTitle(const QString& name, std::size_t firmwarePosition);

    /// Writes a setting, unless the form is just being filled. The form keeps what the operator chose after a failure.
    template <class Calls>
    void Write(Calls&& calls) {
        if (!loading) {
            errors.Try(std::forward<Calls>(calls));
        }
    }

    /// Shows the time after which the tool switches itself off; 0 is never.
    static void ShowAutoPowerOff(QCheckBox* enabled, NumberBox* time, int seconds);
    /// Writes what the operator made of the check box.
    void WriteAutoPowerOff(QCheckBox* enabled, NumberBox* time, const std::function<void(int)>& setSeconds);
    /// Resets the tool and tells what is left to do.
    void ResetToFactory(const std::function<void()>& reset);

    /// Shows the row of a library's value; a value without one selects none and is kept.
    template <class Value>
    static void ShowRow(ChoiceBox* list, Value value, int first = 0) {
        list->ShowValue(static_cast<int>(value), first);
    }

    const ErrorBox errors{this, QStringLiteral("KRV Config"), QStringLiteral("Error: ")};

private:
    void EnterConfigMode();
    QString ReadFirmwareNumber(std::size_t position);

    HostWindow* host;
    TavikLibrary::RLK_Device* device;
    TavikLibrary::RLK_DeviceSettingsBase* settings;
    std::unique_ptr<WaitForProcessDialog> wait;
    bool loading = false;
};
