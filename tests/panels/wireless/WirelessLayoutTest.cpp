#include "tests/panels/wireless/SettingsTest.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>

using namespace WirelessBench;

namespace {

QString Clipping(const QWidget& widget) {
    const bool showsText =
        qobject_cast<const QLabel*>(&widget) != nullptr || qobject_cast<const QAbstractButton*>(&widget) != nullptr;
    const QSize needed = showsText ? widget.sizeHint() : widget.minimumSizeHint();
    if (!widget.parentWidget()->rect().contains(widget.geometry()) || widget.width() < needed.width() ||
        widget.height() < needed.height()) {
        return QStringLiteral("%1 is clipped").arg(widget.objectName());
    }
    return QString();
}

/// The parts of a control that Qt makes itself have names of their own.
bool IsOfTheForm(const QWidget& widget) {
    return !widget.objectName().isEmpty() && !widget.objectName().startsWith(QLatin1String("qt_"));
}

/// What an operator would complain of: clipped texts, controls without a name or out of reach of the Tab key.
QStringList Faults(const QWidget& form) {
    QStringList faults;
    const auto widgets = form.findChildren<QWidget*>();
    for (QWidget* widget : widgets) {
        if (!widget->isVisible() || !IsOfTheForm(*widget)) {
            continue;
        }
        faults.append(Clipping(*widget));
        const bool control = widget->focusPolicy() != Qt::NoFocus && qobject_cast<QGroupBox*>(widget) == nullptr;
        const QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(widget);
        if (control && accessible->text(QAccessible::Name).isEmpty()) {
            faults.append(widget->objectName() + QStringLiteral(" has no name"));
        }
        const auto* field = qobject_cast<const QLineEdit*>(widget);
        const bool onlyShows = field != nullptr && field->isReadOnly();
        const bool byTab = (widget->focusPolicy() & Qt::TabFocus) != 0;
        if (control && byTab == onlyShows) {
            faults.append(widget->objectName() + (byTab ? QStringLiteral(" only shows, but Tab reaches it")
                                                        : QStringLiteral(" cannot be reached by keys")));
        }
    }
    faults.removeAll(QString());
    return faults;
}

/// Names that two controls of a form share.
QStringList SharedNames(const QWidget& form) {
    QStringList names;
    QStringList shared;
    const auto buttons = form.findChildren<QAbstractButton*>();
    for (QAbstractButton* button : buttons) {
        if (IsOfTheForm(*button)) {
            const QString name = QAccessible::queryAccessibleInterface(button)->text(QAccessible::Name);
            if (names.contains(name)) {
                shared.append(name);
            }
            names.append(name);
        }
    }
    return shared;
}

/// Every slot holds a tool, with an identity and a name as long as they can be.
QString Full() {
    QString slotsAndTools;
    for (int slot = 1; slot <= 6; ++slot) {
        const QString identity = QStringLiteral("KRXWWWWWW%1").arg(slot);
        slotsAndTools += Slot(slot, identity, QStringLiteral("Cylinder head jig %1").arg(slot)) +
                         Tool(identity, slot == 2 ? QStringLiteral("KRV-X") : QStringLiteral("KRV"));
    }
    return With(slotsAndTools);
}

} // namespace

/// Whether everything can be read and reached, at the sizes of font and screen that the tests' list asks for.
class WirelessLayoutTest : public SettingsTest {
    Q_OBJECT

private slots:
    void panel();
    void panelWhileRestarting();
    void readings();
    void settings_data();
    void settings();
};

void WirelessLayoutTest::panel() {
    OpenModule(Full(), 0);
    ProcessAllEvents();
    QCOMPARE(Faults(*Panel()).join(QLatin1Char('\n')), QString());
    QCOMPARE(SharedNames(*Panel()), QStringList());
    const auto* page = Window().findChild<QScrollArea*>(QStringLiteral("scrollModuleWidget"));
    QVERIFY(page != nullptr);
    if (Window().width() <= 1100) {
        QVERIFY2(
            page->viewport()->rect().contains(QRect(Panel()->mapTo(page->viewport(), QPoint(0, 0)), Panel()->size())),
            "the panel reaches out of the page");
    }
}

void WirelessLayoutTest::panelWhileRestarting() {
    OpenModule(Full(), 0);
    ProcessAllEvents();
    const QSize before = Panel()->size();
    Operator().Find("lblWait")->show();
    ProcessAllEvents();
    QCOMPARE(Faults(*Panel()).join(QLatin1Char('\n')), QString());
    // The banner takes room that was left for it.
    QCOMPARE(Panel()->size(), before);
}

void WirelessLayoutTest::readings() {
    OpenModule(Full(), 0);
    BoxReply reply;
    reply.meanwhile = [](QDialog& dialog) {
        ProcessAllEvents();
        QCOMPARE(Faults(dialog).join(QLatin1Char('\n')), QString());
        QCOMPARE(dialog.focusWidget()->objectName(), QStringLiteral("btnStartStopReading"));
    };
    boxes.ExpectDialog(Panel(), QStringLiteral("KRV Channel Readings"), reply);
    QVERIFY(Operator().Click("btnRead1"));
}

void WirelessLayoutTest::settings_data() {
    QTest::addColumn<QString>("bench");
    QTest::addColumn<QString>("title");
    QTest::newRow("single channel") << SingleChannel() << QStringLiteral("KRV Settings");
    QTest::newRow("eight channels") << EightChannels() << QStringLiteral("KRV-X Configuration");
}

void WirelessLayoutTest::settings() {
    QFETCH(QString, bench);
    QFETCH(QString, title);
    OpenModule(bench, 0);
    InSettings(title, [](QDialog& dialog, const WidgetDriver&) {
        ProcessAllEvents();
        QCOMPARE(Faults(dialog).join(QLatin1Char('\n')), QString());
        QCOMPARE(SharedNames(dialog), QStringList());
        QVERIFY2(dialog.height() <= 700, qPrintable(QString::number(dialog.height())));
    });
}

TAVIK_TEST_MAIN(WirelessLayoutTest)

#include "WirelessLayoutTest.moc"
