#pragma once

#include <QApplication>

/// The application object. Its dialogs have the main window's size of font. An exception that leaves an event's
/// handling does not end the program: it is shown by the top-level exception handler. A mnemonic presses its button at
/// once.
class Application : public QApplication {
    Q_OBJECT

public:
    Application(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;
};
