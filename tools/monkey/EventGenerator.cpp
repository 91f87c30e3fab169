#include "tools/monkey/EventGenerator.h"

#include "tools/driver/Screen.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>

namespace {

template <class... Words>
Step Make(const char* verb, const Words&... words) {
    return {{QString::fromLatin1(verb), words...}};
}

/// The words of a text, separated by bars.
QStringList Words(const char* text) {
    return QString::fromUtf8(text).split(QLatin1Char('|'));
}

/// Texts for fields, boxes and whatever has the focus.
const QStringList& Typed() {
    static const QStringList texts =
        Words("0|1|-1|5|12.5|0.02|100|999999999|-0.5|4000|abc||KX00000014|kx00000004|KRV0000003|<b>x</b>|"
              "\xc3\xa4\xe2\x82\xac|777777777777777777777777");
    return texts;
}

const QStringList& FileNames() {
    static const QStringList names =
        Words("network.xml|second.xml|missing.xml|broken.xml|no suffix|no/such/folder.xml");
    return names;
}

const QStringList& Keys() {
    static const QStringList keys =
        Words("Tab|Shift+Tab|Return|Escape|Space|Up|Down|Left|Right|Home|End|PgUp|PgDown|Del|"
              "Ctrl+A|Ctrl+C|Ctrl+V|Ctrl+Tab|F4|Backspace");
    return keys;
}

} // namespace

EventGenerator::EventGenerator(std::uint64_t seed, const MonkeyBench& ownBench, bool withFaults)
    : random(seed), bench(ownBench), faults(withFaults) {}

int EventGenerator::Below(int limit) {
    // The distributions of the standard library differ from one to the next.
    return limit <= 1 ? 0 : static_cast<int>(random() % static_cast<std::uint64_t>(limit));
}

Step EventGenerator::Next() {
    QWidget* front = Screen::Front();
    if (front == nullptr) {
        return Make("wait", QStringLiteral("0.1"));
    }
    if (front->parentWidget() == nullptr && IsOnTheWay()) {
        return OnTheWay();
    }
    if (Perhaps(6)) {
        return OfBench();
    }
    if (faults && Perhaps(6)) {
        return Perhaps(50) ? Fault() : Mishap();
    }
    if (front->windowFlags().testFlag(Qt::Popup) && front->windowType() == Qt::Popup) {
        return OnPopup(*front);
    }
    if (qobject_cast<QFileDialog*>(front) != nullptr) {
        return OnFileBox();
    }
    if (front->findChild<QDialogButtonBox*>() != nullptr && Perhaps(70)) {
        return OnBox();
    }
    return OnWindow(*front);
}

/// Most sessions begin by connecting and choosing a module, and come back to that now and then: at random alone the
/// pages of the modules would seldom be seen.
bool EventGenerator::IsOnTheWay() {
    constexpr int stepsOfTheWay = 5;
    if (way == stepsOfTheWay && Perhaps(4)) {
        way = Perhaps(20) ? 0 : (Perhaps(50) ? 2 : 4);
    }
    return way < stepsOfTheWay && Perhaps(92);
}

Step EventGenerator::OnTheWay() {
    switch (++way) {
    case 1:
        return Make("click", QStringLiteral("btnConnectAll"));
    case 2:
        return Make("row", QStringLiteral("tableNetworks"), QString::number(Perhaps(80) ? 0 : Below(3)),
                    QStringLiteral("0"));
    case 3:
        return Make("tab", QStringLiteral("qt_tabwidget_tabbar"), QStringLiteral("1"));
    case 4:
        return Make("row", QStringLiteral("listModules"),
                    QString::number(Below(static_cast<int>(bench.modules.size()))), QStringLiteral("0"));
    default:
        return Make("tab", QStringLiteral("qt_tabwidget_tabbar"), QString::number(2 + Below(6)));
    }
}

Step EventGenerator::OnPopup(QWidget& popup) {
    if (Perhaps(20)) {
        return Make("key", QStringLiteral("Escape"));
    }
    const auto* menu = qobject_cast<const QMenu*>(&popup);
    constexpr int rows = 6;
    return Make("pick", QString::number(Below(menu != nullptr ? menu->actions().size() : rows)));
}

Step EventGenerator::OnFileBox() {
    return Perhaps(25) ? Make("file") : Make("file", OneOf(FileNames()));
}

Step EventGenerator::OnBox() {
    const QString answer = Perhaps(70) ? QStringLiteral("yes") : QStringLiteral("no");
    const QWidget* entry = Screen::Front()->findChild<QLineEdit*>();
    return entry != nullptr && Perhaps(70) ? Make("answer", answer, OneOf(Typed())) : Make("answer", answer);
}

Step EventGenerator::OnWindow(QWidget& window) {
    const bool isDialog = window.parentWidget() != nullptr;
    if (Perhaps(18)) {
        return Key();
    }
    if (isDialog && Perhaps(4)) {
        return Make("close-box");
    }
    if (Below(400) == 0) {
        return Make("close");
    }
    const std::vector<Screen::Control> controls = Screen::Controls(window);
    if (controls.empty()) {
        return OfBench();
    }
    const auto any = [&] { return controls[static_cast<std::size_t>(Below(static_cast<int>(controls.size())))]; };
    Screen::Control control = any();
    const auto* field = qobject_cast<QLineEdit*>(control.widget);
    if (field != nullptr && field->isReadOnly() && Perhaps(90)) {
        // Most fields only show something.
        control = any();
    }
    return OnControl(control.name, *control.widget);
}

