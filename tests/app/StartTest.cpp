#include "library/TavikNetwork.h"
#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QHeaderView>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QStatusBar>
#include <QTableWidget>
#include <QTextDocument>

namespace {

/// What the first call of an operation answered.
QString ResultOf(const std::string& operation) {
    for (const TavikSimulator::JournalEntry& entry : Calls::Entries()) {
        if (entry.operation == operation) {
            return QString::fromStdString(entry.result);
        }
    }
    return QString();
}

} // namespace

/// What the operator sees when the program has started.
class StartTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void windowHasItsTitleAndSize();
    void serverPageIsTheOnlyOne();
    void libraryTellsItsVersion();
    void libraryIsAskedInOrder();
    void tableShowsTheNetworks();
    void tableCannotBeEdited();
    void columnsShareTheWidth();
    void rowButtonsCarryTheirRow();
    void nothingIsSelected();
    void menusAreThere();
    void noNetworksAtAll();
    void formTextsBeforeTheFirstNetwork();
    void textsOutsideAscii();
    void libraryThatFailsAtStart_data();
    void libraryThatFailsAtStart();
};

void StartTest::windowHasItsTitleAndSize() {
    Open(Benches::Two());
    QCOMPARE(Window().windowTitle(), QStringLiteral("Tavik Library Test"));
    QCOMPARE(Window().size(), QSize(1100, 700));
    QCOMPARE(Window().minimumSize(), QSize(1100, 700));
    QCOMPARE(Window().font().pointSize(), 10);
    QVERIFY(!Window().windowIcon().isNull());
    QVERIFY(!Window().windowIcon().availableSizes().isEmpty());
}

void StartTest::serverPageIsTheOnlyOne() {
    Open(Benches::Two());
    QCOMPARE(Pages(), QStringList{QStringLiteral("Server")});
    QVERIFY(Operator().Find("tabServer")->isVisible());
    QCOMPARE(Window().statusBar()->currentMessage(), QString());
}

void StartTest::libraryTellsItsVersion() {
    Open(Benches::Two());
    const QVector<std::pair<const char*, std::string>> fields = {{"editPartNumber", "LibraryPartNumber"},
                                                                 {"editVersion", "LibraryVersion"},
                                                                 {"editBuildDate", "LibraryBuildDate"}};
    for (const auto& [name, operation] : fields) {
        QVERIFY(!Operator().Text(name).isEmpty());
        QCOMPARE(QLatin1Char('"') + Operator().Text(name) + QLatin1Char('"'), ResultOf(operation));
        QVERIFY(Operator().The<QLineEdit>(name)->isReadOnly());
    }
}

void StartTest::libraryIsAskedInOrder() {
    Open(Benches::With(QString()));
    COMPARE_CALLS(Calls::Take(),
                  {QStringLiteral("server.TavikServer()"), QStringLiteral("server.LibraryPartNumber()"),
                   QStringLiteral("server.LibraryVersion()"), QStringLiteral("server.LibraryBuildDate()"),
                   QStringLiteral("server.Networks()"), QStringLiteral("networks.FindNetworks()"),
                   QStringLiteral("server.Networks()"), QStringLiteral("networks.Count()"),
                   QStringLiteral("networks.Network(0)"), QStringLiteral("network Alpha.NetworkName()"),
                   QStringLiteral("network Alpha.ControllerID()"), QStringLiteral("network Alpha.Description()"),
                   QStringLiteral("network Alpha.NetworkType()"), QStringLiteral("network Alpha.IsConnected()"),
                   QStringLiteral("networks.Count()")});
}

void StartTest::tableShowsTheNetworks() {
    Open(Benches::Two());
    const auto* table = Operator().The<QTableWidget>("tableNetworks");
    QStringList headers;
    for (int column = 0; column < table->columnCount(); ++column) {
        headers.append(table->horizontalHeaderItem(column)->text());
    }
    QCOMPARE(headers, QStringList({QStringLiteral("Network Name"), QStringLiteral("ID"), QStringLiteral("Description"),
                                   QStringLiteral("Type"), QStringLiteral("State"), QString()}));
    QCOMPARE(table->rowCount(), 2);
    QStringList cells;
    for (int column = 0; column < 5; ++column) {
        cells.append(table->item(1, column)->text());
    }
    const std::string type = TavikLibrary::eNetworkType_ToString(TavikLibrary::eNetworkType::Ethernet);
    QCOMPARE(cells, QStringList({QStringLiteral("Beta"), QStringLiteral("C2"), QStringLiteral("Simulated beta"),
                                 QString::fromStdString(type), QStringLiteral("Disconnected")}));
}

