#include "panels/common/BlockingOperation.h"

#include <QCoreApplication>
#include <QEvent>
#include <QStatusBar>
#include <QTimer>

namespace {

int operations = 0;

/// Swallows presses for two turns of the event loop, in which everything that waited in the queue comes along.
class InputFilter : public QObject {
public:
    void Begin() {
        constexpr int turns = 2;
        if (left == 0) {
            qApp->installEventFilter(this);
            QTimer::singleShot(0, this, [this] { Turn(); });
        }
        left = turns;
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
        case QEvent::KeyPress:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::Wheel:
        case QEvent::TouchBegin:
            return true;
        default:
            return QObject::eventFilter(watched, event);
        }
    }

private:
    void Turn() {
        if (--left > 0) {
            QTimer::singleShot(0, this, [this] { Turn(); });
        } else {
            qApp->removeEventFilter(this);
        }
    }

    int left = 0;
};

} // namespace

BlockingOperation::BlockingOperation(HostWindow* host, const QString& text) : activity(host, text) {
    ++operations;
    if (host != nullptr && !text.isEmpty()) {
        // Painted now: nothing is painted while the operation blocks.
        host->statusBar()->repaint();
    }
}

BlockingOperation::~BlockingOperation() {
    --operations;
    DropQueuedInput();
}

void BlockingOperation::DropQueuedInput() {
    static InputFilter filter;
    filter.Begin();
}

bool BlockingOperation::IsOn() {
    return operations > 0;
}
