#include "panels/common/BlockingOperation.h"

#include "panels/common/MessageBoxes.h"
#include "tests/support/FakeHostWindow.h"
#include "tests/support/ProgramFixture.h"

#include <QPushButton>
#include <QStatusBar>

/// A window with a button, painted.
class ButtonWindow : public FakeHostWindow {
public:
    ButtonWindow() {
        resize(400, 200);
        show();
        connect(&button, &QPushButton::clicked, this, [this] { ++clicks; });
        statusBar()->installEventFilter(this);
        ProcessAllEvents();
        paintings = 0;
    }
    /// A click that waits in the event queue, as one made while the window is blocked.
    void QueueClick() {
        const QPoint middle = button.rect().center();
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QCoreApplication::postEvent(&button, new QMouseEvent(type, middle, button.mapToGlobal(middle),
                                                                 Qt::LeftButton, Qt::LeftButton, Qt::NoModifier));
        }
    }

    QPushButton button{QStringLiteral("Delete"), this};
    int clicks = 0;
    int paintings = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        paintings += event->type() == QEvent::Paint ? 1 : 0;
        return FakeHostWindow::eventFilter(watched, event);
    }
};

/// Operations that block the window.
class BlockingOperationTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void textIsPaintedBeforeTheOperation();
    void cursorAndTextEnd();
    void queuedPressesAreDropped();
    void laterPressesCount();
    void queuedPressesAreDroppedByABox();
};

void BlockingOperationTest::textIsPaintedBeforeTheOperation() {
    ButtonWindow window;
    const BlockingOperation blocking(&window, QStringLiteral("Connecting..."));
    QCOMPARE(window.statusBar()->currentMessage(), QStringLiteral("Connecting..."));
    QVERIFY(window.paintings > 0);
    QVERIFY(QApplication::overrideCursor() != nullptr);
}

void BlockingOperationTest::cursorAndTextEnd() {
    ButtonWindow window;
    {
        BlockingOperation blocking(&window, QStringLiteral("Connecting..."));
        QVERIFY(BlockingOperation::IsOn());
        blocking.SetOutcome(QStringLiteral("Connected"));
    }
    QVERIFY(!BlockingOperation::IsOn());
    QCOMPARE(window.statusBar()->currentMessage(), QStringLiteral("Connected"));
    QVERIFY(QApplication::overrideCursor() == nullptr);
}

void BlockingOperationTest::queuedPressesAreDropped() {
    ButtonWindow window;
    {
        const BlockingOperation blocking(&window);
        window.QueueClick();
    }
    window.QueueClick();
    ProcessAllEvents();
    QCOMPARE(window.clicks, 0);
}

void BlockingOperationTest::laterPressesCount() {
    ButtonWindow window;
    { const BlockingOperation blocking(&window); }
    ProcessAllEvents();
    window.QueueClick();
    ProcessAllEvents();
    QCOMPARE(window.clicks, 1);
}

void BlockingOperationTest::queuedPressesAreDroppedByABox() {
    ButtonWindow window;
    const BlockingOperation blocking(&window);
    boxes.ExpectError(&window, QStringLiteral("Some Page"), QStringLiteral("Lost."));
    window.QueueClick();
    ShowErrorBox(&window, QStringLiteral("Some Page"), QStringLiteral("Lost."));
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(window.clicks, 0);
}

TAVIK_TEST_MAIN(BlockingOperationTest)
#include "BlockingOperationTest.moc"
