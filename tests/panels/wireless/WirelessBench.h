#pragma once

#include "tests/support/Calls.h"
#include "tools/bench/Benches.h"

#include <QString>
#include <QStringList>

// Benches with a wireless connection module, RLK0000001, and hand tools around it.
namespace WirelessBench {

/// A slot of the module; 1 to 6.
inline QString Slot(int number, const QString& identity, const QString& name = QString()) {
    return QStringLiteral("<slot number=\"%1\" identity=\"%2\" name=\"%3\"/>")
        .arg(QString::number(number), identity, name);
}

/// A hand tool, of the type "KRV" or "KRV-X".
inline QString Tool(const QString& identity, const QString& type, const QString& attributes = QString(),
                    const QString& channels = QString()) {
    return QStringLiteral("<tool identity=\"%1\" type=\"%2\" %3>%4</tool>").arg(identity, type, attributes, channels);
}

/// A bench whose first module is the wireless one, with a probe behind it.
inline QString With(const QString& slotsAndTools, const QString& attributes = QString()) {
    return Benches::With(
        QStringLiteral("<module type=\"RLK\" identity=\"RLK0000001\" %1>%2</module>").arg(attributes, slotsAndTools) +
        QStringLiteral("<module type=\"KX\" identity=\"KX00000002\"/>"));
}

/// Slot 1 holds a single-channel tool, slot 2 one with eight channels, slot 3 waits for a tool that is not
/// there; the others are empty. KRV0000004 is around but in no slot.
inline QString Usual(const QString& attributes = QString()) {
    return With(Slot(1, QStringLiteral("KRV0000001"), QStringLiteral("Bore gauge")) +
                    Slot(2, QStringLiteral("KRX0000002"), QString::fromUtf8("Größe")) +
                    Slot(3, QStringLiteral("KRV0000003")) + Tool(QStringLiteral("KRV0000001"), QStringLiteral("KRV")) +
                    Tool(QStringLiteral("KRX0000002"), QStringLiteral("KRV-X")) +
                    Tool(QStringLiteral("KRV0000004"), QStringLiteral("KRV")),
                attributes);
}

/// One single-channel tool in slot 1.
inline QString SingleChannel(const QString& toolAttributes = QString()) {
    return With(Slot(1, QStringLiteral("KRV0000001"), QStringLiteral("Bore gauge")) +
                Tool(QStringLiteral("KRV0000001"), QStringLiteral("KRV"), toolAttributes));
}

/// One eight-channel tool in slot 1.
inline QString EightChannels(const QString& toolAttributes = QString()) {
    return With(Slot(1, QStringLiteral("KRX0000001"), QStringLiteral("Fixture")) +
                Tool(QStringLiteral("KRX0000001"), QStringLiteral("KRV-X"), toolAttributes));
}

/// The calls since the mark that concern slots and tools and the module's restart, and a new mark. Fetching a
/// slot's object is left out.
inline QStringList TakeToolCalls() {
    QStringList calls;
    const QStringList all = Calls::Take();
    for (const QString& call : all) {
        const bool ofASlot = call.contains(QLatin1String(" RLK0000001."));
        const bool ofTheModule = call.startsWith(QLatin1String("module")) || call.startsWith(QLatin1String("devices"));
        if ((ofASlot && !ofTheModule) || call.endsWith(QLatin1String(".Restart()"))) {
            calls.append(call);
        }
    }
    return calls;
}

/// The calls of an object in slot 1, each such as "ReadAllChannels(1)".
inline QStringList OfSlot(const QString& object, const QStringList& calls, int slot = 1) {
    QStringList texts;
    for (const QString& call : calls) {
        texts.append(QStringLiteral("%1 RLK0000001.%2.%3").arg(object, QString::number(slot), call));
    }
    return texts;
}

/// The next restart takes this long, by the computer's clock.
inline void SlowRestart(double seconds) {
    TavikSimulator::UseRealClock();
    TavikSimulator::Fault fault;
    fault.operation = "Restart";
    fault.effect = TavikSimulator::FaultEffect::Slow;
    fault.delay = seconds;
    TavikSimulator::AddFault(fault);
}

} // namespace WirelessBench
