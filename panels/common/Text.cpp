#include "panels/common/Text.h"

#include <QLocale>
#include <QTextDocument>

QString FromLibrary(const std::string& text) {
    return QString::fromStdString(text);
}

std::string ToLibrary(const QString& text) {
    return text.toStdString();
}

QString PlainToolTip(const QString& text) {
    return Qt::mightBeRichText(text) ? QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped()) : text;
}

QString FormatUnits(double value) {
    return QString::number(value, 'f', 5);
}

QString FormatCount(int count, const QString& noun) {
    const QString number = QLocale(QLocale::English, QLocale::UnitedStates).toString(count);
    return count == 1 ? QStringLiteral("1 ") + noun : QStringLiteral("%1 %2s").arg(number, noun);
}
