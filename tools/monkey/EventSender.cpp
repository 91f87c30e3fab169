#include "tools/monkey/EventSender.h"

#include "app/MainWindow.h"
#include "tools/driver/Screen.h"
#include "tools/monkey/BenchSteps.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QHash>
#include <QKeySequence>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QTabBar>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include <deque>
#include <functional>

namespace {

QString& Folder() {
    static QString folder;
    return folder;
}

// The mouse and the keyboard. An event may lead into a box or a loop of the program; what comes after it must not wait
// for the way back but is delivered there.

std::deque<std::function<void()>>& Inputs() {
    static std::deque<std::function<void()>> inputs;
    return inputs;
}

void PutMouse(QWindow* window, const QPoint& place, Qt::MouseButton button, QEvent::Type type, int milliseconds) {
    const QPointer<QWindow> to = window;
    Inputs().emplace_back([=] {
        if (to != nullptr && to->isVisible()) {
            const bool down = type == QEvent::MouseButtonPress;
            qt_handleMouseEvent(to, place, to->mapToGlobal(place), down ? button : Qt::NoButton, button, type,
                                Qt::NoModifier, milliseconds);
        }
    });
}

/// Presses and releases the mouse, later than the time of a double click after the last press unless it is one.
void PutClick(QWindow* window, const QPoint& place, Qt::MouseButton button, bool second) {
    static int milliseconds = 0;
    constexpr int apart = 1000;
    constexpr int near = 50;
    milliseconds += second ? near : apart;
    PutMouse(window, place, button, QEvent::MouseButtonPress, milliseconds);
    PutMouse(window, place, button, QEvent::MouseButtonRelease, milliseconds + 1);
}

bool ClickAt(QWidget& widget, const QPoint& place, const Step& step) {
    Screen::ScrollTo(widget);
    if (!Screen::IsReached(widget, place)) {
        return false;
    }
    QWidget* top = widget.window();
    const QPoint spot = widget.mapTo(top, place);
    const bool right = step.Verb() == QLatin1String("right-click");
    PutClick(top->windowHandle(), spot, right ? Qt::RightButton : Qt::LeftButton, false);
    if (step.Verb() == QLatin1String("double-click")) {
        PutClick(top->windowHandle(), spot, Qt::LeftButton, true);
    }
    return true;
}

/// To whatever stands in front when it comes.
void PutKey(int key, Qt::KeyboardModifiers modifiers, const QString& text) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        Inputs().emplace_back([=] {
            const QWidget* front = Screen::Front();
            if (front != nullptr && front->windowHandle() != nullptr) {
                qt_handleKeyEvent(front->windowHandle(), type, key, modifiers, text);
            }
        });
    }
}

/// The text that a key types.
QString TextOf(int key, Qt::KeyboardModifiers modifiers) {
    const bool letter = key >= Qt::Key_Space && key <= Qt::Key_AsciiTilde;
    if (!letter || modifiers.testFlag(Qt::ControlModifier)) {
        return QString();
    }
    const QChar sign(key);
    return modifiers.testFlag(Qt::ShiftModifier) ? QString(sign) : QString(sign.toLower());
}

void PutCombination(const QString& combination) {
    const int whole = QKeySequence(combination)[0];
    const auto modifiers = Qt::KeyboardModifiers(whole & static_cast<int>(Qt::KeyboardModifierMask));
    const int key = whole & ~static_cast<int>(Qt::KeyboardModifierMask);
    PutKey(key, modifiers, TextOf(key, modifiers));
}

void PutText(const QString& text) {
    for (const QChar letter : text) {
        PutKey(Qt::Key_unknown, Qt::NoModifier, QString(letter));
    }
}

// What is done to the controls of a window

using Sender = bool (*)(QWidget& window, const Step& step);

bool Click(QWidget& window, const Step& step) {
    QWidget* widget = Screen::Find(window, step.Word(1));
    return widget != nullptr && ClickAt(*widget, Screen::ActiveSpot(*widget), step);
}

bool ClickRow(QWidget& window, const Step& step) {
    auto* view = qobject_cast<QAbstractItemView*>(Screen::Find(window, step.Word(1)));
    if (view == nullptr || view->model() == nullptr) {
        return false;
    }
    const QModelIndex index = view->model()->index(step.Word(2).toInt(), step.Word(3).toInt(), view->rootIndex());
    view->scrollTo(index);
    const QRect cell = view->visualRect(index);
    return index.isValid() && cell.isValid() && ClickAt(*view->viewport(), cell.center(), step);
}

bool ClickTab(QWidget& window, const Step& step) {
    auto* tabs = qobject_cast<QTabBar*>(Screen::Find(window, step.Word(1)));
    const int index = step.Word(2).toInt();
    return tabs != nullptr && index < tabs->count() && ClickAt(*tabs, tabs->tabRect(index).center(), step);
}

bool OpenMenu(QWidget& window, const Step& step) {
    auto* bar = window.findChild<QMenuBar*>();
    const int index = step.Word(1).toInt();
    return bar != nullptr && index < bar->actions().size() &&
           ClickAt(*bar, bar->actionGeometry(bar->actions().at(index)).center(), step);
}