void StartTest::tableCannotBeEdited() {
    Open(Benches::Two());
    auto* table = Operator().The<QTableWidget>("tableNetworks");
    QCOMPARE(table->editTriggers(), QAbstractItemView::EditTriggers(QAbstractItemView::NoEditTriggers));
    QVERIFY(Operator().SelectTableRow("tableNetworks", 0));
    Operator().Press(Qt::Key_F2);
    Operator().Type(QStringLiteral("x"));
    QVERIFY(!table->isPersistentEditorOpen(table->item(0, 0)));
    QCOMPARE(table->item(0, 0)->text(), QStringLiteral("Alpha"));
}

void StartTest::columnsShareTheWidth() {
    Open(Benches::Two());
    const auto* table = Operator().The<QTableWidget>("tableNetworks");
    for (int column = 0; column < 6; ++column) {
        QCOMPARE(table->horizontalHeader()->sectionResizeMode(column), QHeaderView::Stretch);
        QVERIFY(qAbs(table->columnWidth(column) - table->viewport()->width() / 6) <= 6);
    }
}

void StartTest::rowButtonsCarryTheirRow() {
    Open(Benches::Two());
    for (int row = 0; row < 2; ++row) {
        const auto* button = qobject_cast<QPushButton*>(Operator().CellButton("tableNetworks", row, 5));
        QVERIFY(button != nullptr);
        QCOMPARE(button->text(), QStringLiteral("Connect"));
        const QVariant property = button->property("TavikNetworkPtr");
        QCOMPARE(property.type(), QVariant::Int);
        QCOMPARE(property.toInt(), row);
    }
}

void StartTest::nothingIsSelected() {
    Open(Benches::Two());
    QVERIFY(Operator().The<QTableWidget>("tableNetworks")->selectedItems().isEmpty());
}

void StartTest::menusAreThere() {
    Open(Benches::Two());
    QStringList texts;
    const QList<QAction*> menus = Window().menuBar()->actions();
    for (const QAction* menu : menus) {
        texts.append(menu->text());
        const QList<QAction*> actions = menu->menu()->actions();
        for (const QAction* action : actions) {
            texts.append(action->text());
        }
    }
    QCOMPARE(texts, QStringList({QStringLiteral("&File"), QStringLiteral("E&xit"), QStringLiteral("&Help"),
                                 QStringLiteral("&Decode Error"), QStringLiteral("&About")}));
}

void StartTest::noNetworksAtAll() {
    Open(Benches::None());
    QCOMPARE(Operator().The<QTableWidget>("tableNetworks")->rowCount(), 0);
    COMPARE_CALLS(Calls::Take().mid(4), {QStringLiteral("server.Networks()"), QStringLiteral("networks.FindNetworks()"),
                                         QStringLiteral("server.Networks()"), QStringLiteral("networks.Count()")});
    QVERIFY(Operator().Click("btnConnectAll"));
    QVERIFY(Operator().The<QTableWidget>("tableNetworks")->selectedItems().isEmpty());
    QCOMPARE(Pages().size(), 1);
    QVERIFY(Operator().Click("btnDisconnectAll"));
    QCOMPARE(Pages().size(), 1);
}

