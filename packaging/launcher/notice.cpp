#include <QApplication>
#include <QMessageBox>

// Shows the one sentence that tells why the program cannot be started. It does without the gauge
// library, whose absence is what there is to tell.
int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    QMessageBox box(QMessageBox::Critical, QStringLiteral("Tavik Library Test"), QCoreApplication::arguments().value(1),
                    QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText);
    box.exec();
    return 0;
}
