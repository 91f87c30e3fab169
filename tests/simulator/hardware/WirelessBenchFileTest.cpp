#include "tests/simulator/hardware/Wireless.h"

using namespace TavikLibrary;

/// What a bench file may say of a wireless connection module.
class WirelessBenchFileTest : public QObject {
    Q_OBJECT

private slots:
    void BadFilesAreRefused_data();
    void BadFilesAreRefused();
    void GoodFilesAreUsed_data();
    void GoodFilesAreUsed();
    void OtherModulesHaveNoTools();
    void ChannelsThatNothingIsSaidOfAreUsual();
    void TheDefaultBenchHoldsToolsOfAllSorts();
};

void WirelessBenchFileTest::BadFilesAreRefused_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("reason");
    const QByteArray tool = "<tool identity=\"KRV0000001\" type=\"KRV\"";
    const QByteArray eight = "<tool identity=\"KRX0000001\" type=\"KRV-X\"";
    QTest::newRow("slot without a number") << QByteArray("<slot identity=\"KRV0000001\"/>") << QByteArray("number");
    QTest::newRow("slot 0") << QByteArray("<slot number=\"0\"/>") << QByteArray("outside 1 to 6");
    QTest::newRow("slot 7") << QByteArray("<slot number=\"7\"/>") << QByteArray("outside 1 to 6");
    QTest::newRow("slot twice") << QByteArray("<slot number=\"2\"/><slot number=\"2\"/>") << QByteArray("Slot 2");
    QTest::newRow("slot attribute") << QByteArray("<slot number=\"2\" nam=\"x\"/>") << QByteArray("nam");
    QTest::newRow("long name") << QByteArray("<slot number=\"2\" name=\"123456789012345678901\"/>")
                               << QByteArray("20 characters");
    QTest::newRow("tool without identity") << QByteArray("<tool type=\"KRV\"/>") << QByteArray("identity");
    QTest::newRow("tool identity") << QByteArray("<tool identity=\"KRV\" type=\"KRV\"/>")
                                   << QByteArray("10 characters");
    QTest::newRow("tool without type") << QByteArray("<tool identity=\"KRV0000001\"/>") << QByteArray("type");
    QTest::newRow("tool type") << QByteArray("<tool identity=\"KRV0000001\" type=\"KX\"/>") << QByteArray("KRV, KRV-X");
    QTest::newRow("tool twice") << tool + "/>" + tool + "/>" << QByteArray("two hand tools KRV0000001");
    QTest::newRow("tool attribute") << tool + " batery=\"1\"/>" << QByteArray("batery");
    QTest::newRow("battery") << tool + " battery=\"101\"/>" << QByteArray("outside 0 to 100");
    QTest::newRow("loss") << tool + " loss=\"2\"/>" << QByteArray("outside 0 to 1");
    QTest::newRow("config tries") << tool + " config-tries=\"often\"/>" << QByteArray("config-tries");
    QTest::newRow("config tries 0") << tool + " config-tries=\"0\"/>" << QByteArray("config-tries");
    QTest::newRow("auto power off") << tool + " auto-power-off=\"14\"/>" << QByteArray("at least 15");
    QTest::newRow("auto power off of eight") << eight + " auto-power-off=\"29\"/>" << QByteArray("at least 30");
    QTest::newRow("press every") << tool + " press-every=\"0.5\"/>" << QByteArray("press-every");
    QTest::newRow("two channels") << tool + "><channel/><channel/></tool>" << QByteArray("one <channel>");
    QTest::newRow("nine channels") << eight + ">" + QByteArray("<channel/>").repeated(9) + "</tool>"
                                   << QByteArray("8 <channel>s");
    QTest::newRow("channel attribute") << tool + "><channel lenght=\"1\"/></tool>" << QByteArray("lenght");
    QTest::newRow("channel stroke") << tool + "><channel stroke=\"0\"/></tool>" << QByteArray("stroke");
    QTest::newRow("two signals") << tool + "><channel><signal/><signal/></channel></tool>"
                                 << QByteArray("one <signal>");
    QTest::newRow("signal") << tool + "><channel><signal noise=\"-1\"/></channel></tool>" << QByteArray("noise");
    QTest::newRow("element") << QByteArray("<tol/>") << QByteArray("<tol>");
}

void WirelessBenchFileTest::BadFilesAreRefused() {
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, reason);
    const std::string text =
        "<bench>\n<network name=\"N\" controller=\"C\">\n<module type=\"RLK\" identity=\"RLK0000001\">\n" +
        content.toStdString() + "</module></network></bench>";
    const Refusal refusal = RefusalOf([&] { Use(text); });
    QVERIFY(refusal.refused);
    QVERIFY2(refusal.Names("test bench, line 4: "), refusal.text.c_str());
    QVERIFY2(refusal.Names(reason.toStdString()), refusal.text.c_str());
}

