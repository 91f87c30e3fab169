#include "panels/common/FieldStyle.h"

#include <QLineEdit>
#include <QPainter>
#include <QStyleOption>
#include <QTextEdit>

void FieldStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    auto* field = qobject_cast<QLineEdit*>(widget);
    auto* notes = qobject_cast<QTextEdit*>(widget);
    if (field != nullptr && field->isReadOnly()) {
        field->setFocusPolicy(Qt::ClickFocus);
    } else if (notes != nullptr && notes->isReadOnly()) {
        notes->setFocusPolicy(Qt::ClickFocus);
        notes->setFrameShape(QFrame::NoFrame);
        notes->viewport()->setAutoFillBackground(false);
    }
}

void FieldStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    if (element != PE_PanelLineEdit || (option->state & State_ReadOnly) == 0) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    } else if (widget != nullptr && widget->testAttribute(Qt::WA_StyleSheetTarget)) {
        // The background that a style sheet gives the field.
        painter->fillRect(option->rect, option->palette.base());
    }
}