/// Replaces what stands in a field, as far as the field takes it.
bool Enter(QWidget& window, const Step& step) {
    if (!Click(window, step)) {
        return false;
    }
    PutCombination(QStringLiteral("Ctrl+A"));
    PutText(step.Word(2));
    return true;
}

bool PressKey(QWidget&, const Step& step) {
    PutCombination(step.Word(1));
    return true;
}

bool Type(QWidget&, const Step& step) {
    PutText(step.Word(1));
    return true;
}

bool TurnWheel(QWidget& window, const Step& step) {
    QWidget* widget = Screen::Find(window, step.Word(1));
    if (widget == nullptr) {
        return false;
    }
    constexpr int notch = 120;
    const QPointF place = widget->rect().center();
    QWheelEvent turn(place, widget->mapToGlobal(place.toPoint()), QPoint(), QPoint(0, notch * step.Word(2).toInt()),
                     Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &turn);
    return true;
}

/// Takes an entry of what has popped up: a menu or the rows of a combo box.
bool Pick(QWidget& window, const Step& step) {
    if (QApplication::activePopupWidget() != &window) {
        return false;
    }
    // A menu in which nothing is chosen yet knows the way down only.
    PutKey(Qt::Key_Down, Qt::NoModifier, QString());
    PutKey(Qt::Key_Home, Qt::NoModifier, QString());
    for (int below = 0; below < step.Word(1).toInt(); ++below) {
        PutKey(Qt::Key_Down, Qt::NoModifier, QString());
    }
    PutKey(Qt::Key_Return, Qt::NoModifier, QString());
    return true;
}

// Boxes

/// "answer yes" or "answer no", with what is typed before.
bool Answer(QWidget& window, const Step& step) {
    if (qobject_cast<QFileDialog*>(&window) != nullptr) {
        return false;
    }
    QAbstractButton* button = Screen::ButtonOf(window, step.Word(1) == QLatin1String("yes"));
    if (button == nullptr) {
        return false;
    }
    if (step.words.size() > 2) {
        PutCombination(QStringLiteral("Ctrl+A"));
        PutText(step.Word(2));
    }
    if (!button->isEnabled()) {
        return false;
    }
    return ClickAt(*button, button->rect().center(), step);
}

/// "file NAME", or "file" alone, which leaves the box.
bool AnswerFileBox(QWidget& window, const Step& step) {
    auto* box = qobject_cast<QFileDialog*>(&window);
    if (box == nullptr) {
        return false;
    }
    if (step.words.size() == 1) {
        box->reject();
        return true;
    }
    auto* name = box->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    const QString path = QDir(Folder()).filePath(step.Word(1));
    if (name == nullptr) {
        return false;
    }
    name->setText(path);
    QMetaObject::invokeMethod(box, "accept", Qt::QueuedConnection);
    return true;
}

/// By its window frame.
bool CloseBox(QWidget& window, const Step&) {
    auto* dialog = qobject_cast<QDialog*>(&window);
    const bool closes = dialog != nullptr && Screen::CanBeClosed(*dialog);
    if (closes) {
        QMetaObject::invokeMethod(dialog, &QWidget::close, Qt::QueuedConnection);
    }
    return closes;
}

/// The session manager can close the window also while a box is open.
bool CloseWindow(QWidget&, const Step&) {
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (qobject_cast<MainWindow*>(window) != nullptr) {
            QMetaObject::invokeMethod(window, &QWidget::close, Qt::QueuedConnection);
            return true;
        }
    }
    return false;
}

const QHash<QString, Sender>& Senders() {
    static const QHash<QString, Sender> senders = {
        {QStringLiteral("click"), Click},        {QStringLiteral("double-click"), Click},
        {QStringLiteral("right-click"), Click},  {QStringLiteral("row"), ClickRow},
        {QStringLiteral("tab"), ClickTab},       {QStringLiteral("menu"), OpenMenu},
        {QStringLiteral("enter"), Enter},        {QStringLiteral("key"), PressKey},
        {QStringLiteral("type"), Type},          {QStringLiteral("wheel"), TurnWheel},
        {QStringLiteral("pick"), Pick},          {QStringLiteral("answer"), Answer},
        {QStringLiteral("file"), AnswerFileBox}, {QStringLiteral("close-box"), CloseBox},
        {QStringLiteral("close"), CloseWindow},
    };
    return senders;
}

} // namespace

void UseFolder(const QString& folder) {
    Folder() = folder;
    QDir::setCurrent(folder);
    QFile broken(QDir(folder).filePath(QStringLiteral("broken.xml")));
    if (broken.open(QIODevice::WriteOnly)) {
        broken.write("<tavik-network");
    }
}

bool Operate(const Step& step) {
    if (IsBenchStep(step)) {
        return HappenOnBench(step);
    }
    QWidget* front = Screen::Front();
    const Sender send = Senders().value(step.Verb());
    const bool done = front != nullptr && front->windowHandle() != nullptr && send != nullptr && send(*front, step);
    DeliverInputs();
    return done;
}

void DeliverInputs() {
    while (!Inputs().empty()) {
        const std::function<void()> input = Inputs().front();
        Inputs().pop_front();
        input();
    }
}