void WirelessBenchFileTest::GoodFilesAreUsed_data() {
    QTest::addColumn<QByteArray>("attributes");
    for (const char* attributes :
         {"", "battery=\"0\"", "config-tries=\"7\"", "config-tries=\"never\"", "auto-power-off=\"0\"",
          "auto-power-off=\"15\"", "loss=\"1\" repeat=\"1\" jitter=\"5\" delay=\"0\"", "press-every=\"1\"",
          "firmware=\"x\" identify=\"\"", "distance=\"0\" battery-hours=\"0.5\" connect-time=\"3\""}) {
        QTest::newRow(attributes) << QByteArray(attributes);
    }
}

void WirelessBenchFileTest::GoodFilesAreUsed() {
    QFETCH(QByteArray, attributes);
    WirelessServer server(SingleChannel(attributes.toStdString()));
    QCOMPARE(server.Device()->TavikIdentity(), std::string("KRV0000001"));
    QCOMPARE(server.Device()->DeviceName(), std::string("Gauge"));
    QCOMPARE(server.Device()->DeviceType(), eRLK_DeviceType::KRV);
}

void WirelessBenchFileTest::OtherModulesHaveNoTools() {
    const Refusal refusal = RefusalOf([] {
        Use(OneNetwork("<module type=\"KX\" identity=\"KX00000001\">" + Tool("KRV0000001", "KRV") + "</module>"));
    });
    QVERIFY(refusal.Names("<tool>"));
    const Refusal attribute =
        RefusalOf([] { Use(OneNetwork("<module type=\"KX\" identity=\"KX00000001\" restart-time=\"1\"/>")); });
    QVERIFY(attribute.Names("restart-time"));
}

void WirelessBenchFileTest::ChannelsThatNothingIsSaidOfAreUsual() {
    WirelessServer server(EightChannels("", "<channel id=\"MYGAUGE\" stroke=\"2\" offset=\"-1\"/>"));
    QCOMPARE(server.Device()->GetChannelData(0), std::string("MYGAUGE"));
    TavikChannelReadings readings = server.Device()->ReadAllChannels();
    QCOMPARE(readings.ReadingCount(), 8);
    QCOMPARE(readings[0].stroke, 2.0);
    QVERIFY(std::fabs(readings[0].reading) < 0.01);
    std::set<std::string> ids;
    std::set<double> values;
    for (int channel = 0; channel < 8; ++channel) {
        ids.insert(readings[channel].id);
        values.insert(readings[channel].reading);
        QVERIFY(channel == 0 || std::fabs(readings[channel].reading - 6.0) < 0.01);
    }
    QCOMPARE(ids.size(), std::size_t(8));
    // Each has noise of its own.
    QVERIFY(values.size() > 2);
}

void WirelessBenchFileTest::TheDefaultBenchHoldsToolsOfAllSorts() {
    TavikSimulator::UseDefaultBench();
    TavikSimulator::UseManualClock();
    TavikSimulator::SetLatency(false);
    ConnectedServer server;
    TavikModuleRLK* wireless = nullptr;
    for (int index = 0; index < server.Network()->ModuleCount(); ++index) {
        auto* module = dynamic_cast<TavikModuleRLK*>(server.Network()->GetModule(static_cast<unsigned int>(index)));
        wireless = module != nullptr ? module : wireless;
    }
    if (wireless == nullptr) {
        QFAIL("There is no wireless module.");
    }
    std::set<eRLK_DeviceType> types;
    std::set<eRLK_DeviceStatus> states;
    for (int slot = 0; slot < 6; ++slot) {
        types.insert(wireless->Devices()->GetDevice(slot)->DeviceType());
        states.insert(wireless->Devices()->GetDevice(slot)->ConnectionStatus());
    }
    QCOMPARE(types, std::set<eRLK_DeviceType>({eRLK_DeviceType::None, eRLK_DeviceType::KRV, eRLK_DeviceType::KRVX}));
    QVERIFY(states.count(eRLK_DeviceStatus::Connected) && states.count(eRLK_DeviceStatus::OutOfRange) &&
            states.count(eRLK_DeviceStatus::Empty));
    wireless->Devices()->GetDevice(5)->setTavikIdentity("KRV1000006");
    wireless->Restart();
    QCOMPARE(wireless->Devices()->GetDevice(5)->DeviceType(), eRLK_DeviceType::KRV);
}

QTEST_APPLESS_MAIN(WirelessBenchFileTest)

#include "WirelessBenchFileTest.moc"
