#include "panels/types/ModuleSWAX2Widget.h"
#include "panels/types/ModuleSWAXWidget.h"
#include "tests/panels/types/PanelTest.h"

#include <QComboBox>

/// The debounce time on the panels of both generations of digital I/O modules. The fourth entry stands for the
/// next longer time than its text says, and so on; the last one stands for none.
class DebounceTest : public PanelTest {
    Q_OBJECT

private slots:
    void theEntries_data() { Kinds(); }
    void theEntries();
    void timesAreShown_data();
    void timesAreShown();
    void timeWithoutAnEntrySelectsNone_data() { Kinds(); }
    void timeWithoutAnEntrySelectsNone();
    void timesAreSent_data();
    void timesAreSent();
    void afterSendingTheEntryStays_data() { Kinds(); }
    void afterSendingTheEntryStays();
    void failureShowsABox_data() { Kinds(); }
    void failureShowsABox();
    void failedReadLeavesTheEntry_data() { Kinds(); }
    void failedReadLeavesTheEntry();

private:
    static void Kinds();
    QComboBox* Times() { return Operator().The<QComboBox>("cbDebouncetime"); }
    QWidget* Panel() { return ThePanel<TypePanel>(); }
};

void DebounceTest::Kinds() {
    QTest::addColumn<QByteArray>("type");
    QTest::newRow("8 pins") << QByteArray("SWAX");
    QTest::newRow("10 pins") << QByteArray("SWAX2");
}

void DebounceTest::theEntries() {
    QFETCH(QByteArray, type);
    OpenPanel(type.constData());
    QStringList entries;
    for (int index = 0; index < Times()->count(); ++index) {
        entries.append(Times()->itemText(index));
    }
    QCOMPARE(entries, QStringLiteral("0,5,10,15,25,50").split(QLatin1Char(',')));
    QCOMPARE(Operator().Text("lblDebounceUnit"), QStringLiteral("ms"));
    QCOMPARE(Operator().Text("btnSetDebounce"), QStringLiteral("Set"));
}

void DebounceTest::timesAreShown_data() {
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<int>("milliseconds");
    QTest::addColumn<int>("index");
    for (const char* type : {"SWAX", "SWAX2"}) {
        for (const auto& [milliseconds, index] :
             {std::pair(0, 0), std::pair(5, 1), std::pair(10, 2), std::pair(25, 3), std::pair(50, 4), std::pair(15, -1),
              std::pair(7, -1), std::pair(-1, -1), std::pair(100, -1)}) {
            QTest::addRow("%s %d ms", type, milliseconds) << QByteArray(type) << milliseconds << index;
        }
    }
}

void DebounceTest::timesAreShown() {
    QFETCH(QByteArray, type);
    QFETCH(int, milliseconds);
    QFETCH(int, index);
    OpenPanel(type.constData());
    AnswerFrom(1, "DebounceTime", milliseconds);
    for (int before = 0; before < Times()->count(); ++before) {
        Times()->setCurrentIndex(before);
        QVERIFY(Operator().Click("btnRead"));
        QCOMPARE(Times()->currentIndex(), index < 0 ? before : index);
    }
}

void DebounceTest::timeWithoutAnEntrySelectsNone() {
    QFETCH(QByteArray, type);
    OpenNetwork(BenchWith(type.constData(), QString(), QString()));
    AnswerFrom(1, "DebounceTime", 15);
    QVERIFY(Operator().SelectRow("listModules", 0));
    QVERIFY(Operator().SelectPage("tabModule"));
    QCOMPARE(Times()->currentIndex(), -1);
    ModuleCalls();
    QVERIFY(Operator().Click("btnSetDebounce"));
    COMPARE_CALLS(ModuleCalls(), {});
}

void DebounceTest::timesAreSent_data() {
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("calls");
    for (const char* type : {"SWAX", "SWAX2"}) {
        int index = 0;
        for (const int milliseconds : {0, 5, 10, 25, 50}) {
            QTest::addRow("%s entry %d", type, index)
                << QByteArray(type) << index << QStringList{QStringLiteral("setDebounceTime(%1)").arg(milliseconds)};
            ++index;
        }
        QTest::addRow("%s entry 5", type) << QByteArray(type) << 5 << QStringList();
        QTest::addRow("%s no entry", type) << QByteArray(type) << -1 << QStringList();
    }
}

void DebounceTest::timesAreSent() {
    QFETCH(QByteArray, type);
    QFETCH(int, index);
    QFETCH(QStringList, calls);
    OpenPanel(type.constData());
    Times()->setCurrentIndex(index);
    QVERIFY(Operator().Click("btnSetDebounce"));
    COMPARE_CALLS(ModuleCalls(), calls);
    QCOMPARE(boxes.Count(), 0);
}

void DebounceTest::afterSendingTheEntryStays() {
    QFETCH(QByteArray, type);
    OpenPanel(type.constData());
    for (int index = 5; index >= 0; --index) {
        Times()->setCurrentIndex(index);
        QVERIFY(Operator().Click("btnSetDebounce"));
        QCOMPARE(Times()->currentIndex(), index);
        // What was sent last is shown in the same place again; the last entry gives way to it.
        QVERIFY(Operator().Click("btnRead"));
        QCOMPARE(Times()->currentIndex(), index == 5 ? 0 : index);
    }
}

void DebounceTest::failureShowsABox() {
    QFETCH(QByteArray, type);
    OpenPanel(type.constData());
    Times()->setCurrentIndex(2);
    FailNext("setDebounceTime", ForeignText());
    boxes.ExpectError(Panel(), QString::fromLatin1(type) + QStringLiteral(" Module"), ForeignText());
    QVERIFY(Operator().Click("btnSetDebounce"));
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(Times()->currentIndex(), 2);
}

void DebounceTest::failedReadLeavesTheEntry() {
    QFETCH(QByteArray, type);
    OpenPanel(type.constData());
    Times()->setCurrentIndex(2);
    FailNext("DebounceTime", ForeignText());
    boxes.ExpectError(Panel(), QString::fromLatin1(type) + QStringLiteral(" Module"), ForeignText());
    QVERIFY(Operator().Click("btnRead"));
    QCOMPARE(boxes.Count(), 1);
    QCOMPARE(Times()->currentIndex(), 2);
}

TAVIK_TEST_MAIN(DebounceTest)

#include "DebounceTest.moc"
