#pragma once

#include "panels/common/TypePanel.h"

#include <array>
#include <memory>

class Run;
class QLineEdit;
class QPushButton;

namespace TavikLibrary {
class RLK_Device;
class TavikModuleRLK;
} // namespace TavikLibrary

namespace Ui {
class moduleRLKWidget;
}

/// The panel of a wireless connection module: the hand tools in its six slots. Slots are numbered from 0
/// here and from 1 on the screen.
class moduleRLKWidget : public TypePanelOf<TavikLibrary::TavikModuleRLK> {
    Q_OBJECT

public:
    explicit moduleRLKWidget(QWidget* parent);
    ~moduleRLKWidget() override;

    /// A slot can be read once it has an identity, and configured once its hand tool is known. Asks the module; a slot
    /// that fails stays disabled and is reported. Never throws; does nothing without a module.
    void SetEnabled(bool enable) override;

protected:
    void Fill() override;
    std::vector<QWidget*> Commands() const override { return {}; }

signals:
    /// The restart is over, whether it succeeded or failed.
    void restartFinished();

private slots:
    void on_btnApplySettings_clicked();

    void on_btnRead1_clicked() { ReadDevice(0); }
    void on_btnRead2_clicked() { ReadDevice(1); }
    void on_btnRead3_clicked() { ReadDevice(2); }
    void on_btnRead4_clicked() { ReadDevice(3); }
    void on_btnRead5_clicked() { ReadDevice(4); }
    void on_btnRead6_clicked() { ReadDevice(5); }

    void onRestartFinished();

    void on_btnConfig1_clicked() { ConfigureDevice(0); }
    void on_btnConfig2_clicked() { ConfigureDevice(1); }
    void on_btnConfig3_clicked() { ConfigureDevice(2); }
    void on_btnConfig4_clicked() { ConfigureDevice(3); }
    void on_btnConfig5_clicked() { ConfigureDevice(4); }
    void on_btnConfig6_clicked() { ConfigureDevice(5); }

private:
    static constexpr int slotCount = 6;

    /// The widgets of one slot.
    struct Row {
        QLineEdit* identity;
        QLineEdit* name;
        QLineEdit* deviceType;
        QPushButton* read;
        QPushButton* configure;
    };

    std::array<Row, slotCount> Rows() const;
    TavikLibrary::RLK_Device* Device(int slot);
    bool HasIdentity(int slot);

    void WakeDevices();
    void ShowDevices();
    void WriteIdentitiesAndNames();
    void StartRestart();
    void ReadDevice(int slot);
    void ConfigureDevice(int slot);
    template <class Dialog>
    void RunSettingsDialog(TavikLibrary::RLK_Device* device);

    std::unique_ptr<Ui::moduleRLKWidget> ui;
    std::array<Row, slotCount> rows;
    std::weak_ptr<Run> restart; ///< held by the restart's end, so that the controls outlast the panel's deletion
};
