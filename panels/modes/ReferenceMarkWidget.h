#pragma once

#include <QWidget>

#include <memory>

class HostWindow;

namespace TavikLibrary {
class TavikModuleRN;
class TavikNetwork;
class TavikServer;
} // namespace TavikLibrary

namespace Ui {
class ReferenceMarkWidget;
}

/// The page on which a linear encoder's reference mark is searched.
class ReferenceMarkWidget : public QWidget {
    Q_OBJECT

public:
    explicit ReferenceMarkWidget(QWidget* parent = nullptr);
    ~ReferenceMarkWidget() override;

    /// Throws what the library throws.
    void setNetwork(HostWindow* window, TavikLibrary::TavikServer* server, TavikLibrary::TavikNetwork* network,
                    TavikLibrary::TavikModuleRN* module);
    /// Enables or disables what the page offers. Throws what the library throws.
    void setCommandsEnabled(bool enable);
    /// The module is about to leave the page: it is not asked any more.
    void ForgetModule();
    /// Ends the waiting for the mark.
    void AbandonSearch();

private:
    std::unique_ptr<Ui::ReferenceMarkWidget> ui;
};
