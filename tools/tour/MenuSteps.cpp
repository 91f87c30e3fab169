#include "tools/tour/Steps.h"

namespace {

const QString decoderTitle = QStringLiteral("Tavik Error Decoder");

/// The last code that the library has a sentence for stands for all of them.
constexpr int notAvailableCode = 255;

void DecodeError(Tour& tour) {
    BoxReply code;
    code.typed = QString::number(notAvailableCode);
    code.meanwhile = [&tour](QDialog& box) { tour.ReportDialog(box, QStringLiteral("error-code")); };
    tour.boxes.ExpectNumberInput(&tour.Window(), decoderTitle, QStringLiteral("Please enter the error code."), code);
    tour.boxes.Tolerate(true);
    tour.Operator().Trigger("menuHelp", "action_Decode_Error");
}

void ShowAbout(Tour& tour) {
    BoxReply reply;
    reply.accept = false;
    reply.meanwhile = [&tour](QDialog& box) {
        tour.ReportDialog(box, QStringLiteral("about"));
        WidgetDriver(box).Click("btnClose");
    };
    tour.boxes.ExpectDialog(&tour.Window(), QStringLiteral("About Tavik Library Test"), reply);
    tour.Operator().Trigger("menuHelp", "action_About");
}

} // namespace

void AddMenuSteps(std::vector<TourStep>& steps, const TourBench& bench) {
    const Location anywhere{Location::Nowhere, bench.network, QString()};
    const Location network{Location::Network, bench.network, QString()};
    const auto stillThere = [](Tour& tour) { return tour.Window().isVisible(); };
    steps.push_back({QStringLiteral("error-decoded"), anywhere, DecodeError, stillThere, LastResortOnly});
    steps.push_back({QStringLiteral("about-closed"), anywhere, ShowAbout, stillThere, LastResortOnly});
    if (bench.shown == bench.network) {
        steps.push_back(
            {QStringLiteral("network-again"), network, [](Tour& tour) { tour.Operator().SelectPage("tabNetwork"); },
             [](Tour& tour) { return tour.Operator().Value("tabNetwork", "visible").toBool(); }, LastResortOnly});
        steps.push_back({QStringLiteral("modules-cleared"), network,
                         [](Tour& tour) { tour.Operator().Click("btnClearModules"); },
                         [](Tour& tour) { return tour.Rows("listModules").isEmpty(); },
                         Only("ClearModules", QStringLiteral("Clear Modules"), QStringLiteral("Error: "))});
    }
    TourStep exit{QStringLiteral("closed"), anywhere,
                  [](Tour& tour) { tour.Operator().Trigger("menuFile", "actionE_xit"); },
                  [](Tour& tour) { return !tour.Window().isVisible(); }, Swallowed};
    exit.closes = true;
    steps.push_back(exit);
}
