#include "app/Application.h"

#include "panels/common/FieldStyle.h"
#include "panels/common/LastResort.h"

#include <QAbstractButton>
#include <QFont>
#include <QPalette>
#include <QPointer>
#include <QShortcutEvent>
#include <QStyle>

#include <cmath>

/// The linker leaves out pictures of a static library that nobody asks for. (The macro cannot stand in a namespace.)
static void KeepPictures() {
    Q_INIT_RESOURCE(resources);
}

namespace {

/// Presses a button at once when its mnemonic is pressed. Qt would click it 0.1 s later, whatever is shown by then, and
/// without taking the focus from a field in which a number is being typed.
bool PressedByMnemonic(QObject* receiver, QEvent* event) {
    if (event->type() != QEvent::Shortcut || static_cast<QShortcutEvent*>(event)->isAmbiguous()) {
        return false;
    }
    const QPointer<QAbstractButton> button(qobject_cast<QAbstractButton*>(receiver));
    if (button == nullptr || !button->isEnabled()) {
        return false;
    }
    if (button->focusPolicy() != Qt::NoFocus) {
        // Ends the entry elsewhere, which may disable or remove this button.
        button->setFocus(Qt::ShortcutFocusReason);
    }
    if (button != nullptr && button->isVisible()) {
        button->click();
    }
    return true;
}

/// WCAG 2.1, relative luminance.
double Luminance(const QColor& colour) {
    const auto linear = [](double share) {
        return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

/// The selection's colour of some styles is too light for the text on it: darkened until the contrast is 4.5 to 1.
QPalette WithReadableSelection(QPalette palette) {
    // A style paints the row under the mouse a little lighter.
    constexpr double leastContrast = 5.5;
    constexpr int darkerPercent = 105;
    const double text = Luminance(palette.color(QPalette::HighlightedText)) + 0.05;
    QColor selection = palette.color(QPalette::Highlight);
    if (text < Luminance(selection) + 0.05) {
        return palette;
    }
    while (text / (Luminance(selection) + 0.05) < leastContrast) {
        selection = selection.darker(darkerPercent);
    }
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, QPalette::Highlight, selection);
    }
    return palette;
}

} // namespace

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    KeepPictures();
    setStyle(new FieldStyle(style()->objectName()));
    constexpr int pointSize = 10;
    QFont font = QApplication::font();
    font.setPointSize(pointSize);
    setFont(font);
    setPalette(WithReadableSelection(palette()));
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return PressedByMnemonic(receiver, event) || QApplication::notify(receiver, event);
    } catch (...) {
        LastResort::ReportCurrentException();
        return false;
    }
}