void StartTest::formTextsBeforeTheFirstNetwork() {
    Open(Benches::Two());
    QVERIFY(Operator().Text("lblReadburstCapable").startsWith(QStringLiteral("Read Burst Capable:")));
    const QVector<std::pair<const char*, QString>> captions = {{"btnConnectAll", QStringLiteral("Connect All")},
                                                               {"btnDisconnectAll", QStringLiteral("Disconnect All")},
                                                               {"btnMoveUp", QStringLiteral("Move Up")},
                                                               {"btnMoveDown", QStringLiteral("Move Down")},
                                                               {"btnHotswap", QStringLiteral("Find Hot Swapped")},
                                                               {"btnPing", QStringLiteral("Ping")},
                                                               {"btnNotify", QStringLiteral("Notify/AddModule")},
                                                               {"btnStopNotify", QStringLiteral("Stop Notify")},
                                                               {"btnAddModule", QStringLiteral("Add Module")},
                                                               {"btnDeleteModule", QStringLiteral("Delete Module")},
                                                               {"btnClearModules", QStringLiteral("Clear Modules")},
                                                               {"btnClearTcons", QStringLiteral("Clear Tcons")},
                                                               {"btnSetSpeed", QStringLiteral("Set")},
                                                               {"btnLoadXML", QStringLiteral("Load")},
                                                               {"btnSaveXML", QStringLiteral("Save")}};
    for (const auto& [name, caption] : captions) {
        QCOMPARE(Operator().Text(name), caption);
    }
    QVERIFY(!Operator().IsEnabled("btnStopNotify"));
}

void StartTest::textsOutsideAscii() {
    Open(QStringLiteral("<bench><network name=\"Prüfstand\" controller=\"µ1\" "
                        "description=\"Welle &lt;b&gt;Ø 20&lt;/b&gt;\"/></bench>"));
    const auto* table = Operator().The<QTableWidget>("tableNetworks");
    QCOMPARE(table->item(0, 0)->text(), QStringLiteral("Prüfstand"));
    QCOMPARE(table->item(0, 1)->text(), QStringLiteral("µ1"));
    QCOMPARE(table->item(0, 2)->text(), QStringLiteral("Welle <b>Ø 20</b>"));
    // A tool tip takes what looks like markup for markup.
    const QString toolTip = table->item(0, 2)->toolTip();
    QTextDocument shown;
    if (Qt::mightBeRichText(toolTip)) {
        shown.setHtml(toolTip);
    } else {
        shown.setPlainText(toolTip);
    }
    QCOMPARE(shown.toPlainText(), QStringLiteral("Welle <b>Ø 20</b>"));
}

void StartTest::libraryThatFailsAtStart_data() {
    QTest::addColumn<QString>("operation");
    QTest::addColumn<int>("rows");
    QTest::newRow("part number") << QStringLiteral("LibraryPartNumber") << 2;
    QTest::newRow("build date") << QStringLiteral("LibraryBuildDate") << 2;
    QTest::newRow("looking for networks") << QStringLiteral("FindNetworks") << 0;
    QTest::newRow("a network") << QStringLiteral("ControllerID") << 0;
}

void StartTest::libraryThatFailsAtStart() {
    QFETCH(QString, operation);
    QFETCH(int, rows);
    const QString bench = Benches::Two().replace(
        QStringLiteral("</bench>"),
        QStringLiteral("<fault operation=\"%1\" text=\"It &lt;b&gt;fails&lt;/b&gt; – früh.\"/></bench>")
            .arg(operation));
    boxes.Tolerate(true);
    Open(bench);
    QVERIFY(WaitUntil([&] { return Window().isVisible() && QApplication::activeModalWidget() == nullptr; }));
    QTRY_COMPARE(boxes.Count(), 1);
    const SeenBox box = boxes.Take().constFirst();
    QCOMPARE(box.title, QStringLiteral("Tavik Library Test"));
    QCOMPARE(box.text, QStringLiteral("It <b>fails</b> – früh."));
    QCOMPARE(box.parent, &Window());
    QVERIFY(!box.markup);
    QCOMPARE(Operator().The<QTableWidget>("tableNetworks")->rowCount(), rows);
    QVERIFY(!Operator().Text("editVersion").isEmpty());
    QVERIFY(Calls::CountOf("FindNetworks") == 1);
    QVERIFY(Operator().Click("btnConnectAll"));
    QCOMPARE(Operator().The<QTableWidget>("tableNetworks")->rowCount(), 2);
}

TAVIK_TEST_MAIN(StartTest)

#include "StartTest.moc"
