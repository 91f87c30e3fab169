#include "tests/support/Contrast.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QGroupBox>
#include <QHash>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QStyleOptionGroupBox>
#include <QTabBar>
#include <QTextEdit>

#include <algorithm>
#include <cmath>

namespace {

struct TextArea {
    QString text;
    QRect area; ///< in the widget
};

/// WCAG 2.1, relative luminance.
double Luminance(QRgb colour) {
    const auto linear = [](int channel) {
        const double share = channel / 255.0;
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) + 0.0722 * linear(qBlue(colour));
}

double Contrast(QRgb one, QRgb other) {
    const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

/// The background is the colour of most pixels, the text the colour that differs most from it.
double ContrastIn(const QImage& picture, const QRect& area) {
    QHash<QRgb, int> pixels;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            ++pixels[picture.pixel(x, y)];
        }
    }
    QRgb background = 0;
    int most = 0;
    for (auto colour = pixels.cbegin(); colour != pixels.cend(); ++colour) {
        if (colour.value() > most) {
            most = colour.value();
            background = colour.key();
        }
    }
    double greatest = 1.0;
    for (auto colour = pixels.cbegin(); colour != pixels.cend(); ++colour) {
        greatest = std::max(greatest, Contrast(colour.key(), background));
    }
    return greatest;
}

QRect ButtonArea(const QAbstractButton& button) {
    QStyleOptionButton option;
    option.initFrom(&button);
    const bool radio = button.inherits("QRadioButton");
    const bool box = button.inherits("QCheckBox");
    const auto element = radio ? QStyle::SE_RadioButtonContents
                         : box ? QStyle::SE_CheckBoxContents
                               : QStyle::SE_PushButtonContents;
    return button.style()->subElementRect(element, &option, &button);
}

QVector<TextArea> ItemsOf(const QAbstractItemView& view) {
    constexpr int mostRows = 20;
    QVector<TextArea> areas;
    const QAbstractItemModel* model = view.model();
    const QModelIndex root = view.rootIndex();
    for (int row = 0; model != nullptr && row < std::min(model->rowCount(root), mostRows); ++row) {
        for (int column = 0; column < model->columnCount(root); ++column) {
            const QModelIndex index = model->index(row, column, root);
            const QRect area = view.visualRect(index).translated(view.viewport()->pos());
            const bool whole = view.viewport()->geometry().contains(area);
            if (!whole || !model->flags(index).testFlag(Qt::ItemIsEnabled)) {
                continue;
            }
            areas.append({index.data().toString(), area.adjusted(2, 2, -2, -2)});
        }
    }
    return areas;
}

QVector<TextArea> TextsOf(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        return {{label->text(), label->contentsRect().adjusted(2, 1, -2, -1)}};
    }
    if (const auto* field = qobject_cast<const QLineEdit*>(&widget)) {
        // Of a selected text the selection would be taken for the text.
        return {{field->hasSelectedText() ? QString() : field->text(), field->rect().adjusted(4, 4, -4, -4)}};
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        return {{button->text(), ButtonArea(*button)}};
    }
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
        QStyleOptionComboBox option;
        option.initFrom(combo);
        const QRect area =
            combo->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, combo);
        return {{combo->currentText(), area}};
    }
    if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) {
        QStyleOptionGroupBox option;
        option.initFrom(group);
        option.text = group->title();
        option.subControls = QStyle::SC_GroupBoxLabel | QStyle::SC_GroupBoxFrame;
        const QRect area =
            group->style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, group);
        return {{group->title(), area}};
    }
    if (const auto* bar = qobject_cast<const QTabBar*>(&widget)) {
        QVector<TextArea> tabs;
        for (int tab = 0; tab < bar->count(); ++tab) {
            tabs.append({bar->tabText(tab), bar->tabRect(tab).adjusted(6, 5, -6, -5)});
        }
        return tabs;
    }
    if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget)) {
        return ItemsOf(*view);
    }
    if (const auto* notes = qobject_cast<const QTextEdit*>(&widget)) {
        return {{notes->toPlainText(), notes->viewport()->geometry()}};
    }
    return {};
}

} // namespace

QPalette DarkPalette() {
    QPalette dark(QColor(53, 53, 53), QColor(42, 42, 42));
    dark.setColor(QPalette::Base, QColor(35, 35, 35));
    dark.setColor(QPalette::AlternateBase, QColor(45, 45, 45));
    dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
    dark.setColor(QPalette::HighlightedText, Qt::black);
    dark.setColor(QPalette::ToolTipBase, QColor(35, 35, 35));
    dark.setColor(QPalette::ToolTipText, Qt::white);
    dark.setColor(QPalette::Link, QColor(100, 170, 255));
    return dark;
}

QStringList LowContrastTexts(QWidget& window, double leastRatio) {
    const QImage picture = window.grab().toImage();
    const QRect whole = picture.rect();
    QStringList found;
    const auto widgets = window.findChildren<QWidget*>();
    for (const QWidget* widget : widgets) {
        if (!widget->isVisibleTo(&window) || !widget->isEnabled() || widget->window() != &window) {
            continue;
        }
        const QRect seen = widget->visibleRegion().boundingRect();
        for (const TextArea& text : TextsOf(*widget)) {
            const QRect area = text.area.intersected(seen).translated(widget->mapTo(&window, QPoint())) & whole;
            if (text.text.trimmed().isEmpty() || area.width() < 4 || area.height() < 6) {
                continue;
            }
            const double ratio = ContrastIn(picture, area);
            if (ratio < leastRatio) {
                found.append(QStringLiteral("%1 \"%2\": contrast %3, expected at least %4")
                                 .arg(widget->objectName(), text.text.left(40))
                                 .arg(ratio, 0, 'f', 1)
                                 .arg(leastRatio, 0, 'f', 1));
            }
        }
    }
    return found;
}
