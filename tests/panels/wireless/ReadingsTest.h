#pragma once

#include "simulator/control/HandToolControl.h"
#include "tests/panels/wireless/WirelessBench.h"
#include "tests/support/ProgramFixture.h"

#include <QGroupBox>
#include <QTableWidget>

#include <functional>

inline const QString readTitle = QStringLiteral("Read KRV");
inline const QString green = QStringLiteral("background-color: green");
inline const QString red = QStringLiteral("background-color: red");

inline const QString stillChannel =
    QStringLiteral("<channel id=\"GA%1\" stroke=\"12.5\"><signal base=\"%2\" noise=\"0\"/></channel>");

/// A single-channel tool whose gauge stands still.
inline QString StillTool(const QString& position = QStringLiteral("1.23456"), const QString& attributes = QString()) {
    return WirelessBench::With(WirelessBench::Slot(1, QStringLiteral("KRV0000001"), QStringLiteral("Bore gauge")) +
                               WirelessBench::Tool(QStringLiteral("KRV0000001"), QStringLiteral("KRV"), attributes,
                                                   stillChannel.arg(QStringLiteral("00000001"), position)));
}

inline QStringList OfDevice(const QStringList& calls) {
    return WirelessBench::OfSlot(QStringLiteral("device"), calls);
}

/// The base of tests of the dialog that shows a hand tool's readings, which work on the tool in slot 1.
class ReadingsTest : public ProgramFixture {
    Q_OBJECT

protected:
    /// Opens the dialog of slot 1, does something in it, and closes it unless that has been done.
    void InDialog(const std::function<void(QDialog&, WidgetDriver)>& deed) {
        BoxReply reply;
        reply.meanwhile = [deed](QDialog& dialog) { deed(dialog, WidgetDriver(dialog)); };
        boxes.ExpectDialog(Operator().Find("moduleRLKWidget"), QStringLiteral("KRV Channel Readings"), reply);
        QVERIFY(Operator().Click("btnRead1"));
    }
    static QStringList Column(QDialog& dialog, int column) {
        const auto* table = dialog.findChild<QTableWidget*>();
        QStringList texts;
        for (int row = 0; row < table->rowCount(); ++row) {
            texts.append(table->item(row, column)->text());
        }
        return texts;
    }
    static QString Colour(QDialog& dialog) {
        return dialog.findChild<QGroupBox*>(QStringLiteral("gbDevice"))->styleSheet();
    }
    static QString StartText(QDialog& dialog) { return WidgetDriver(dialog).Text("btnStartStopReading"); }
    /// How many reads have been made since the mark.
    static int Reads() {
        int reads = 0;
        for (const TavikSimulator::JournalEntry& entry : Calls::Entries()) {
            reads += entry.operation == "ReadAllChannels";
        }
        return reads;
    }
    static bool HasRead() { return Reads() > 0; }
    /// Ends the reading that is about to begin once there have been so many reads since the mark.
    void StopAfterReads(WidgetDriver driver, int reads) {
        When(
            this, [reads] { return Reads() >= reads; }, [driver]() mutable { driver.Click("btnStartStopReading"); });
    }
};
