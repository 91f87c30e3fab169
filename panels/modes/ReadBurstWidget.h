#pragma once

#include <QWidget>

#include <memory>

namespace TavikLibrary {
class TavikNetwork;
class TavikServer;
} // namespace TavikLibrary

namespace Ui {
class ReadBurstWidget;
}

/// The page of read bursts.
class ReadBurstWidget : public QWidget {
    Q_OBJECT

public:
    explicit ReadBurstWidget(QWidget* parent = nullptr);
    ~ReadBurstWidget() override;

    /// Throws what the library throws.
    void setNetwork(TavikLibrary::TavikServer* server, TavikLibrary::TavikNetwork* network);
    /// Enables or disables what the page offers. Throws what the library throws.
    void setCommandsEnabled(bool enable);

private:
    std::unique_ptr<Ui::ReadBurstWidget> ui;
};
