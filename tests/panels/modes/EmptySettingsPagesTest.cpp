#include "library/TavikBuffered.h"
#include "library/TavikDynamic.h"
#include "library/TavikModule.h"
#include "library/TavikNetwork.h"
#include "library/TavikNetworks.h"
#include "library/TavikServer.h"
#include "panels/modes/BufferedModeWidget.h"
#include "panels/modes/DynamicWidget.h"
#include "tests/panels/types/PanelTest.h"
#include "tests/support/FakeHostWindow.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMetaMethod>
#include <QRadioButton>
#include <QSpinBox>

using namespace TavikSimulator;

namespace {

const char* const bench =
    "<bench><network name=\"Alpha\" controller=\"C1\" description=\"Alpha\">"
    "<module type=\"KX\" identity=\"KX0000000A\"/><module type=\"QTA\" identity=\"QTA000000A\"/></network>"
    "<network name=\"Beta\" controller=\"C2\" description=\"Beta\">"
    "<module type=\"KX\" identity=\"KX0000000B\"/><module type=\"QTA\" identity=\"QTA000000B\"/></network></bench>";

/// A page in a window of its own, filled with network "Alpha", whose settings are not those that networks begin with.
template <class Page>
class Hosted {
    /// Before the server, which finds the bench.
    struct Bench {
        Bench() {
            UseStillBenchText(bench, "bench of the test");
            StartJournal();
        }
    } const prepared;

public:
    Hosted() {
        server.Networks()->FindNetworks();
        server.Networks()->ConnectAll();
        alpha = server.Networks()->Network(0);
        beta = server.Networks()->Network(1);
        betaModule = beta->GetModule(0);
        alpha->Dynamic()->setDynamicRate(TavikLibrary::eDynamicRate::Dynamic2Custom);
        alpha->Dynamic()->setDynamicInterval(5555);
        alpha->GetModule(0)->Buffered()->setMode(TavikLibrary::eBufferedMode::Sync);
        alpha->GetModule(0)->Buffered()->setReadingInterval(8192);
        page->setNetwork(&host, &server, alpha, alpha->GetModule(0));
    }

    void ShowBeta() { page->setNetwork(&host, &server, beta, betaModule); }

    /// Why the page is not empty; nothing if it is.
    QString Remainder() const {
        QStringList found;
        for (const auto* field : All<QLineEdit>()) {
            if (field->isReadOnly() && !field->text().isEmpty()) {
                found.append(field->objectName());
            }
        }
        for (const auto* box : All<QSpinBox>()) {
            if (box->value() != box->minimum() || box->isEnabled()) {
                found.append(box->objectName());
            }
        }
        for (const auto* list : All<QComboBox>()) {
            if (list->count() != 0 || list->isEnabled()) {
                found.append(list->objectName());
            }
        }
        for (const auto* button : All<QAbstractButton>()) {
            if (button->isEnabled() || button->isChecked()) {
                found.append(button->objectName());
            }
        }
        for (const char* name : {"lblRate", "lblDynamicMasterMode", "lblNetEnabled", "lblStatus", "lblError"}) {
            const auto* label = page->template findChild<QLabel*>(QLatin1String(name));
            if (label != nullptr && !label->text().isEmpty()) {
                found.append(label->objectName());
            }
        }
        return found.join(QLatin1Char(' '));
    }

    /// The library calls of all the page's slots.
    QStringList CallsOfSlots() const {
        Calls::Mark();
        for (int i = page->metaObject()->methodOffset(); i < page->metaObject()->methodCount(); ++i) {
            const QMetaMethod slot = page->metaObject()->method(i);
            if (slot.parameterCount() == 0) {
                slot.invoke(page, Qt::DirectConnection);
            }
        }
        page->template findChild<QSpinBox*>(QStringLiteral("sbInterval"))->setValue(40960);
        return Calls::Take();
    }

    FakeHostWindow host;
    TavikLibrary::TavikServer server;
    Page* page = new Page(&host);

private:
    template <class Widget>
    QList<Widget*> All() const {
        return page->template findChildren<Widget*>();
    }

