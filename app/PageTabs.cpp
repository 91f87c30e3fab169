#include "app/PageTabs.h"

#include "panels/common/Text.h"

#include <QTabBar>

namespace {

class PageTabBar : public QTabBar {
public:
    using QTabBar::QTabBar;

protected:
    QSize minimumTabSizeHint(int index) const override {
        constexpr int letters = 8;
        QSize size = tabSizeHint(index);
        if (index == PageTabs::networkPage) {
            size.setWidth(qMin(size.width(), letters * fontMetrics().horizontalAdvance(QLatin1Char('W'))));
        }
        return size;
    }
    void mousePressEvent(QMouseEvent* event) override {
        QTabBar::mousePressEvent(event);
        if (hasFocus()) {
            // A page that is opened by its tab is used next.
            focusNextPrevChild(true);
        }
    }
};

} // namespace

PageTabs::PageTabs(QWidget* parent) : QTabWidget(parent) {
    auto* bar = new PageTabBar(this);
    // The name that the tab bar of every tab widget has.
    bar->setObjectName(QStringLiteral("qt_tabwidget_tabbar"));
    setTabBar(bar);
    setElideMode(Qt::ElideRight);
}

void PageTabs::ShowPage(QWidget* page, const QString& caption) {
    QString text = caption;
    text.replace(QLatin1Char('&'), QLatin1String("&&"));
    const int index = indexOf(page) >= 0 ? indexOf(page) : addTab(page, text);
    setTabText(index, text);
    setTabToolTip(index, PlainToolTip(caption));
}
