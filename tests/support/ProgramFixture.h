#pragma once

#include "app/Application.h"
#include "app/MainWindow.h"
#include "tests/support/Calls.h"
#include "tests/support/GuardedTest.h"
#include "tools/driver/DialogResponder.h"
#include "tools/driver/QtMessages.h"
#include "tools/driver/WidgetDriver.h"

#include <QObject>
#include <QTest>

#include <memory>

/// The base of tests that drive the program's window on a simulated bench. A test also fails by an entry in the
/// FailureLog and by an error of its teardown.
class ProgramFixture : public QObject {
    Q_OBJECT

protected:
    /// Shows the main window on a bench described by this text, its clock standing still and no call
    /// taking time.
    void Open(const QString& bench);
    /// The same, with all networks connected, the page of the network in this row in front and no module
    /// selected.
    void OpenNetwork(const QString& bench, int row = 0);
    /// The same, with the page of this module in front.
    void OpenModule(const QString& bench, int moduleRow, int networkRow = 0);
    /// Deletes the window without closing it.
    void Drop();

    MainWindow& Window() { return *window; }
    bool IsOpen() const { return window != nullptr; }
    /// The captions of the pages, in order.
    QStringList Pages();
    QStringList Rows(const char* list);

    DialogResponder boxes;
    std::unique_ptr<QtMessages> qtMessages;
    /// Drives the main window.
    WidgetDriver Operator() { return WidgetDriver(*window); }

private slots:
    void init();
    void cleanup();

private:
    std::unique_ptr<MainWindow> window;
};

/// Sets the one fault of a test: the next call of this operation throws this text.
void FailNext(const char* operation, const QString& text, const char* object = "*");
/// The same, with the code of the exception.
void FailNextWithCode(const char* operation, int code, const QString& text);

#define TAVIK_TEST_MAIN(Test)                                                                                          \
    int main(int argc, char* argv[]) {                                                                                 \
        const Application application(argc, argv);                                                                     \
        GuardedTest<Test> test;                                                                                        \
        return QTest::qExec(&test, argc, argv);                                                                        \
    }
