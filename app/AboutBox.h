#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class AboutBox;
}

/// Shows what this program is and its version. Its texts are fixed; it calls no library function.
class AboutBox : public QDialog {
    Q_OBJECT

public:
    explicit AboutBox(QWidget* parent);
    ~AboutBox() override;

private slots:
    void on_btnClose_clicked();

private:
    std::unique_ptr<Ui::AboutBox> ui;
};

/// The version line for a compile date as compilers write it, for example "Apr 12 2022". The date is written as
/// dd/MM/yyyy whatever the locale; it is left empty for a day of one digit, which compilers pad with a blank.
QString VersionLine(const QString& compileDate);
