#pragma once

#include "panels/common/MessageBoxes.h"

#include <QDialog>

#include <memory>

namespace TavikLibrary {
class RLK_Device;
class TavikChannelReadings;
} // namespace TavikLibrary

namespace Ui {
class DialogReadKRV;
}

class HostWindow;

/// Shows a hand tool and the readings of all its channels, read once or again and again.
class DialogReadKRV : public QDialog {
    Q_OBJECT

public:
    /// Reads once. A failing read shows its box and the dialog can be used all the same; throws
    /// TavikException when the tool's identity or name cannot be had. slotIndex is 0 to 5.
    DialogReadKRV(int slotIndex, TavikLibrary::RLK_Device* device, QWidget* parent);
    ~DialogReadKRV() override;

    /// However the dialog ends, the loop ends with it.
    void done(int result) override;

private slots:
    void on_btnClose_clicked() { close(); }
    void on_btnStartStopReading_clicked();

private:
    bool HostIsClosing() const;
    void SetReading(bool on);
    void ReadOnce();
    void ReadRepeatedly();
    void ShowDevice();
    void ShowReadings();
    void ShowChannel(int channel, TavikLibrary::TavikChannelReadings& readings);
    void ShowConnection();

    std::unique_ptr<Ui::DialogReadKRV> ui;
    HostWindow* host;
    TavikLibrary::RLK_Device* device;
    int slotNumber;
    const ErrorBox errors{this, QStringLiteral("Read KRV")};
    bool reading = false; ///< cleared to end the loop
    bool looping = false; ///< the loop has not come to its end yet
};
