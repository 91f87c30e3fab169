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
class DynamicWidget;
}

/// The page of dynamic mode.
class DynamicWidget : public QWidget {
    Q_OBJECT

public:
    explicit DynamicWidget(QWidget* parent = nullptr);
    ~DynamicWidget() override;

    /// Throws what the library throws.
    void setNetwork(HostWindow* window, TavikLibrary::TavikServer* server, TavikLibrary::TavikNetwork* network,
                    TavikLibrary::TavikModule* module);
    /// Enables or disables what the page offers. Throws what the library throws.
    void setCommandsEnabled(bool enable);
    /// The network is about to leave the page: neither it nor its module is asked any more.
    void ForgetNetwork();

private:
    std::unique_ptr<Ui::DynamicWidget> ui;
};
