#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QClipboard>
#include <QLineEdit>
#include <QTextEdit>

namespace {

/// Whether nothing of a widget can be told from what is around it.
bool IsInvisible(const QWidget* widget) {
    QWidget* window = widget->window();
    const QRect place(widget->mapTo(window, QPoint()), widget->size());
    const QImage image = window->grab(place.adjusted(-1, -1, 1, 1)).toImage();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != image.pixel(0, 0)) {
                return false;
            }
        }
    }
    return true;
}

} // namespace

/// Fields that show and take no entry, on every page.
class ReadOnlyFieldsTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void tabPassesThem_data() { Pages(); }
    void tabPassesThem();
    void emptyFieldLooksLikeThePage_data() { Pages(); }
    void emptyFieldLooksLikeThePage();
    void fieldForEntriesHasAFrame();
    void textIsSelectedAndCopied();

private:
    static void Pages();
    void Show(const QString& page) {
        OpenModule(Benches::Two(), 0);
        QVERIFY(Operator().SelectPage(qPrintable(page)));
    }
    QList<QWidget*> FieldsOf(const QString& page);
};

void ReadOnlyFieldsTest::Pages() {
    QTest::addColumn<QString>("page");
    for (const char* page :
         {"tabServer", "tabNetwork", "tabModule", "tabBuffered", "tabDifference", "tabDynamic", "tabReadburst"}) {
        QTest::newRow(page) << QString::fromLatin1(page);
    }
}

QList<QWidget*> ReadOnlyFieldsTest::FieldsOf(const QString& page) {
    QList<QWidget*> fields;
    const QList<QWidget*> widgets = Operator().Find(qPrintable(page))->findChildren<QWidget*>();
    for (QWidget* widget : widgets) {
        const auto* field = qobject_cast<QLineEdit*>(widget);
        const auto* notes = qobject_cast<QTextEdit*>(widget);
        if (widget->isVisible() &&
            ((field != nullptr && field->isReadOnly()) || (notes != nullptr && notes->isReadOnly()))) {
            fields.append(widget);
        }
    }
    return fields;
}

void ReadOnlyFieldsTest::tabPassesThem() {
    QFETCH(QString, page);
    Show(page);
    const QList<QWidget*> fields = FieldsOf(page);
    QVERIFY(!fields.isEmpty());
    for (const QWidget* field : fields) {
        QVERIFY2(field->focusPolicy() == Qt::ClickFocus, qPrintable(field->objectName()));
    }
}

void ReadOnlyFieldsTest::emptyFieldLooksLikeThePage() {
    QFETCH(QString, page);
    Show(page);
    const QList<QWidget*> fields = FieldsOf(page);
    for (QWidget* widget : fields) {
        auto* field = qobject_cast<QLineEdit*>(widget);
        if (field != nullptr && field->styleSheet().isEmpty()) {
            field->clear();
            QVERIFY2(IsInvisible(field), qPrintable(field->objectName()));
        } else if (auto* notes = qobject_cast<QTextEdit*>(widget)) {
            notes->clear();
            QVERIFY2(IsInvisible(notes), qPrintable(notes->objectName()));
        }
    }
}

void ReadOnlyFieldsTest::fieldForEntriesHasAFrame() {
    Show(QStringLiteral("tabModule"));
    auto* field = Operator().The<QLineEdit>("tbStroke");
    field->clear();
    QVERIFY(IsInvisible(field));
    field->setReadOnly(false);
    QVERIFY(!IsInvisible(field));
}

void ReadOnlyFieldsTest::textIsSelectedAndCopied() {
    Show(QStringLiteral("tabModule"));
    auto* field = Operator().The<QLineEdit>("tbTavikIdentity");
    QVERIFY(Operator().Click(field));
    QVERIFY(field->hasFocus());
    Operator().Press(Qt::Key_A, Qt::ControlModifier);
    Operator().Press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("KX00000001"));
}

TAVIK_TEST_MAIN(ReadOnlyFieldsTest)

#include "ReadOnlyFieldsTest.moc"
