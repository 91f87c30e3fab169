#include "library/TavikModuleKX.h"
#include "tests/simulator/Bench.h"

#include <cctype>
#include <climits>
#include <cstdio>
#include <iterator>
#include <set>

using namespace TavikLibrary;

namespace {

const eTavikErrors Known[] = {
    eTavikErrors::NoError,
    eTavikErrors::NotAvailable,
    eTavikErrors::NetworkNotConnected,
    eTavikErrors::NetworkNotResponding,
    eTavikErrors::ControllerNotFound,
    eTavikErrors::SpeedNotAvailable,
    eTavikErrors::NotifyRunning,
    eTavikErrors::AcquisitionRunning,
    eTavikErrors::IdentityMalformed,
    eTavikErrors::IdentityUnknown,
    eTavikErrors::IdentityDuplicate,
    eTavikErrors::ModuleIndexOutOfRange,
    eTavikErrors::PositionInvalid,
    eTavikErrors::NetworkFull,
    eTavikErrors::HotSwapMismatch,
    eTavikErrors::ModuleNotResponding,
    eTavikErrors::ModuleRemoved,
    eTavikErrors::ReadingNotAvailable,
    eTavikErrors::InvalidArgument,
    eTavikErrors::NotSupported,
    eTavikErrors::UnderRange,
    eTavikErrors::OverRange,
    eTavikErrors::SignalFault,
    eTavikErrors::BeamOff,
    eTavikErrors::MarkNotFound,
    eTavikErrors::NoModuleEnabled,
    eTavikErrors::StopAwaited,
    eTavikErrors::BufferOverrun,
    eTavikErrors::DroppedOut,
    eTavikErrors::NoSuchReading,
    eTavikErrors::NotRunning,
    eTavikErrors::DynamicEnabled,
    eTavikErrors::DynamicNotPossible,
    eTavikErrors::DynamicNotReady,
    eTavikErrors::SyncsDropped,
    eTavikErrors::SyncsMissed,
    eTavikErrors::ReadingUnsettled,
    eTavikErrors::NotMastered,
    eTavikErrors::BelowLimit,
    eTavikErrors::AboveLimit,
};

bool IsSentence(const std::string& text) {
    return text.size() > 5 && std::isupper(static_cast<unsigned char>(text.front())) && text.back() == '.';
}

bool NamesItsCode(const std::string& text, int code) {
    char hexadecimal[16];
    std::snprintf(hexadecimal, sizeof hexadecimal, "(0x%X)", static_cast<unsigned>(code));
    return text.find(std::to_string(code)) != std::string::npos && text.find(hexadecimal) != std::string::npos;
}

} // namespace

class ErrorTextsTest : public QObject {
    Q_OBJECT

private slots:
    void EveryCodeHasASentence();
    void KnownCodesHaveSentencesOfTheirOwn();
    void CodesBeyondTheDecoderAnswerToo();
    void ErrorNamesAnswerForEveryValue();
    void SpeedsHaveTexts();
    void NetworkTypesHaveTexts();
    void ModuleTypesHaveTexts();
    void ResolutionsHaveTexts();
    void AveragingsHaveTexts();
    void AnExceptionIsCopiedWhole();
    void TheLibrarySaysThatItIsSimulated();
};

void ErrorTextsTest::EveryCodeHasASentence() {
    TavikServer server;
    int unknown = 0;
    for (int code = 0; code <= 131072; ++code) {
        const std::string text = server.GetErrorDescription(code);
        if (!IsSentence(text)) {
            QFAIL(("code " + std::to_string(code) + ": " + text).c_str());
        }
        unknown += NamesItsCode(text, code) ? 1 : 0;
    }
    QCOMPARE(unknown, 131073 - static_cast<int>(std::size(Known)));
    QCOMPARE(server.GetErrorDescription(4660), std::string("Unknown error code 4660 (0x1234)."));
}

void ErrorTextsTest::KnownCodesHaveSentencesOfTheirOwn() {
    TavikServer server;
    std::set<std::string> sentences;
    std::set<std::string> names;
    for (const eTavikErrors error : Known) {
        const std::string sentence = server.GetErrorDescription(static_cast<int>(error));
        QVERIFY2(sentence.find("Unknown") == std::string::npos, sentence.c_str());
        sentences.insert(sentence);
        names.insert(eTavikErrors_ToString(error));
    }
    QCOMPARE(sentences.size(), std::size(Known));
    QCOMPARE(names.size(), std::size(Known));
}

void ErrorTextsTest::CodesBeyondTheDecoderAnswerToo() {
    TavikServer server;
    for (const int code : {-1, INT_MIN, INT_MAX, 131073}) {
        QVERIFY(NamesItsCode(server.GetErrorDescription(code), code));
    }
}

