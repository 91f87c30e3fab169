#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class DifferenceModeWidget;
}

class DifferenceModeWidget : public QWidget {
    Q_OBJECT

public:
    explicit DifferenceModeWidget(QWidget* parent = nullptr);
    ~DifferenceModeWidget() override;

private:
    std::unique_ptr<Ui::DifferenceModeWidget> ui;
};
