#include "tools/bench/MonkeyBench.h"

#include "tools/bench/TourBench.h"

#include <QXmlStreamReader>

#include <stdexcept>

namespace {

/// One module of each kind, everything switched on, and what makes an operator's day: networks that do not connect,
/// modules that announce themselves, stand on the wire or were exchanged.
const char* const everyKind = R"xml(
<bench seed="7">
  <network name="Alpha" controller="C1" description="Simulated alpha" connected-controller="C1-R7">
    <module type="KX" identity="KX00000001" probe-identity="PP00000001">
      <signal motion="sine" amplitude="0.6" period="8" noise="0.0001"/>
    </module>
    <module type="KX" identity="KX00000002" stroke="5" offset="-2.5" resolution="16" averaging="4"/>
    <module type="RN" identity="RN00000003" mark="4.5" hand="3"><signal motion="triangle" amplitude="5"/></module>
    <module type="QTA" identity="QTA0000004" mark="0" mark-every="2500">
      <signal base="0" motion="triangle" amplitude="4000" period="20"/>
    </module>
    <module type="SWAX" identity="SWAX000005" outputs="0x03" inputs="0x40"/>
    <module type="SWAX2" identity="SWAX200006" inputs="0x100"/>
    <module type="BW" identity="BW00000007"/>
    <module type="BWR" identity="BWR0000008" filter="200Hz" level-cut="10" level-cut-max="500"/>
    <module type="BWK" identity="BWK0000009" rates="100Hz 500Hz 1kHz 2kHz" rate="500Hz"/>
    <module type="HVX" identity="HVX0000010" switch-every="4"><change at="30" software-version="1.22"/></module>
    <module type="PNX" identity="PNX0000011"/>
    <module type="PNX" identity="PNX0000012" display="no"/>
    <module type="RLK" identity="RLK0000013">
      <slot number="1" identity="KRV0000001" name="Bore gauge"/>
      <slot number="2" identity="KRX0000002"/>
      <tool identity="KRV0000001" type="KRV" press-every="20"/>
      <tool identity="KRX0000002" type="KRV-X"/>
      <tool identity="KRV0000003" type="KRV"/>
    </module>
    <module type="KX" identity="KX00000014" place="wire"/>
    <module type="KX" identity="KX00000015" announces="1"/>
    <event what="module-replaced" at="0" module="KX00000002" by="KX00000016"/>
  </network>
  <network name="Beta" controller="C2" description="Simulated beta" type="ethernet" capabilities=""
           speeds="low medium high">
    <module type="HVX" identity="HVX0000021" capabilities=""/>
  </network>
  <network name="Dead" controller="C3" description="Simulated dead" type="serial" connects="no"/>
</bench>)xml";

/// Probes and masters only, so that the acquisition modes are met more often than on a bench of every kind.
const char* const collecting = R"xml(
<bench seed="8">
  <network name="Alpha" controller="C1">
    <module type="KX" identity="KX00000001"><signal motion="sine" amplitude="0.6" period="8"/></module>
    <module type="RN" identity="RN00000002" mark="4.5"/>
    <module type="QTA" identity="QTA0000003" mark="0" mark-every="2500">
      <signal base="0" motion="triangle" amplitude="4000" period="20"/>
    </module>
    <module type="SWAX2" identity="SWAX200004" inputs="0x100"/>
  </network>
  <network name="Beta" controller="C2">
    <module type="KX" identity="KX00000005"/>
    <module type="KX" identity="KX00000006"/>
  </network>
</bench>)xml";

MonkeyBench Named(const char* name, const QString& text) {
    MonkeyBench bench;
    bench.name = QString::fromLatin1(name);
    bench.text = text;
    QXmlStreamReader reader(text);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        const auto attribute = [&reader](const char* wanted) {
            return reader.attributes().value(QLatin1String(wanted)).toString();
        };
        if (reader.name() == QLatin1String("network")) {
            bench.networks.append(attribute("name"));
        } else if (reader.name() == QLatin1String("module")) {
            bench.modules.push_back({bench.networks.last(), attribute("identity")});
            if (attribute("type") == QLatin1String("PNX")) {
                bench.airGauges.push_back(bench.modules.back());
            }
        } else if (attribute("what") == QLatin1String("module-replaced")) {
            bench.replaced.append(attribute("module"));
        } else if (reader.name() == QLatin1String("tool")) {
            bench.tools.append(attribute("identity"));
        }
    }
    return bench;
}

} // namespace

const std::vector<MonkeyBench>& MonkeyBenches() {
    static const std::vector<MonkeyBench> benches = {
        Named("every-kind", QString::fromUtf8(everyKind)),  Named("small", SmallTourBench().text),
        Named("collecting", QString::fromUtf8(collecting)), Named("wireless", WirelessTourBench().text),
        Named("difference", DifferenceTourBench().text),    Named("buffered", BufferedTourBench().text),
        Named("dynamic", DynamicTourBench().text),          Named("reference-mark", ReferenceMarkTourBench().text),
        Named("none", QStringLiteral("<bench/>")),
    };
    return benches;
}

const MonkeyBench& MonkeyBenchNamed(const QString& name) {
    for (const MonkeyBench& bench : MonkeyBenches()) {
        if (bench.name == name) {
            return bench;
        }
    }
    throw std::runtime_error("There is no bench " + name.toStdString());
}
