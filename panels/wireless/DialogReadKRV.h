#pragma once

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

    /// Ends the dialog and with it a running loop: Close, Escape and the window's close button.
    void reject() override;

private slots:
    void on_btnClose_clicked();
    void on_btnStartStopReading_clicked();

private:
    bool HostIsClosing() const;
    void ReadOnce();
    void ReadRepeatedly();
    void ShowDevice();
    void ShowReadings();
    void ShowChannel(int channel, TavikLibrary::TavikChannelReadings& readings);
    void ShowConnection();
    bool Connected();

    std::unique_ptr<Ui::DialogReadKRV> ui;
    HostWindow* host;
    TavikLibrary::RLK_Device* device;
    int slotNumber;
    bool reading = false; ///< cleared to end the loop
    bool looping = false; ///< the loop has not come to its end yet
};
