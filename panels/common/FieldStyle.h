#pragma once

#include <QProxyStyle>

/// The application's style. A read-only field has neither frame nor background, so that it does not look like one to
/// type into, and Tab passes it by; its text can be selected with the mouse and copied.
class FieldStyle : public QProxyStyle {
    Q_OBJECT

public:
    using QProxyStyle::QProxyStyle;

    using QProxyStyle::polish;
    void polish(QWidget* widget) override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget = nullptr) const override;
};
