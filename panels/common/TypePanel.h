#pragma once

#include "panels/common/MessageBoxes.h"

#include <QPointer>
#include <QWidget>

#include <memory>
#include <vector>

class HostWindow;

namespace TavikLibrary {
class TavikNetwork;
class TavikServer;
} // namespace TavikLibrary

/// The base of the panels of all module types. A panel is made by the module page, handed its module at once, and
/// deleted when another module is shown. Its commands can be used only when it is filled.
class TypePanel : public QWidget {
    Q_OBJECT

public:
    /// The title stands over the boxes of failures.
    TypePanel(QWidget* parent, const QString& boxTitle) : QWidget(parent), errors(this, boxTitle) {}

    /// Enables or disables the panel's commands.
    virtual void SetEnabled(bool enable);
    /// Shows what a read of the module may have changed. Returns false if that failed and a box has been shown.
    virtual bool RefreshFromModule() { return true; }

signals:
    /// The panel is taken away: its module may be destroyed, and is not called any more.
    void Closed();

protected:
    /// Closes the dialogs over the panel.
    void closeEvent(QCloseEvent* event) override;
    /// Whether the panel is still there after something that processes events.
    static bool IsOpen(const QPointer<TypePanel>& panel) { return panel != nullptr && !panel->closed; }

    /// Asks the module and shows its answers. Propagates library exceptions.
    virtual void Fill() = 0;
    virtual std::vector<QWidget*> Commands() const = 0;
    /// Disables the commands, fills the panel and enables them. After a failure they stay disabled.
    void FillAnew();

    HostWindow* mainWindow = nullptr;
    TavikLibrary::TavikServer* server = nullptr;
    TavikLibrary::TavikNetwork* network = nullptr;
    const ErrorBox errors;
    bool filled = false;

private:
    bool closed = false;
};

/// A panel of the modules of one class.
template <class ModuleClass>
class TypePanelOf : public TypePanel {
public:
    using Module = ModuleClass;
    using TypePanel::TypePanel;

    /// Takes the module and fills the panel. Propagates library exceptions; the panel's commands are disabled then.
    void SetModule(HostWindow* newMainWindow, TavikLibrary::TavikServer* newServer,
                   TavikLibrary::TavikNetwork* newNetwork, Module* newModule) {
        mainWindow = newMainWindow;
        server = newServer;
        network = newNetwork;
        module = newModule;
        FillAnew();
    }

protected:
    Module* module = nullptr;
};

/// The same, with its form, which the panel's constructor sets up.
template <class Module, class Form>
class TypePanelWithForm : public TypePanelOf<Module> {
protected:
    TypePanelWithForm(QWidget* parent, const QString& boxTitle)
        : TypePanelOf<Module>(parent, boxTitle), ui(std::make_shared<Form>()) {}

    /// Not a unique_ptr, which would need the form's declaration wherever a panel is deleted.
    const std::shared_ptr<Form> ui;
};
