#include "panels/common/LastResort.h"

#include "panels/common/HostWindow.h"
#include "panels/common/MessageBoxes.h"

#include <QApplication>
#include <QStringList>
#include <QThread>

#include <exception>

namespace {

/// The failures that have no box yet. Touched on the GUI thread only.
QStringList& Waiting() {
    static QStringList texts;
    return texts;
}

bool showing = false;

HostWindow* MainHost() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (auto* host = qobject_cast<HostWindow*>(window)) {
            return host;
        }
    }
    return nullptr;
}

QWidget* BoxParent() {
    QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : MainHost();
}

/// The texts that pages show, or have shown in the current event. Touched on the GUI thread only.
QStringList& ShownByPages() {
    static QStringList texts;
    return texts;
}

void ShowWaiting() {
    if (showing) {
        return;
    }
    showing = true;
    while (!Waiting().isEmpty()) {
        // Stays in the list while it is shown, so that the same text does not queue up behind it.
        ShowErrorBox(BoxParent(), QStringLiteral("Tavik Library Test"), Waiting().first());
        Waiting().removeFirst();
    }
    showing = false;
}

void AddToWaiting(const QString& text) {
    if (!Waiting().contains(text)) {
        Waiting().append(text);
    }
}

} // namespace

void LastResort::Report(const QString& text) {
    const bool onGuiThread = QThread::currentThread() == qApp->thread();
    if (onGuiThread && (ShownByPages().contains(text) || HostWindow::IsClosingOver(MainHost()))) {
        return;
    }
    QMetaObject::invokeMethod(
        qApp,
        [text] {
            AddToWaiting(text);
            ShowWaiting();
        },
        Qt::QueuedConnection);
}

LastResort::ShownByPage::ShownByPage(const QString& shownText) : text(shownText) {
    ShownByPages().append(text);
}

LastResort::ShownByPage::~ShownByPage() {
    QMetaObject::invokeMethod(
        qApp, [over = text] { ShownByPages().removeOne(over); }, Qt::QueuedConnection);
}

QString LastResort::CurrentText() {
    try {
        throw;
    } catch (const std::exception& error) {
        return FromLibrary(error.what());
    } catch (...) {
        return QStringLiteral("An error of an unknown kind has occurred.");
    }
}

void LastResort::ReportCurrentException() {
    Report(CurrentText());
}
