// The results dialogs with many readings: the time from the operator's click until the first readings are painted, the
// memory that they take, and a step to the next page. Beside them stand the bare cost of fetching the readings from the
// library, a table with an item for each cell, and a bare view of prepared texts.

#include "benchmarks/Figure.h"
#include "benchmarks/Window.h"
#include "library/TavikBuffered.h"
#include "library/TavikModule.h"
#include "library/TavikNetwork.h"
#include "library/TavikNetworks.h"
#include "panels/common/Text.h"
#include "panels/modes/AllResultsDialog.h"
#include "panels/modes/CurrentModuleResultsDialog.h"
#include "simulator/control/BenchControl.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QTableWidget>
#include <QVBoxLayout>

#include <functional>
#include <malloc.h>
#include <memory>

using TavikLibrary::TavikReading;

namespace {

constexpr int turns = 5;
constexpr int pageSteps = 40;
constexpr double interval = 0.004096; // seconds

/// Puts a bench with these modules in place, for the next server; returns how many they are.
int UseBench(int modules, int readings) {
    TavikSimulator::UseBenchText("<bench clock=\"manual\" latency=\"off\"><network name=\"N\" controller=\"C1\">"
                                 "<module type=\"KX\" identity=\"KX00000001\" count=\"" +
                                     std::to_string(modules) + "\" buffer-depth=\"" + std::to_string(readings) +
                                     "\"><signal motion=\"sine\" amplitude=\"0.8\" period=\"7\"/></module>"
                                     "</network></bench>",
                                 "bench of the results");
    return modules;
}

/// A collection that is over: so many modules with so many readings each.
class Collection {
public:
    Collection(int modules, int readings) : count(UseBench(modules, readings)) {
        server.Networks()->FindNetworks();
        server.Networks()->ConnectAll();
        for (int index = 0; index < modules; ++index) {
            Buffer(index)->setMode(TavikLibrary::eBufferedMode::Sync);
            Buffer(index)->setEnabled(true);
        }
        Network()->Buffered()->Start();
        TavikSimulator::AdvanceClock(readings * interval);
        Network()->Buffered()->Stop();
    }

    TavikLibrary::TavikNetwork* Network() { return server.Networks()->Network(0); }
    TavikLibrary::TavikModule* Module(int index) { return Network()->GetModule(static_cast<unsigned int>(index)); }
    TavikLibrary::ModuleBuffered* Buffer(int index) { return Module(index)->Buffered(); }
    int Count() const { return count; }

    std::vector<TavikReading> Fetch(int index) {
        TavikLibrary::ModuleBuffered* buffer = Buffer(index);
        const int length = buffer->BufferedDataLength();
        std::vector<TavikReading> readings;
        readings.reserve(static_cast<std::size_t>(length));
        for (int i = 0; i < length; ++i) {
            readings.push_back(buffer->GetBufferedItem(i));
        }
        return readings;
    }

private:
    const int count;

public:
    TavikLibrary::TavikServer server; ///< made when the bench is in place
};

/// Tells when a widget has been painted for the first time.
class PaintWatch : public QObject {
public:
    explicit PaintWatch(QWidget* widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        painted = painted || event->type() == QEvent::Paint;
        return false;
    }
    bool painted = false;
};

/// A window with a table, and the texts that the table shows.
using Window = std::unique_ptr<QWidget>;

QTableView* TableOf(const Window& window) {
    return window->findChild<QTableView*>(QStringLiteral("tableResults"));
}

void ShowUntilPainted(const Window& window) {
    PaintWatch watch(TableOf(window)->viewport());
    window->show();
    while (!watch.painted) {
        QCoreApplication::processEvents();
    }
}

struct Cost {
    double milliseconds = 0.0;
    double mebibytes = 0.0;
};

/// What it takes until a window is filled and painted, the median of several.
Cost CostOf(const std::function<Window()>& make) {
    std::vector<double> times;
    std::vector<double> sizes;
    for (int turn = 0; turn < turns; ++turn) {
        malloc_trim(0);
        const double before = Benchmarks::ResidentMebibytes();
        const double started = Benchmarks::MonotonicSeconds();
        const Window window = make();
        ShowUntilPainted(window);
        times.push_back((Benchmarks::MonotonicSeconds() - started) * 1000);
        sizes.push_back(Benchmarks::ResidentMebibytes() - before);
    }
    return {Benchmarks::Median(times), Benchmarks::Median(sizes)};
}

double MillisecondsToFetch(Collection& collection) {
    std::vector<double> times;
    for (int turn = 0; turn < turns; ++turn) {
        const double started = Benchmarks::MonotonicSeconds();
        std::vector<std::vector<TavikReading>> all;
        for (int index = 0; index < collection.Count(); ++index) {
            all.push_back(collection.Fetch(index));
        }
        times.push_back((Benchmarks::MonotonicSeconds() - started) * 1000);
    }
    return Benchmarks::Median(times);
}

/// Steps down page by page and back again; milliseconds for one.
double MillisecondsPerPage(const Window& window) {
    QTableView* table = TableOf(window);
    std::vector<double> times;
    for (int step = 0; step < 2 * pageSteps; ++step) {
        const double started = Benchmarks::MonotonicSeconds();
        table->verticalScrollBar()->triggerAction(step < pageSteps ? QAbstractSlider::SliderPageStepAdd
                                                                   : QAbstractSlider::SliderPageStepSub);
        table->viewport()->repaint();
        QCoreApplication::processEvents();
        times.push_back((Benchmarks::MonotonicSeconds() - started) * 1000);
    }
    return Benchmarks::Median(times);
}

Window AllResults(Collection& collection) {
    auto dialog = std::make_unique<AllResultsDialog>();
    dialog->fillBuffered(&collection.server, collection.Network());
    return dialog;
}

Window CurrentResults(Collection& collection) {
    auto dialog = std::make_unique<CurrentModuleResultsDialog>();
    dialog->fillBuffered(&collection.server, collection.Module(0));
    return dialog;
}

/// The texts of a reading, one for each column that it fills.
using Texts = std::function<QStringList(const TavikReading& reading)>;

/// The same window with a table that has an item for each cell.
Window WithItems(Collection& collection, const Texts& texts, const QSize& size) {
    auto window = std::make_unique<QWidget>();
    auto* table = new QTableWidget;
    table->setObjectName(QStringLiteral("tableResults"));
    (new QVBoxLayout(window.get()))->addWidget(table);
    table->setWordWrap(false);
    const int perReading = texts({}).size();
    table->setColumnCount(perReading * collection.Count());
    for (int index = 0; index < collection.Count(); ++index) {
        const std::vector<TavikReading> readings = collection.Fetch(index);
        table->setRowCount(static_cast<int>(readings.size()));
        for (int row = 0; row < table->rowCount(); ++row) {
            const QStringList cells = texts(readings[static_cast<std::size_t>(row)]);
            for (int column = 0; column < perReading; ++column) {
                table->setItem(row, index * perReading + column, new QTableWidgetItem(cells.at(column)));
            }
        }
    }
    window->resize(size);
    return window;
}

/// Shows prepared texts, over and over.
class PreparedTexts : public QAbstractTableModel {
public:
    PreparedTexts(const QAbstractItemModel& model, int rows) : all(model.rowCount()), columns(model.columnCount()) {
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < columns; ++column) {
                texts.append(model.index(row, column).data().toString());
            }
        }
        for (int column = 0; column < columns; ++column) {
            headers.append(model.headerData(column, Qt::Horizontal).toString());
        }
    }
    int rowCount(const QModelIndex& = QModelIndex()) const override { return all; }
    int columnCount(const QModelIndex& = QModelIndex()) const override { return columns; }
    QVariant data(const QModelIndex& index, int role) const override {
        return role == Qt::DisplayRole ? texts.at((index.row() * columns + index.column()) % texts.size()) : QVariant();
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        return orientation == Qt::Horizontal && role == Qt::DisplayRole
                   ? headers.at(section)
                   : QAbstractTableModel::headerData(section, orientation, role);
    }