void ErrorTextsTest::ErrorNamesAnswerForEveryValue() {
    QCOMPARE(eTavikErrors_ToString(eTavikErrors::UnderRange), std::string("Under range"));
    QCOMPARE(eTavikErrors_ToString(static_cast<eTavikErrors>(-1)), std::string("Unknown error code -1 (0xFFFFFFFF)"));
}

void ErrorTextsTest::SpeedsHaveTexts() {
    QCOMPARE(eNetSpeed_ToString(eNetSpeed::Low), std::string("Low"));
    QCOMPARE(eNetSpeed_ToString(eNetSpeed::Medium), std::string("Medium"));
    QCOMPARE(eNetSpeed_ToString(eNetSpeed::High), std::string("High"));
    QCOMPARE(eNetSpeed_ToString(eNetSpeed::UltraHigh), std::string("Ultra High"));
    QCOMPARE(eNetSpeed_ToString(static_cast<eNetSpeed>(4)), std::string("Unknown speed (4)"));
    for (const int speed : {0, 3, 5, 6}) {
        const auto value = static_cast<eNetSpeed>(speed);
        QCOMPARE(eNetSpeed_FromString(eNetSpeed_ToString(value)), value);
    }
    QVERIFY(RefusalOf([] { eNetSpeed_FromString("low"); }).Is(eTavikErrors::InvalidArgument));
    QVERIFY(RefusalOf([] { eNetSpeed_FromString(""); }).refused);
}

void ErrorTextsTest::NetworkTypesHaveTexts() {
    QCOMPARE(eNetworkType_ToString(eNetworkType::Usb), std::string("USB"));
    QCOMPARE(eNetworkType_ToString(eNetworkType::Ethernet), std::string("Ethernet"));
    QCOMPARE(eNetworkType_ToString(eNetworkType::Serial), std::string("Serial"));
    QVERIFY(!eNetworkType_ToString(static_cast<eNetworkType>(-1)).empty());
}

void ErrorTextsTest::ModuleTypesHaveTexts() {
    const std::vector<std::pair<int, std::string>> texts = {{1, "KX"},   {2, "RN"},     {3, "QTA"},  {4, "HVX"},
                                                            {5, "SWAX"}, {6, "BW"},     {7, "BWR"},  {8, "BWK"},
                                                            {9, "RLK"},  {12, "SWAX2"}, {13, "PNX"}, {0, "Unknown"}};
    for (const auto& [type, text] : texts) {
        QCOMPARE(eModuleType_ToString(static_cast<eModuleType>(type)), text);
    }
    QCOMPARE(eModuleType_ToString(static_cast<eModuleType>(10)), std::string("Unknown module type (10)"));
}

void ErrorTextsTest::ResolutionsHaveTexts() {
    std::set<std::string> texts;
    for (int i = 0; i <= 4; ++i) {
        const auto value = static_cast<eResolution>(i);
        texts.insert(eResolution_ToString(value));
        QCOMPARE(eResolution_FromString(eResolution_ToString(value)), value);
    }
    QCOMPARE(texts.size(), std::size_t{5});
    QCOMPARE(eResolution_ToString(eResolution::Bits16), std::string("16 bits"));
    QVERIFY(RefusalOf([] { eResolution_FromString("19 bits"); }).Is(eTavikErrors::InvalidArgument));
}

void ErrorTextsTest::AveragingsHaveTexts() {
    std::set<std::string> texts;
    for (int i = 0; i <= 8; ++i) {
        const auto value = static_cast<eAveraging>(i);
        texts.insert(eAveraging_ToString(value));
        QCOMPARE(eAveraging_FromString(eAveraging_ToString(value)), value);
    }
    QCOMPARE(texts.size(), std::size_t{9});
    QCOMPARE(eAveraging_ToString(eAveraging::Samples64), std::string("64 samples"));
    QVERIFY(RefusalOf([] { eAveraging_FromString("3 samples"); }).Is(eTavikErrors::InvalidArgument));
}

void ErrorTextsTest::AnExceptionIsCopiedWhole() {
    const TavikException first(255, "No probe.");
    TavikException copy(first);
    QCOMPARE(copy.errorCode, 255);
    QCOMPARE(std::string(copy.what()), std::string("No probe."));
    copy = TavikException(7, "Other.");
    QCOMPARE(copy.errorCode, 7);
    QCOMPARE(std::string(copy.what()), std::string("Other."));
    QCOMPARE(first.errorCode, 255);
}

void ErrorTextsTest::TheLibrarySaysThatItIsSimulated() {
    TavikServer server;
    QVERIFY(server.LibraryPartNumber().find("SIMULATED") != std::string::npos);
    QVERIFY(server.LibraryVersion().find("simulated") != std::string::npos);
    QVERIFY(!server.LibraryBuildDate().empty());
}

QTEST_APPLESS_MAIN(ErrorTextsTest)
#include "ErrorTextsTest.moc"
