#pragma once

#include <QWidget>

/// What the panels of all kinds of modules have in common. A panel is made by the module panel, handed
/// its module at once, and deleted when another module is shown.
class TypePanel : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    /// Enables or disables the panel's commands.
    virtual void SetEnabled(bool enable) = 0;
    /// Shows anew what a read of the module may have changed; nothing for most kinds of modules.
    virtual void RefreshFromModule();
};
