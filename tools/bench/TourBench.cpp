#include "tools/bench/TourBench.h"

#include "simulator/control/BenchControl.h"

// The acquisition modes have benches of their own: their pages ask again whenever the window's controls come back.
TourBench SmallTourBench() {
    TourBench bench;
    bench.text = QStringLiteral(R"xml(
<bench>
  <network name="Alpha" controller="C1" description="Simulated alpha" connected-controller="C1-R7" capabilities="">
    <module type="RN" identity="RN00000001" capabilities=""/>
    <module type="KX" identity="KX00000002" probe-identity="PP00000002" capabilities=""/>
    <module type="PNX" identity="PNX0000006" capabilities=""/>
    <module type="KX" identity="KX00000004" place="wire" capabilities=""/>
    <module type="HVX" identity="HVX0000005" announces="1" capabilities=""/>
    <event what="module-replaced" at="0" module="KX00000002" by="KX00000003"/>
  </network>
  <network name="Beta" controller="C2" capabilities=""/>
</bench>)xml");
    bench.modules =
        QStringList{QStringLiteral("RN00000001"), QStringLiteral("KX00000002"), QStringLiteral("PNX0000006")};
    bench.replaced = QStringLiteral("KX00000002");
    bench.replacement = QStringLiteral("KX00000003");
    bench.announced = QStringList{QStringLiteral("HVX0000005")};
    bench.wired = QStringLiteral("KX00000004");
    bench.probe = bench.replacement;
    bench.visited = QStringList{QStringLiteral("RN00000001")};
    bench.airGauge = QStringLiteral("PNX0000006");
    bench.networkName = QStringLiteral("Alpha");
    bench.speed = QStringLiteral("Low");
    return bench;
}

TourBench PanelTourBench(const QString& kind) {
    const QString identity = kind.leftJustified(9, QLatin1Char('0')) + QLatin1Char('1');
    const QString change =
        kind == QLatin1String("HVX") ? QStringLiteral("<change software-version=\"1.22\"/>") : QString();
    TourBench bench;
    bench.text = QStringLiteral("<bench><network name=\"Alpha\" controller=\"C1\" capabilities=\"\">"
                                "<module type=\"%1\" identity=\"%2\" capabilities=\"\">%3</module></network></bench>")
                     .arg(kind, identity, change);
    bench.otherNetwork = 0;
    bench.visited = QStringList{identity};
    return bench;
}

TourBench WirelessTourBench() {
    TourBench bench;
    bench.text = QStringLiteral(R"xml(
<bench>
  <network name="Alpha" controller="C1" capabilities="">
    <module type="RLK" identity="RLK0000001" capabilities="">
      <slot number="1" identity="KRV0000001" name="Bore gauge"/>
      <slot number="2" identity="KRX0000002"/>
      <tool identity="KRV0000001" type="KRV"/>
      <tool identity="KRX0000002" type="KRV-X"/>
      <tool identity="KRV0000003" type="KRV"/>
    </module>
  </network>
</bench>)xml");
    bench.otherNetwork = 0;
    bench.wireless = QStringLiteral("RLK0000001");
    bench.freeTool = QStringLiteral("KRV0000003");
    return bench;
}

namespace {

/// One network that can do nothing but one mode, so that no other page asks on the way.
TourBench BenchOfOneMode(const char* network) {
    TourBench bench;
    bench.text = QStringLiteral("<bench>") + QString::fromUtf8(network) + QStringLiteral("</bench>");
    bench.otherNetwork = 0;
    bench.networkName = QStringLiteral("Alpha");
    return bench;
}

} // namespace

TourBench DifferenceTourBench() {
    TourBench bench = BenchOfOneMode(R"xml(
  <network name="Alpha" controller="C1" capabilities="readburst">
    <module type="KX" identity="KX00000001" capabilities="difference readburst"/>
    <module type="RN" identity="RN00000002" capabilities="difference readburst"/>
  </network>)xml");
    bench.probe = QStringLiteral("KX00000001");
    bench.visited = QStringList{QStringLiteral("RN00000002")};
    return bench;
}

TourBench ReferenceMarkTourBench() {
    TourBench bench = BenchOfOneMode(R"xml(
  <network name="Alpha" controller="C1" capabilities="buffered-external">
    <module type="RN" identity="RN00000001" mark="4.5" capabilities="dynamic2"/>
  </network>)xml");
    bench.linearEncoder = QStringLiteral("RN00000001");
    return bench;
}

TourBench BufferedTourBench() {
    TourBench bench = BenchOfOneMode(R"xml(
  <network name="Alpha" controller="C1" capabilities="buffered buffered-external">
    <module type="KX" identity="KX00000002" capabilities="buffered"/>
    <module type="QTA" identity="QTA0000003" capabilities="buffered buffered-master"/>
  </network>)xml");
    bench.buffered = QStringLiteral("KX00000002");
    return bench;
}

TourBench DynamicTourBench() {
    TourBench bench = BenchOfOneMode(R"xml(
  <network name="Alpha" controller="C1" capabilities="dynamic dynamic2 dynamic-external">
    <module type="KX" identity="KX00000002" capabilities="dynamic dynamic2"/>
    <module type="QTA" identity="QTA0000003" capabilities="dynamic dynamic2 dynamic-master"/>
  </network>)xml");
    bench.collected = QStringLiteral("KX00000002");
    bench.master = QStringLiteral("QTA0000003");
    bench.syncs = 2;
    return bench;
}

TourBench DefaultTourBench() {
    TourBench bench;
    bench.text = QString::fromStdString(TavikSimulator::DefaultBenchText());
    bench.someNetworkDead = true;
    bench.network = 4;
    bench.otherNetwork = 1;
    bench.modules = QStringList{QStringLiteral("KX02000601"), QStringLiteral("KX02000602"),
                                QStringLiteral("KX02000603"), QStringLiteral("SWAX200604")};
    bench.replaced = QStringLiteral("KX02000602");
    bench.replacement = QStringLiteral("KX02000699");
    bench.announced =
        QStringList{QStringLiteral("KX02000611"), QStringLiteral("KX05000612"), QStringLiteral("RN12000613")};
    bench.wired = QStringLiteral("KX10000614");
    bench.speed = QStringLiteral("High");
    bench.probe = QStringLiteral("KX02000101");
    bench.visited =
        QStringList{QStringLiteral("KX05000102"), QStringLiteral("KX10000103"), QStringLiteral("RN12000104"),
                    QStringLiteral("QTA0000105"), QStringLiteral("SWAX000106"), QStringLiteral("SWAX200107"),
                    QStringLiteral("BW10000108"), QStringLiteral("BWR0000109"), QStringLiteral("BWK0000110"),
                    QStringLiteral("HVX0000111"), QStringLiteral("PNX0000114")};
    bench.airGauge = QStringLiteral("PNX0000113");
    bench.networkName = QStringLiteral("Mixed");
    bench.linearEncoder = QStringLiteral("RN12000104");
    bench.buffered = bench.probe;
    bench.collected = bench.probe;
    bench.master = QStringLiteral("QTA0000105");
    bench.syncs = 4000;
    bench.wireless = QStringLiteral("RLK0000112");
    bench.freeTool = QStringLiteral("KRV1000006");
    return bench;
}