    TavikLibrary::TavikNetwork* alpha = nullptr;
    TavikLibrary::TavikNetwork* beta = nullptr;
    TavikLibrary::TavikModule* betaModule = nullptr;
};

/// A page during whose set-up network "Beta" drops out, after the masters have been listed.
template <class Page>
class Dropping : public Page {
public:
    using Page::Page;
    bool dropsOut = false;

protected:
    void FillMasters() override {
        Page::FillMasters();
        if (dropsOut) {
            SetNetworkPresent("Beta", false);
        }
    }
};

} // namespace

/// The pages of buffered and dynamic mode whose set-up fails: they show nothing of the network before, and do nothing.
class EmptySettingsPagesTest : public ProgramFixture {
    Q_OBJECT

private slots:
    void failedSetUpEmptiesTheBufferedPage_data();
    void failedSetUpEmptiesTheBufferedPage();
    void failedSetUpEmptiesTheDynamicPage_data();
    void failedSetUpEmptiesTheDynamicPage();
    void droppedNetworkEmptiesBothPages();
    void pageWithoutModuleIsEmpty();

private:
    template <class Page>
    static void FailSetUp() {
        QFETCH(QString, operation);
        Hosted<Page> hosted;
        QVERIFY(!hosted.Remainder().isEmpty());
        FailNext(qPrintable(operation), QStringLiteral("No answer"));
        QVERIFY_EXCEPTION_THROWN(hosted.ShowBeta(), std::runtime_error);
        QCOMPARE(hosted.Remainder(), QString());
        COMPARE_CALLS(hosted.CallsOfSlots(), {});
        hosted.page->setCommandsEnabled(false);
        hosted.page->setCommandsEnabled(true);
        QCOMPARE(hosted.Remainder().remove(QStringLiteral("sbInterval")), QString());
    }
    template <class Page>
    static void ExpectEmptyOnDroppedNetwork() {
        Hosted<Dropping<Page>> hosted;
        hosted.page->dropsOut = true;
        hosted.ShowBeta();
        QCOMPARE(hosted.Remainder(), QString());
        COMPARE_CALLS(hosted.CallsOfSlots(), {});
    }
    static void AddRows(const QStringList& operations) {
        QTest::addColumn<QString>("operation");
        for (const QString& operation : operations) {
            QTest::newRow(qPrintable(operation)) << operation;
        }
    }
};

void EmptySettingsPagesTest::failedSetUpEmptiesTheBufferedPage_data() {
    AddRows(QStringLiteral("ModuleCount GetModule BufferedMasterCapable IsConnected Buffered Mode Enabled Identity "
                           "ReadingInterval TTUs EnabledCount Status MasterIndex")
                .split(QLatin1Char(' ')));
}

void EmptySettingsPagesTest::failedSetUpEmptiesTheBufferedPage() {
    FailSetUp<BufferedModeWidget>();
}

void EmptySettingsPagesTest::failedSetUpEmptiesTheDynamicPage_data() {
    AddRows(QStringLiteral("Dynamic ModuleCount GetModule DynamicMasterCapable IsConnected DynamicState Enabled "
                           "DynamicRate DynamicInterval CollectionSize DynamicMode NumberOfModules Identity "
                           "CollectionStatus")
                .split(QLatin1Char(' ')));
}

void EmptySettingsPagesTest::failedSetUpEmptiesTheDynamicPage() {
    FailSetUp<DynamicWidget>();
}

void EmptySettingsPagesTest::droppedNetworkEmptiesBothPages() {
    ExpectEmptyOnDroppedNetwork<BufferedModeWidget>();
    ExpectEmptyOnDroppedNetwork<DynamicWidget>();
}

void EmptySettingsPagesTest::pageWithoutModuleIsEmpty() {
    Hosted<BufferedModeWidget> hosted;
    hosted.page->setNetwork(&hosted.host, &hosted.server, nullptr, nullptr);
    QCOMPARE(hosted.Remainder(), QString());
    COMPARE_CALLS(hosted.CallsOfSlots(), {});
}

TAVIK_TEST_MAIN(EmptySettingsPagesTest)

#include "EmptySettingsPagesTest.moc"