Step EventGenerator::OnControl(const QString& name, QWidget& widget) {
    if (Perhaps(3)) {
        return Make("right-click", name);
    }
    if (const auto* view = qobject_cast<QAbstractItemView*>(&widget); view != nullptr && view->model() != nullptr) {
        const QModelIndex root = view->rootIndex();
        const int rows = view->model()->rowCount(root);
        const int columns = view->model()->columnCount(root);
        return Make("row", name, QString::number(Below(rows)), QString::number(Below(columns)));
    }
    if (const auto* tabs = qobject_cast<QTabBar*>(&widget)) {
        return Make("tab", name, QString::number(Below(tabs->count())));
    }
    if (const auto* bar = qobject_cast<QMenuBar*>(&widget)) {
        return Make("menu", QString::number(Below(bar->actions().size())));
    }
    const bool number = qobject_cast<QAbstractSpinBox*>(&widget) != nullptr;
    const auto* field = qobject_cast<QLineEdit*>(&widget);
    if ((number && Perhaps(70)) || (field != nullptr && !field->isReadOnly())) {
        return Make("enter", name, OneOf(Typed()));
    }
    if ((number || qobject_cast<QComboBox*>(&widget) != nullptr) && Perhaps(40)) {
        return Make("wheel", name, Perhaps(50) ? QStringLiteral("1") : QStringLiteral("-1"));
    }
    return Make(Perhaps(8) ? "double-click" : "click", name);
}

Step EventGenerator::Key() {
    switch (Below(4)) {
    case 0:
        return Make("key", QStringLiteral("Alt+") + QChar('A' + Below(26)));
    case 1:
        return Make("type", OneOf(Typed()));
    default:
        return Make("key", OneOf(Keys()));
    }
}

// What happens on the bench

Step EventGenerator::OfBench() {
    if (Perhaps(50) || bench.modules.empty()) {
        return Make("wait", OneOf({QStringLiteral("0.05"), QStringLiteral("0.5"), QStringLiteral("2"),
                                   QStringLiteral("10"), QStringLiteral("60")}));
    }
    if (!bench.tools.isEmpty() && Perhaps(30)) {
        return OfTool();
    }
    if (!bench.airGauges.empty() && Perhaps(30)) {
        const MonkeyBench::Module& gauge =
            bench.airGauges[static_cast<std::size_t>(Below(static_cast<int>(bench.airGauges.size())))];
        return Perhaps(75) ? Make("put-in-nozzle", gauge.network, gauge.identity, QString::number(Below(4)))
                           : Make("unit-at-display", gauge.network, gauge.identity, QString::number(Below(3)));
    }
    const MonkeyBench::Module& module =
        bench.modules[static_cast<std::size_t>(Below(static_cast<int>(bench.modules.size())))];
    return Perhaps(60) ? Make("hold-position", module.network, module.identity,
                              OneOf({QStringLiteral("0"), QStringLiteral("0.5"), QStringLiteral("4.5"),
                                     QStringLiteral("30"), QStringLiteral("-1")}))
                       : Make("release-position", module.network, module.identity);
}

Step EventGenerator::OfTool() {
    const QString tool = OneOf(bench.tools);
    return Perhaps(70) ? Make("tool-button", tool, QString::number(1 + Below(2))) : Make("tool-off-and-on", tool);
}

/// What keeps the program from doing what is asked of it.
Step EventGenerator::Mishap() {
    if (!bench.tools.isEmpty() && Perhaps(25)) {
        return Make(Perhaps(40) ? "tool-away" : (Perhaps(60) ? "tool-back" : "tool-leaves-configuration"),
                    OneOf(bench.tools));
    }
    if (bench.modules.empty()) {
        return Make("no-faults");
    }
    const MonkeyBench::Module& module =
        bench.modules[static_cast<std::size_t>(Below(static_cast<int>(bench.modules.size())))];
    switch (Below(6)) {
    case 0:
    case 1:
        return Make("module-leaves", module.network, module.identity);
    case 2:
    case 3:
        return Make("module-returns", module.network, module.identity);
    case 4:
        return Make("network-drops", module.network);
    default:
        return Make("network-returns", module.network);
    }
}

Step EventGenerator::Fault() {
    if (Perhaps(15)) {
        return Make("no-faults");
    }
    QStringList known = operations.values();
    known.sort();
    const QString operation = known.isEmpty() || Perhaps(25) ? QStringLiteral("*") : OneOf(known);
    const QString effect = OneOf({QStringLiteral("throw"), QStringLiteral("throw"), QStringLiteral("throw-plain"),
                                  QStringLiteral("slow"), QStringLiteral("result")});
    const QString text = OneOf({QStringLiteral("No answer."), QStringLiteral("<b>No</b> & answer\nfrom the module"),
                                QStringLiteral("Silence"), QString(300, QLatin1Char('n'))});
    const QString code = OneOf({QStringLiteral("8449"), QStringLiteral("255"), QStringLiteral("1"),
                                QStringLiteral("4100"), QStringLiteral("65538")});
    switch (Below(5)) {
    case 0:
        return Make("fault", QStringLiteral("probability"),
                    OneOf({QStringLiteral("0.01"), QStringLiteral("0.05"), QStringLiteral("0.3")}), effect, operation,
                    code, text);
    case 1:
        return Make("fault", QStringLiteral("nth"), QString::number(1 + Below(20)), effect, operation, code, text);
    case 2:
        return Make("fault", QStringLiteral("from-nth"), QString::number(1 + Below(20)), effect, operation, code, text);
    case 3:
        return Make("fault", QStringLiteral("during"), OneOf({QStringLiteral("0.1"), QStringLiteral("2")}), effect,
                    operation, code, text);
    default:
        return Make("fault", QStringLiteral("once"), QStringLiteral("1"), effect, operation, code, text);
    }
}
