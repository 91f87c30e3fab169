#include "tools/oracle/Oracle.h"

#include "simulator/control/BenchControl.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableWidget>

#include <algorithm>
#include <set>

namespace {

/// A page of the main window.
struct Page {
    const char* name;
    const char* subject;          ///< the field that shows what the page is filled with; empty text: nothing
    std::vector<const char*> use; ///< main controls: disabled while something runs, else enabled if the page is filled
};

const std::vector<Page>& Pages() {
    static const std::vector<Page> pages = {
        {"tabServer", nullptr, {"btnConnectAll", "btnDisconnectAll", "tableNetworks"}},
        {"tabNetwork",
         "editCurrentSpeed",
         {"listModules", "btnHotswap", "btnPing", "btnNotify", "btnAddModule", "btnClearModules", "btnClearTcons",
          "btnLoadXML", "btnSaveXML", "btnSetSpeed"}},
        {"moduleWidget", "tbTavikIdentity", {"btnRead", "btnStartContinuous", "btnGetStatus"}},
        {"bufferedModeWidget", "tbModuleID", {}},
        {"refMarkWidget", "tbRefMarkModuleID", {}},
        {"differenceModeWidget", "tbModuleID", {}},
    };
    return pages;
}

/// Controls that act on the selected module, and the page they are on.
constexpr std::pair<const char*, const char*> moduleControls[] = {
    {"tabNetwork", "btnMoveUp"}, {"tabNetwork", "btnMoveDown"}, {"tabNetwork", "btnDeleteModule"}};

/// Enabled while nothing runs and the page of a module is filled; some runs leave them enabled.
constexpr const char* choiceOfReading = "gbReadIn";

struct Stop {
    const char* page;
    const char* button;
    const char* run;
    bool isLoop; ///< the run ends with the loop of the program that it belongs to
};

constexpr Stop stops[] = {
    {"tabNetwork", "btnStopNotify", "notify run", true},
    {"moduleWidget", "btnStopContinuous", "continuous reading", true},
    {"refMarkWidget", "btnStop", "search for a reference mark", true},
    {"bufferedModeWidget", "btnStop", "buffered run", false},
    {"differenceModeWidget", "btnStopDiff", "difference run", false},
    {"dynamicWidget", "btnStop", "dynamic collection", false},
};

template <class Widget = QWidget>
Widget* In(const QWidget& parent, const char* name) {
    return parent.findChild<Widget*>(QLatin1String(name));
}

/// The page if the window has a tab for it, in front or not; else null.
const QWidget* OfferedPage(const QWidget& window, const char* name) {
    const auto* tabs = In<QTabWidget>(window, "tabWidget");
    const QWidget* page = In(window, name);
    for (int index = 0; page != nullptr && index < tabs->count(); ++index) {
        if (tabs->widget(index) == page || tabs->widget(index)->isAncestorOf(page)) {
            return page;
        }
    }
    return nullptr;
}

bool IsEnabled(const QWidget& window, const char* page, const char* control) {
    const QWidget* offered = OfferedPage(window, page);
    const QWidget* widget = offered != nullptr ? In(*offered, control) : nullptr;
    return widget != nullptr && widget->isEnabledTo(&window);
}

QString TextOf(const QWidget& page, const char* field) {
    return In<QLineEdit>(page, field)->text();
}

bool IsFilled(const QWidget& window, const Page& page) {
    const QWidget* offered = OfferedPage(window, page.name);
    return offered != nullptr && (page.subject == nullptr || !TextOf(*offered, page.subject).isEmpty());
}

QString SelectedModule(const QWidget& window) {
    if (OfferedPage(window, "tabNetwork") == nullptr) {
        return {};
    }
    const QList<QListWidgetItem*> rows = In<QListWidget>(window, "listModules")->selectedItems();
    return rows.isEmpty() ? QString() : rows.first()->text();
}

QString SelectedNetwork(const QWidget& window) {
    const QList<QTableWidgetItem*> cells = In<QTableWidget>(window, "tableNetworks")->selectedItems();
    return cells.isEmpty() ? QString()
                           : In<QTableWidget>(window, "tableNetworks")->item(cells.first()->row(), 0)->text();
}

void CheckList(const QWidget& window, QStringList& errors) {
    if (OfferedPage(window, "tabNetwork") == nullptr) {
        return;
    }
    const QString network = SelectedNetwork(window);
    const auto* list = In<QListWidget>(window, "listModules");
    const std::vector<std::string> listed =
        network.isEmpty() ? std::vector<std::string>() : TavikSimulator::ListedModules(network.toStdString());
    QStringList rows;
    for (int row = 0; row < list->count(); ++row) {
        rows.append(list->item(row)->text());
    }
    QStringList expected;
    for (const std::string& identity : listed) {
        expected.append(QString::fromStdString(identity));
    }
    if (!rows.isEmpty() && rows != expected) {
        errors.append(QStringLiteral("listModules, network \"%1\" selected: expected rows %2 or none, got %3.")
                          .arg(network, expected.join(QLatin1Char(' ')), rows.join(QLatin1Char(' '))));
    }
}

/// Commands of a page that act on what it shows. On the network page those are the commands of a list; the others act
/// on the selected network, and are left to try again.
QList<QPushButton*> CommandsOf(const QWidget& page) {
    QList<QPushButton*> commands;
    if (page.objectName() == QLatin1String("tabNetwork")) {
        for (const char* name : {"btnMoveUp", "btnMoveDown", "btnDeleteModule", "btnSetSpeed"}) {
            commands.append(In<QPushButton>(page, name));
        }
        return commands;
    }
    commands = page.findChildren<QPushButton*>(QRegularExpression(QStringLiteral("^(?!btnStop)")));
    return commands;
}

/// An empty page has no enabled command but a stop.
void CheckEmptyPage(const QWidget& window, const QWidget& page, QStringList& errors) {
    const QList<QPushButton*> commands = CommandsOf(page);
    for (const QPushButton* command : commands) {
        if (command->isEnabledTo(&window)) {
            errors.append(QStringLiteral("%1, empty: expected no enabled command, got %2.")
                              .arg(page.objectName(), command->objectName()));
            return;
        }
    }
}

} // namespace