private:
    int all;
    int columns;
    QStringList texts;
    QStringList headers;
};

/// A bare view of the cells that a window's table shows.
Window BareView(const Window& like) {
    const QTableView* table = TableOf(like);
    auto window = std::make_unique<QWidget>();
    auto* view = new QTableView;
    view->setObjectName(QStringLiteral("tableResults"));
    (new QVBoxLayout(window.get()))->addWidget(view);
    constexpr int preparedRows = 2000;
    auto* model = new PreparedTexts(*table->model(), preparedRows);
    model->setParent(view);
    view->setModel(model);
    view->setWordWrap(false);
    view->horizontalHeader()->setMinimumSectionSize(table->horizontalHeader()->minimumSectionSize());
    view->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    ShowUntilPainted(window);
    // The same cells are to be seen.
    window->resize(like->size() + table->viewport()->size() - view->viewport()->size());
    QCoreApplication::processEvents();
    window->resize(window->size() + table->viewport()->size() - view->viewport()->size());
    QCoreApplication::processEvents();
    return window;
}

void Compare(const std::string& what, Collection& collection, const std::function<Window()>& make, const Texts& texts,
             double readings) {
    const Cost dialog = CostOf(make);
    const double fetched = MillisecondsToFetch(collection);
    const QSize size = make()->size();
    const Cost items = CostOf([&] { return WithItems(collection, texts, size); });
    const auto bytes = [readings](const Cost& cost) { return cost.mebibytes * 1024 * 1024 / readings; };
    Benchmarks::PrintFigure(what + " shown, beside fetching them", dialog.milliseconds, fetched, "ms");
    Benchmarks::PrintFigure(what + " shown, beside items", dialog.milliseconds, items.milliseconds, "ms");
    Benchmarks::PrintFigure(what + ", each, beside items", bytes(dialog), bytes(items), "bytes");
    const Window window = make();
    ShowUntilPainted(window);
    const Window bare = BareView(window);
    std::vector<double> pages;
    std::vector<double> barePages;
    for (int turn = 0; turn < turns; ++turn) {
        pages.push_back(MillisecondsPerPage(window));
        barePages.push_back(MillisecondsPerPage(bare));
    }
    Benchmarks::PrintFigure(what + ", a page on", Benchmarks::Median(pages), Benchmarks::Median(barePages), "ms");
}

} // namespace

int main(int argc, char* argv[]) {
    Benchmarks::LeaveOutOpenGl();
    const QApplication application(argc, argv);
    {
        Collection many(150, 10000);
        Compare(
            "150 x 10,000 readings", many, [&] { return AllResults(many); },
            [](const TavikReading& reading) { return QStringList{FormatUnits(reading.units)}; }, 1.5e6);
    }
    Collection one(1, 1000000);
    Compare(
        "1 x 1,000,000 readings", one, [&] { return CurrentResults(one); },
        [](const TavikReading& reading) {
            return QStringList{FormatUnits(reading.units), QString::number(reading.counts),
                               QStringLiteral("No error.")};
        },
        1e6);
    return 0;
}
