#pragma once

#include <QApplication>

/// The application object. Its dialogs have the main window's size of font. An exception that leaves an event's
/// handling does not end the program: it is shown by the last resort. A button that was pressed by its key and cannot
/// be used any more when it is about to be clicked is not clicked.
class Application : public QApplication {
    Q_OBJECT

public:
    Application(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;
};
