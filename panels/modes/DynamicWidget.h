#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class DynamicWidget;
}

class DynamicWidget : public QWidget {
    Q_OBJECT

public:
    explicit DynamicWidget(QWidget* parent = nullptr);
    ~DynamicWidget() override;

private:
    std::unique_ptr<Ui::DynamicWidget> ui;
};
