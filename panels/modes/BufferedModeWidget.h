#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class BufferedModeWidget;
}

class BufferedModeWidget : public QWidget {
    Q_OBJECT

public:
    explicit BufferedModeWidget(QWidget* parent = nullptr);
    ~BufferedModeWidget() override;

private:
    std::unique_ptr<Ui::BufferedModeWidget> ui;
};
