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

/// What shows one text: labels, fields, and buttons of all kinds.
template <class Control>
Maker Makes(const Control& original) {
    return [text = original.text()] { return new Control(text); };
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

Maker Makes(const QSpinBox& original) {
    return MakesSpinBox(original);
}

Maker Makes(const QDoubleSpinBox& original) {
    return MakesSpinBox(original);
}

Maker Makes(const QListWidget& original) {
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

Maker Makes(const QComboBox& original) {
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

/// Finds how to make the original's like, if it is one of these.
template <class Control, class... Others>
Maker MakesOneOf(const QWidget& original) {
    if (const auto* control = qobject_cast<const Control*>(&original)) {
        return Makes(*control);
    }
    if constexpr (sizeof...(Others) > 0) {
        return MakesOneOf<Others...>(original);
    } else {
        return {};
    }
}

/// A control that is complete in itself; empty for what only holds others.
Maker MakesControl(const QWidget& original) {
    return MakesOneOf<QLabel, QLineEdit, QListWidget, QComboBox, QSpinBox, QDoubleSpinBox, QPushButton, QRadioButton,
                      QCheckBox>(original);
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
