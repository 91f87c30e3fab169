#include "library/TavikModule.h"
#include "library/TavikModuleDigitalIO.h"
#include "library/TavikModuleKX.h"
#include "library/TavikModuleLaser.h"
#include "library/TavikNetwork.h"

#include <QtTest>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <dlfcn.h>
#include <link.h>

using namespace TavikLibrary;

// A library of another make is called by slot: the order of the virtual operations must never change.

namespace {

constexpr int NotVirtual = -1;

// The slot of an operation in its class's table, from the representation that the Itanium C++ ABI gives
// to a pointer to a member function: a pointer part and an adjustment. For a virtual one the pointer part
// holds the offset in the table plus 1, or, on ARM, the plain offset, with the mark in the adjustment.
template <class Class, class Result, class... Arguments>
int SlotOf(Result (Class::*operation)(Arguments...)) {
    struct {
        std::ptrdiff_t pointer;
        std::ptrdiff_t adjustment;
    } parts;
    static_assert(sizeof parts == sizeof operation);
    std::memcpy(&parts, &operation, sizeof parts);
#if defined(__arm__) || defined(__aarch64__)
    const bool isVirtual = (parts.adjustment & 1) != 0;
    const std::ptrdiff_t offset = parts.pointer;
#else
    const bool isVirtual = (parts.pointer & 1) != 0;
    const std::ptrdiff_t offset = parts.pointer - 1;
#endif
    return isVirtual ? static_cast<int>(offset / static_cast<std::ptrdiff_t>(sizeof(void*))) : NotVirtual;
}

} // namespace

class VirtualOrderTest : public QObject {
    Q_OBJECT

private slots:
    void TheMeasureTellsVirtualFromOther();
    void OfANetwork();
    void OfAModule();
    void OfDigitalIO();
    void OfAProbe();
    void OfALaserWithRates();
    void TablesHaveTheirLength_data();
    void TablesHaveTheirLength();
};

void VirtualOrderTest::TheMeasureTellsVirtualFromOther() {
    QCOMPARE(SlotOf(&TavikNetwork::NetworkName), NotVirtual);
    QCOMPARE(SlotOf(&TavikModule::LastResultCode), NotVirtual);
    QCOMPARE(SlotOf(&TavikModuleKX::Resolution), NotVirtual);
}

// The destructor comes first and takes two slots.
void VirtualOrderTest::OfANetwork() {
    int slot = 2;
    QCOMPARE(SlotOf(&TavikNetwork::Connect), slot++);
    QCOMPARE(SlotOf(&TavikNetwork::Disconnect), slot++);
    QCOMPARE(SlotOf(&TavikNetwork::DynamicCapable), slot++);
    QCOMPARE(SlotOf(&TavikNetwork::Dynamic2Capable), slot++);
    QCOMPARE(SlotOf(&TavikNetwork::DynamicExternalSourceCapable), slot++);
}

void VirtualOrderTest::OfAModule() {
    int slot = 2;
    QCOMPARE(SlotOf(&TavikModule::BufferedCapable), slot++);
    QCOMPARE(SlotOf(&TavikModule::BufferedMasterCapable), slot++);
    QCOMPARE(SlotOf(&TavikModule::CountsPerUnitOfMeasure), slot++);
    QCOMPARE(SlotOf(&TavikModule::DeviceType), slot++);
    QCOMPARE(SlotOf(&TavikModule::DifferenceCapable), slot++);
    QCOMPARE(SlotOf(&TavikModule::DynamicCapable), slot++);
    QCOMPARE(SlotOf(&TavikModule::Dynamic2Capable), slot++);
    QCOMPARE(SlotOf(&TavikModule::DynamicMasterCapable), slot++);
    QCOMPARE(SlotOf(&TavikModule::HotSwappable), slot++);
    QCOMPARE(SlotOf(&TavikModule::ProbeIdentity), slot++);
    QCOMPARE(SlotOf(&TavikModule::Identity), slot++);
    QCOMPARE(SlotOf(&TavikModule::Status), slot++);
    QCOMPARE(SlotOf(&TavikModule::ModuleType), slot++);
    QCOMPARE(SlotOf(&TavikModule::Offset), slot++);
    QCOMPARE(SlotOf(&TavikModule::ReadBurstCapable), slot++);
    QCOMPARE(SlotOf(&TavikModule::ReadInCounts), slot++);
    QCOMPARE(SlotOf(&TavikModule::ReadInUnits), slot++);
    QCOMPARE(SlotOf(&TavikModule::SetPosition), slot++);
    QCOMPARE(SlotOf(&TavikModule::SpeedAvailable), slot++);
    QCOMPARE(SlotOf(&TavikModule::Stroke), slot++);
    QCOMPARE(SlotOf(&TavikModule::SoftwareVersion), slot++);
    QCOMPARE(SlotOf(&TavikModule::UnitsOfMeasure), slot++);
    QCOMPARE(slot, 24);
}