QStringList Oracle::RunsOffered(const QWidget& window) {
    QStringList runs;
    for (const Stop& stop : stops) {
        const QWidget* page = OfferedPage(window, stop.page);
        const auto* button = page != nullptr ? In(*page, stop.button) : nullptr;
        if (button != nullptr && button->isEnabledTo(page)) {
            runs.append(QLatin1String(stop.run));
        }
    }
    return runs;
}

QStringList Oracle::IdleErrors(HostWindow& window) {
    QStringList errors;
    if (QApplication::overrideCursor() != nullptr) {
        errors.append(QStringLiteral("Cursor: expected none, got an override cursor."));
    }
    const QStringList runs = RunsOffered(window);
    for (const Stop& stop : stops) {
        if (stop.isLoop && runs.contains(QLatin1String(stop.run))) {
            errors.append(QStringLiteral("%1, idle: expected disabled, got enabled.").arg(QLatin1String(stop.button)));
        }
    }
    if (!runs.isEmpty() && window.ControlsAreHeld()) {
        return errors;
    }
    // An outcome stays cleared; an activity that has not ended returns.
    window.statusBar()->clearMessage();
    const QString activity = window.statusBar()->currentMessage();
    if (!activity.isEmpty() || window.ControlsAreHeld()) {
        errors.append(
            QStringLiteral("Idle: expected no activity and no holder of the controls, got \"%1\", holders: %2.")
                .arg(activity, window.Holders().join(QStringLiteral(", "))));
    }
    for (const Page& page : Pages()) {
        for (const char* control : page.use) {
            if (IsFilled(window, page) && !IsEnabled(window, page.name, control)) {
                errors.append(QStringLiteral("%1, idle: expected enabled, got disabled.").arg(QLatin1String(control)));
            }
        }
    }
    if (IsFilled(window, Pages()[2]) && !IsEnabled(window, "moduleWidget", choiceOfReading)) {
        errors.append(QStringLiteral("gbReadIn, idle: expected enabled, got disabled."));
    }
    for (const auto& [page, control] : moduleControls) {
        if (!SelectedModule(window).isEmpty() && !IsEnabled(window, page, control)) {
            errors.append(
                QStringLiteral("%1, module selected: expected enabled, got disabled.").arg(QLatin1String(control)));
        }
    }
    return errors;
}

QStringList Oracle::LoopErrors(const QWidget& window) {
    QStringList errors;
    if (RunsOffered(window).isEmpty()) {
        errors.append(QStringLiteral("Loop of the program: expected an enabled stop, got none."));
    }
    const auto check = [&](const char* page, const char* control) {
        if (IsEnabled(window, page, control)) {
            errors.append(QStringLiteral("%1, in a loop: expected disabled, got enabled.").arg(QLatin1String(control)));
        }
    };
    for (const Page& page : Pages()) {
        for (const char* control : page.use) {
            check(page.name, control);
        }
    }
    for (const auto& [page, control] : moduleControls) {
        check(page, control);
    }
    return errors;
}

QStringList Oracle::PageErrors(const QWidget& window) {
    QStringList errors;
    CheckList(window, errors);
    for (const Page& page : Pages()) {
        const QWidget* offered = page.subject != nullptr ? OfferedPage(window, page.name) : nullptr;
        if (offered == nullptr) {
            continue;
        }
        const QString shown = TextOf(*offered, page.subject);
        if (shown.isEmpty()) {
            CheckEmptyPage(window, *offered, errors);
        } else if (qstrcmp(page.name, "tabNetwork") != 0 && shown != SelectedModule(window)) {
            errors.append(QStringLiteral("%1: expected module \"%2\" or none, got \"%3\".")
                              .arg(QLatin1String(page.name), SelectedModule(window), shown));
        }
    }
    return errors;
}

QStringList Oracle::BoxErrors(const SeenBox& box) {
    QStringList errors;
    const QLatin1String buttons(box.kind == BoxKind::Question ? "No,Yes" : "OK");
    if (box.title.isEmpty() || box.text.isEmpty() || box.markup || box.buttons != buttons) {
        errors.append(QStringLiteral("Message box: expected a title, a plain text and the buttons %1, got a %2.")
                          .arg(buttons, ToText(box)));
    }
    return errors;
}

QStringList Oracle::TeardownErrors() {
    QStringList errors;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget* widget : windows) {
        errors.append(QStringLiteral("Teardown: expected no window, got %1 \"%2\".")
                          .arg(QLatin1String(widget->metaObject()->className()), widget->windowTitle()));
    }
    while (QApplication::overrideCursor() != nullptr) {
        errors.append(QStringLiteral("Teardown: expected no override cursor, got one."));
        QApplication::restoreOverrideCursor();
    }
    if (TavikSimulator::CallsOnRemovedModules() > 0) {
        errors.append(QStringLiteral("Teardown: expected no call on a removed module, got %1.")
                          .arg(TavikSimulator::CallsOnRemovedModules()));
    }
    return errors;
}
