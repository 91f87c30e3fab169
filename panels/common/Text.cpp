#include "panels/common/Text.h"

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