// Behind the slots of the module base.
void VirtualOrderTest::OfDigitalIO() {
    int slot = 24;
    QCOMPARE(SlotOf(&TavikModuleDigitalIO::PinConfiguration), slot++);
    QCOMPARE(SlotOf(&TavikModuleDigitalIO::InputState), slot++);
    QCOMPARE(SlotOf(&TavikModuleDigitalIO::OutputState), slot++);
    QCOMPARE(SlotOf(&TavikModuleDigitalIO::setOutputState), slot++);
    QCOMPARE(SlotOf(&TavikModuleDigitalIO::ReservedInputOutput1), slot++);
    QCOMPARE(SlotOf(&TavikModuleDigitalIO::DebounceTime), slot++);
    QCOMPARE(SlotOf(&TavikModuleDigitalIO::setDebounceTime), slot++);
    QCOMPARE(SlotOf(&TavikModuleDigitalIO::ReservedInputOutput2), slot++);
    QCOMPARE(SlotOf(&TavikModuleDigitalIO::setPinConfiguration), slot++);
}

void VirtualOrderTest::OfAProbe() {
    QCOMPARE(SlotOf(&TavikModuleKX::AvailableAveragings), 24);
    QCOMPARE(SlotOf(&TavikModuleKX::AvailableResolutions), 25);
}

void VirtualOrderTest::OfALaserWithRates() {
    QCOMPARE(SlotOf(&TavikModuleBWK::AvailableMeasuringRates), 26);
}

void VirtualOrderTest::TablesHaveTheirLength_data() {
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("slotCount");
    const auto row = [](const char* name, int count) { QTest::newRow(name) << QByteArray(name) << count; };
    row("TavikNetwork", 7);
    row("TavikModule", 24);
    for (const char* name : {"TavikModuleRN", "TavikModuleQTA", "TavikModuleHVX", "TavikModuleRLK"}) {
        row(name, 24);
    }
    for (const char* name : {"TavikModuleDigitalIO", "TavikModuleSWAX", "TavikModuleSWAX2"}) {
        row(name, 33);
    }
    for (const char* name : {"TavikModuleKX", "TavikModulePNX", "TavikModuleBW", "TavikModuleBWR"}) {
        row(name, 26);
    }
    row("TavikModuleBWK", 27);
    for (const char* name : {"RLK_DeviceSettingsBase", "RLK_DeviceSettings_KRV", "RLK_DeviceSettings_KRVX"}) {
        row(name, 2);
    }
    // what() of the standard's exceptions stands behind the destructor.
    row("TavikException", 3);
}

// An operation that became virtual, or a new one, would make a table longer.
void VirtualOrderTest::TablesHaveTheirLength() {
    QFETCH(QByteArray, name);
    QFETCH(int, slotCount);
    const QByteArray symbol = "_ZTVN12TavikLibrary" + QByteArray::number(name.size()) + name + "E";
    // Nothing here calls the library, so that a linker may have left it out.
    void* library = dlopen("libTavikLibrary.so", RTLD_LAZY);
    QVERIFY2(library, dlerror());
    void* table = dlsym(library, symbol.constData());
    QVERIFY(table);
    Dl_info info;
    const ElfW(Sym)* entry = nullptr;
    QVERIFY(dladdr1(table, &info, reinterpret_cast<void**>(const_cast<ElfW(Sym)**>(&entry)), RTLD_DL_SYMENT));
    // Before the slots stand the offset to the top of the object and its type information.
    QCOMPARE(static_cast<int>(entry->st_size / sizeof(void*)) - 2, slotCount);
}

QTEST_APPLESS_MAIN(VirtualOrderTest)
#include "VirtualOrderTest.moc"
