#include "app/NetworksTable.h"

#include "library/TavikNetworks.h"
#include "library/TavikServer.h"
#include "panels/common/Inputs.h"
#include "tests/support/ProgramFixture.h"
#include "tools/bench/Benches.h"

#include <QPushButton>

#include <algorithm>
#include <limits>
#include <malloc.h>

namespace {

double HeapInUse() {
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return static_cast<double>(mallinfo2().uordblks);
}

} // namespace

/// The rows of the networks table.
class NetworksTableTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void rowsAreTakenOffWithTheirButtons();
    void fillingAnewHoldsNothing();
};

void NetworksTableTest::rowsAreTakenOffWithTheirButtons() {
    Open(Benches::Two());
    auto* table = Operator().The<ChoiceTable>("tableNetworks");
    QCOMPARE(table->rowCount(), 2);
    QCOMPARE(table->findChildren<QPushButton*>().size(), 2);
    ClearNetworkRows(table);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(table->rowCount(), 0);
    QCOMPARE(table->findChildren<QPushButton*>().size(), 0);
}

/// A table that is filled on every connecting must not remember the buttons it has had.
void NetworksTableTest::fillingAnewHoldsNothing() {
    TavikSimulator::UseStillBenchText(Benches::Two().toStdString(), "two networks");
    TavikLibrary::TavikServer server;
    TavikSimulator::StopJournal();
    server.Networks()->FindNetworks();
    TavikLibrary::TavikNetwork* network = NetworkOfRow(server.Networks(), 0);
    ChoiceTable table;
    table.setColumnCount(6);
    const auto refill = [&](int times) {
        for (int time = 0; time < times; ++time) {
            ClearNetworkRows(&table);
            AppendNetworkRow(&table, network);
        }
    };
    constexpr int times = 3000;
    refill(times);
    // A container that doubles now and then does not do so every time.
    double least = std::numeric_limits<double>::max();
    for (int again = 0; again < 4; ++again) {
        const double before = HeapInUse();
        refill(times);
        least = std::min(least, HeapInUse() - before);
    }
    QVERIFY2(least < times * static_cast<double>(sizeof(void*)), qPrintable(QStringLiteral("%1 bytes").arg(least)));
}

TAVIK_TEST_MAIN(NetworksTableTest)

#include "NetworksTableTest.moc"
