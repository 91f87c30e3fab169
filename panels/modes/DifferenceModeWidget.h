#pragma once

#include <QWidget>

#include <memory>

class HostWindow;

namespace TavikLibrary {
class TavikModule;
class TavikNetwork;
class TavikServer;
} // namespace TavikLibrary

namespace Ui {
class DifferenceModeWidget;
}

/// The page of difference mode.
class DifferenceModeWidget : public QWidget {
    Q_OBJECT

public:
    explicit DifferenceModeWidget(QWidget* parent = nullptr);
    ~DifferenceModeWidget() override;

    /// The module may be null. Throws what the library throws.
    void setNetwork(HostWindow* window, TavikLibrary::TavikServer* server, TavikLibrary::TavikNetwork* network,
                    TavikLibrary::TavikModule* module);
    /// Enables or disables what the page offers. Throws what the library throws.
    void setCommandsEnabled(bool enable);
    /// The module is about to leave the page: it is not asked any more.
    void ForgetModule();
    /// Ends the watching of a run.
    void RaiseStopFlag();

private:
    std::unique_ptr<Ui::DifferenceModeWidget> ui;
};
