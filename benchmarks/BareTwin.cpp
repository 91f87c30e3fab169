#include "benchmarks/BareTwin.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>

namespace {

using Maker = std::function<QWidget*()>;

template <class Button>
Maker MakesButton(const Button& original) {
    return [text = original.text()] { return new Button(text); };
}

template <class SpinBox>
Maker MakesSpinBox(const SpinBox& original) {
    return [least = original.minimum(), most = original.maximum(), value = original.value()] {
        auto* box = new SpinBox;
        box->setRange(least, most);
        box->setValue(value);
        return box;
    };
}

Maker MakesList(const QListWidget& original) {
    QStringList texts;
    for (int row = 0; row < original.count(); ++row) {
        texts.append(original.item(row)->text());
    }
    return [texts, current = original.currentRow()] {
        auto* list = new QListWidget;
        list->addItems(texts);
        list->setCurrentRow(current);
        return list;
    };
}

Maker MakesComboBox(const QComboBox& original) {
    QStringList texts;
    for (int row = 0; row < original.count(); ++row) {
        texts.append(original.itemText(row));
    }
    return [texts, current = original.currentIndex()] {
        auto* box = new QComboBox;
        box->addItems(texts);
        box->setCurrentIndex(current);
        return box;
    };
}

/// A control that is complete in itself; empty for what only holds others.
Maker MakesControl(const QWidget& original) {
    if (const auto* label = qobject_cast<const QLabel*>(&original)) {
        return [text = label->text()] { return new QLabel(text); };
    }
    if (const auto* field = qobject_cast<const QLineEdit*>(&original)) {
        return [text = field->text()] { return new QLineEdit(text); };
    }
    if (const auto* list = qobject_cast<const QListWidget*>(&original)) {
        return MakesList(*list);
    }
    if (const auto* box = qobject_cast<const QComboBox*>(&original)) {
        return MakesComboBox(*box);
    }
    if (const auto* box = qobject_cast<const QSpinBox*>(&original)) {
        return MakesSpinBox(*box);
    }
    if (const auto* box = qobject_cast<const QDoubleSpinBox*>(&original)) {
        return MakesSpinBox(*box);
    }
    if (const auto* button = qobject_cast<const QPushButton*>(&original)) {
        return MakesButton(*button);
    }
    if (const auto* button = qobject_cast<const QRadioButton*>(&original)) {
        return MakesButton(*button);
    }
    if (const auto* button = qobject_cast<const QCheckBox*>(&original)) {
        return MakesButton(*button);
    }
    return {};
}

Maker MakesHolder(const QWidget& original) {
    if (const auto* group = qobject_cast<const QGroupBox*>(&original)) {
        return [title = group->title()] { return new QGroupBox(title); };
    }
    if (qobject_cast<const QFrame*>(&original) != nullptr) {
        return [] { return new QFrame; };
    }
    return [] { return new QWidget; };
}

} // namespace

Benchmarks::BareTwin::BareTwin(const QWidget& original) : make(MakesControl(original)) {
    if (make) {
        return;
    }
    make = MakesHolder(original);
    const auto widgets = original.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (const QWidget* child : widgets) {
        children.emplace_back(*child);
    }
}

QWidget* Benchmarks::BareTwin::Make() const {
    constexpr int columns = 4;
    QWidget* widget = make();
    if (!children.empty()) {
        auto* layout = new QGridLayout(widget);
        int place = 0;
        for (const BareTwin& child : children) {
            layout->addWidget(child.Make(), place / columns, place % columns);
            ++place;
        }
    }
    return widget;
}
