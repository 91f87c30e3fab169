#include "tools/bench/Benches.h"

namespace {

const char* const alpha = R"xml(
  <network name="Alpha" controller="C1" description="Simulated alpha" type="usb"
           connected-controller="C1-R7" connected-description="Simulated alpha, R7">
    <module type="KX" identity="KX00000001" probe-identity="PP00000001"/>
    <module type="KX" identity="KX00000002" stroke="5" offset="-2.5" resolution="16" averaging="4"/>
    <module type="RN" identity="RN00000003"/>
    <module type="KX" identity="KX00000004" place="wire"/>
    <module type="KX" identity="KX00000005" announces="1"/>
  </network>)xml";

const char* const beta = R"xml(
  <network name="Beta" controller="C2" description="Simulated beta" type="ethernet"
           capabilities="" speeds="low medium high">
    <module type="HVX" identity="HVX0000001" capabilities=""/>
  </network>)xml";

const char* const dead = R"xml(
  <network name="Dead" controller="C0" description="Simulated dead" type="serial" connects="no"/>)xml";

QString Bench(const QString& networks) {
    return QStringLiteral("<bench>%1</bench>").arg(networks);
}

} // namespace

QString Benches::Two() {
    return Bench(QLatin1String(alpha) + QLatin1String(beta));
}

QString Benches::FirstDead() {
    return Bench(QLatin1String(dead) + QLatin1String(alpha) + QLatin1String(beta));
}

QString Benches::None() {
    return Bench(QString());
}

QString Benches::With(const QString& modules, const QString& networkAttributes) {
    return Bench(
        QStringLiteral("<network name=\"Alpha\" controller=\"C1\" description=\"Simulated alpha\" %1>%2</network>")
            .arg(networkAttributes, modules));
}
