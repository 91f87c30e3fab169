#pragma once

#include <QWidget>

#include <memory>

namespace Ui {
class ReadBurstWidget;
}

class ReadBurstWidget : public QWidget {
    Q_OBJECT

public:
    explicit ReadBurstWidget(QWidget* parent = nullptr);
    ~ReadBurstWidget() override;

private:
    std::unique_ptr<Ui::ReadBurstWidget> ui;
};
