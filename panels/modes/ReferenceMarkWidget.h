#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class ReferenceMarkWidget;
}

class ReferenceMarkWidget : public QWidget {
    Q_OBJECT

public:
    explicit ReferenceMarkWidget(QWidget* parent = nullptr);
    ~ReferenceMarkWidget() override;

private:
    std::unique_ptr<Ui::ReferenceMarkWidget> ui;
};
