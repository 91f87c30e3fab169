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
class BufferedModeWidget;
}

/// The page of buffered mode.
class BufferedModeWidget : public QWidget {
    Q_OBJECT

public:
    explicit BufferedModeWidget(QWidget* parent = nullptr);
    ~BufferedModeWidget() override;

    /// The module may be null. Throws what the library throws.
    void setNetwork(HostWindow* window, TavikLibrary::TavikServer* server, TavikLibrary::TavikNetwork* network,
                    TavikLibrary::TavikModule* module);
    /// Enables or disables what the page offers. Throws what the library throws.
    void setCommandsEnabled(bool enable);
    /// The module is about to leave the page: it is not asked any more.
    void ForgetModule();

private:
    std::unique_ptr<Ui::BufferedModeWidget> ui;
};
