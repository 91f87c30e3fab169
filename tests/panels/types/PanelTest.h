#pragma once

#include "panels/common/TypePanel.h"
#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>

#include <vector>

/// What the page of a module shows and offers; nothing for an empty page.
inline QStringList ShownOrOffered(const QWidget* page) {
    QStringList names;
    const auto widgets = page->findChildren<QWidget*>();
    for (const QWidget* widget : widgets) {
        const auto* field = qobject_cast<const QLineEdit*>(widget);
        const auto* label = qobject_cast<const QLabel*>(widget);
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        if ((field != nullptr && !field->text().isEmpty()) || (button != nullptr && button->isEnabled()) ||
            (label != nullptr && label->objectName().startsWith(QLatin1String("lblCanDo")) &&
             !label->text().isEmpty()) ||
            (qobject_cast<const TypePanel*>(widget) != nullptr && !widget->isHidden())) {
            names.append(widget->objectName());
        }
    }
    return names;
}

/// The base of tests of one panel, on a network with one module, the module page in front.
class PanelTest : public ProgramFixture {
protected:
    /// A module of this kind with more attributes and content.
    void OpenPanel(const char* type, const QString& attributes = QString(), const QString& content = QString()) {
        OpenModule(BenchWith(type, attributes, content), 0);
    }

    /// Selects the module while its panel's filling runs into the faults that this sets, and gives back the
    /// boxes that opened meanwhile.
    template <class SetFaults>
    QVector<SeenBox> OpenFailingPanel(const char* type, SetFaults setFaults, const QString& attributes = QString()) {
        OpenNetwork(BenchWith(type, attributes, QString()));
        boxes.Tolerate(true);
        setFaults();
        Operator().SelectRow("listModules", 0);
        ProcessAllEvents();
        Operator().SelectPage("tabModule");
        return boxes.Take();
    }

    static QString BenchWith(const char* type, const QString& attributes, const QString& content) {
        return Benches::With(QStringLiteral("<module type=\"%1\" identity=\"MODULE0001\" %2>%3</module>")
                                 .arg(QLatin1String(type), attributes, content));
    }

    /// The set-up of the module page failed at this operation: the library was asked nothing more for the page, which
    /// is empty.
    void CompareFailedAt(const QString& operation) {
        const QStringList calls = ModuleCalls();
        const int failed = calls.lastIndexOf(operation + QStringLiteral("()"));
        QVERIFY(failed > 0);
        QCOMPARE(calls.value(failed + 1), QStringLiteral("BufferedCapable()"));
        QCOMPARE(ShownOrOffered(Operator().Find("moduleWidget")), QStringList());
    }

    /// A call of the module as the journal has it.
    static QString Call(const QString& call) { return QStringLiteral("module MODULE0001.") + call; }
    /// The calls of the module since the mark, without its name.
    static QStringList ModuleCalls() {
        QStringList calls = Calls::TakeObject("module MODULE0001");
        calls.replaceInStrings(QStringLiteral("module MODULE0001."), QString());
        return calls;
    }

    template <class Panel>
    Panel* ThePanel() {
        return Window().findChild<Panel*>();
    }

    /// The titles of a panel's groups, in order.
    static QStringList Titles(const QWidget* panel) {
        QStringList titles;
        const auto groups = panel->findChildren<QGroupBox*>();
        for (const QGroupBox* group : groups) {
            titles.append(group->title());
        }
        return titles;
    }

    /// The texts of a panel's labels, in order.
    static QStringList LabelsOf(const QWidget* panel) {
        QStringList texts;
        const auto labels = panel->findChildren<QLabel*>();
        for (const QLabel* label : labels) {
            texts.append(label->text());
        }
        return texts;
    }

    /// The names of the panel's enabled buttons, sorted.
    static QStringList EnabledButtons(const QWidget* panel) {
        QStringList names;
        const auto buttons = panel->findChildren<QAbstractButton*>();
        for (const QAbstractButton* button : buttons) {
            if (button->isEnabled() && !button->objectName().startsWith(QLatin1String("qt_"))) {
                names.append(button->objectName());
            }
        }
        names.sort();
        return names;
    }

    /// Sends a text from the library's side: umlauts and markup must come through as they are.
    static QString ForeignText() { return QStringLiteral("Geht nicht: <u>größer</u> als 5 µm."); }
};

/// From its n-th call on, an operation answers with this number without doing its work.
inline int AnswerFrom(int n, const char* operation, int number) {
    TavikSimulator::Fault fault;
    fault.operation = operation;
    fault.trigger = TavikSimulator::FaultTrigger::FromNth;
    fault.n = static_cast<std::uint64_t>(n);
    fault.effect = TavikSimulator::FaultEffect::Result;
    fault.code = number;
    return TavikSimulator::AddFault(fault);
}

/// The n-th call of an operation from now throws this text.
inline void FailNth(int n, const char* operation, const QString& text) {
    TavikSimulator::Fault fault;
    fault.operation = operation;
    fault.trigger = TavikSimulator::FaultTrigger::Nth;
    fault.n = static_cast<std::uint64_t>(n);
    fault.text = text.toStdString();
    TavikSimulator::AddFault(fault);
}
