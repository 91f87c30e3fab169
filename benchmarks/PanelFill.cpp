// How long the page of a module takes to show a module of each kind, apart from the library: what its calls cost at
// least (each as much as asking for an identity) is taken off. The floor makes the kind's own panels, which are made
// anew for each module, from bare controls of the same kinds, lets them find their size, as the page does to find a
// place for them, and fills in as many fields as the page has.

#include "benchmarks/BareTwin.h"
#include "benchmarks/Figure.h"
#include "benchmarks/Window.h"
#include "library/TavikModule.h"
#include "library/TavikNetwork.h"
#include "library/TavikNetworks.h"
#include "panels/common/HostWindow.h"
#include "panels/common/TypePanel.h"
#include "panels/module/TavikModuleWidget.h"
#include "simulator/control/BenchControl.h"

#include <QApplication>
#include <QLineEdit>

#include <set>
#include <string>

namespace {

constexpr int turns = 51;

class Host : public HostWindow {
public:
    void RedisplayModuleInformation() override {}

protected:
    void SetControlsEnabled(bool) override {}
};

double MillisecondsPerCall(TavikLibrary::TavikModule* module) {
    constexpr int calls = 10000;
    const double started = Benchmarks::MonotonicSeconds();
    for (int call = 0; call < calls; ++call) {
        module->Identity();
    }
    return (Benchmarks::MonotonicSeconds() - started) * 1000 / calls;
}

/// What the page of a module has to show, in bare controls.
class BarePage {
public:
    explicit BarePage(const TavikModuleWidget& page) {
        const auto panelsOfKind = page.findChildren<TypePanel*>();
        for (const TypePanel* panel : panelsOfKind) {
            twins.emplace_back(*panel);
        }
        const int fieldCount = page.findChildren<QLineEdit*>().size();
        for (int field = 0; field < fieldCount; ++field) {
            fields.push_back(new QLineEdit(&frame));
        }
        frame.resize(1100, 700);
        frame.show();
        QCoreApplication::processEvents();
    }

    double Fill(int turn) {
        const double started = Benchmarks::MonotonicSeconds();
        for (const Benchmarks::BareTwin& twin : twins) {
            QWidget* panel = twin.Make();
            panel->setParent(&frame);
            panel->resize(panel->sizeHint());
            panel->show();
            panels.push_back(panel);
        }
        for (QLineEdit* field : fields) {
            field->setText(QString::number(turn));
        }
        const double milliseconds = (Benchmarks::MonotonicSeconds() - started) * 1000;
        QCoreApplication::processEvents();
        // The page's own panels go later, too.
        qDeleteAll(panels);
        panels.clear();
        return milliseconds;
    }

private:
    QWidget frame;
    std::vector<Benchmarks::BareTwin> twins;
    std::vector<QWidget*> panels;
    std::vector<QLineEdit*> fields;
};

void Measure(Host& host, TavikModuleWidget& panel, TavikLibrary::TavikServer& server,
             TavikLibrary::TavikNetwork* network, TavikLibrary::TavikModule* module) {
    const auto fill = [&] { panel.setNetwork(&host, &server, network, module); };
    const std::uint64_t before = TavikSimulator::CallCount();
    fill();
    const auto calls = static_cast<double>(TavikSimulator::CallCount() - before);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    BarePage bare(panel);
    const double library = calls * MillisecondsPerCall(module);
    std::vector<double> filled;
    std::vector<double> floor;
    for (int turn = 0; turn < turns; ++turn) {
        const double started = Benchmarks::MonotonicSeconds();
        fill();
        filled.push_back((Benchmarks::MonotonicSeconds() - started) * 1000 - library);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        floor.push_back(bare.Fill(turn));
    }
    const std::string kind = TavikLibrary::eModuleType_ToString(module->ModuleType());
    Benchmarks::PrintFigure("Filling the panel of " + kind, Benchmarks::Median(filled), Benchmarks::Median(floor),
                            "ms");
}

} // namespace

int main(int argc, char* argv[]) {
    Benchmarks::LeaveOutOpenGl();
    const QApplication application(argc, argv);
    Benchmarks::UseQuickBench();
    Benchmarks::BareLibrary library(0);
    Host host;
    auto* panel = new TavikModuleWidget;
    host.setCentralWidget(panel);
    host.show();
    std::set<TavikLibrary::eModuleType> seen;
    TavikLibrary::TavikNetwork* network = library.Network();
    for (int index = 0; index < network->ModuleCount(); ++index) {
        TavikLibrary::TavikModule* module = network->GetModule(static_cast<unsigned int>(index));
        if (seen.insert(module->ModuleType()).second) {
            Measure(host, *panel, library.Server(), network, module);
        }
    }
    return 0;
}
