#include "app/CapabilityLabel.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

namespace {

constexpr QChar tab = QLatin1Char('\t');

QString Caption(const QString& text) {
    return text.section(tab, 0, 0);
}

/// Empty for a text without tab characters.
QString Value(const QString& text) {
    return text.contains(tab) ? text.section(tab, -1) : QString();
}

} // namespace

void CapabilityLabel::ShowCapability(const char* prefixAndTabs, bool capable) {
    setText(QLatin1String(prefixAndTabs) + (capable ? QLatin1String("Yes") : QLatin1String("No")));
}

void CapabilityLabel::ShowNothing() {
    setText(Caption(text()));
}

QSize CapabilityLabel::sizeHint() const {
    const QFontMetrics metrics = fontMetrics();
    const int gap = metrics.averageCharWidth() * 3;
    const int width = metrics.horizontalAdvance(Caption(text())) + gap + metrics.horizontalAdvance(Value(text()));
    return QSize(width, metrics.lineSpacing() + 2);
}

QSize CapabilityLabel::minimumSizeHint() const {
    return sizeHint();
}

void CapabilityLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    const auto draw = [&](Qt::AlignmentFlag side, const QString& part) {
        style()->drawItemText(&painter, contentsRect(), int(side) | Qt::AlignVCenter, option.palette, isEnabled(), part,
                              foregroundRole());
    };
    draw(Qt::AlignLeft, Caption(text()));
    draw(Qt::AlignRight, Value(text()));
}
