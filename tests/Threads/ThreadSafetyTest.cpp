// Every stateless operation called from several threads at once must answer as it does
// on one thread. Under ThreadSanitizer (the tsan preset) these tests also prove that the
// lookup tables, the shared instance and the log are free of data races.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <iterator>
#include <latch>
#include <map>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "vastrel/Card/CreditCardHelper.hpp"
#include "vastrel/Codec/BerLength.hpp"
#include "vastrel/Codec/DigitStringValues.hpp"
#include "vastrel/Codec/TLVDecoder.hpp"
#include "vastrel/Codec/TLVParser.hpp"
#include "vastrel/Codec/TLVUtility.hpp"
#include "vastrel/Codec/Utilities.hpp"
#include "vastrel/Enums/ConversionHelper.hpp"
#include "vastrel/Enums/EnumStringValues.hpp"
#include "vastrel/Enums/Error.hpp"
#include "vastrel/Model/AID.hpp"
#include "vastrel/Platform/AssertionFailure.hpp"
#include "vastrel/Platform/Decimal.hpp"
#include "vastrel/Platform/KeyedArchiver.hpp"
#include "vastrel/Platform/KeyedUnarchiver.hpp"
#include "vastrel/Platform/Log.hpp"
#include "vastrel/Platform/RangeError.hpp"
#include "vastrel/Receipt/ReceiptHelper.hpp"
#include "vastrel/Tags/EMVTagHelper.hpp"
#include "vastrel/Tags/SensitiveData.hpp"

namespace vastrel {
namespace {

constexpr int kThreads = 8;
constexpr int kRounds = 25;

// Chip data with nested templates, a card number, track data and a cardholder name.
constexpr const char* kChipData =
    "77379F2701809F360200429F26088E19C4A2F01B3D779F10201F4A5A00000000000000000000000000000000"
    "000000000000000000000000000000705057134761739001010010D27122011143804400000F5A084761739"
    "0010100105F200F43415244484F4C4445522F564953415F24032712315F25032001015F28020840"
    "5F3401019F0702FF009F08020096";
constexpr const char* kFlatChipData =
    "4F07A0000000031010500B56495341204352454449549F34030103029F2608AABBCCDDEEFF0011"
    "9F1A0208405A0847617390010100105F2A020840";

// Runs body(thread index) on kThreads threads that start together.
void runTogether(const std::function<void(int)>& body) {
    std::latch start(kThreads);
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([&, t] {
            start.arrive_and_wait();
            body(t);
        });
    }
    for (auto& thread : threads)
        thread.join();
}

std::string optionalText(const std::optional<std::string>& text) {
    return text.value_or("<absent>");
}

void render(const std::vector<TLVObject>& elements, std::string& out) {
    for (const TLVObject& e : elements) {
        out += optionalText(e.tag()) + '|' + optionalText(e.tagName()) + '|' +
               optionalText(e.length()) + '|' + optionalText(e.value());
        if (e.innerTlvs()) {
            out += '{';
            render(*e.innerTlvs(), out);
            out += '}';
        }
        out += ';';
    }
}

std::string render(const std::optional<std::vector<TLVObject>>& elements) {
    std::string out;
    if (elements) render(*elements, out);
    return out;
}

std::string render(const TransactionReceipt& r) {
    return optionalText(r.aid()) + optionalText(r.applicationLabel()) +
           optionalText(r.cryptogram()) + optionalText(r.maskedPan()) +
           optionalText(r.cardholderName()) + optionalText(r.transactionAmount()) +
           std::to_string(static_cast<int>(r.cardType())) +
           std::to_string(static_cast<int>(r.cvmResult())) +
           std::to_string(static_cast<int>(r.pinStatementType()));
}

// The text of the exception that call throws, or "" when it returns.
template <class Call>
std::string thrown(Call&& call) {
    try {
        call();
    } catch (const std::exception& e) {
        return e.what();
    }
    return "";
}

std::string tagNames() {
    std::string out;
    for (const char* tag :
         {"4F", "50", "5A", "57", "9F02", "9F26", "9F34", "DF16", "BF0C", "7F", "00", "9f02", ""}) {
        out += Tag::tagName(tag) + ';';
    }
    return out + Tag::tagName(std::nullopt);
}

std::string enumerationStrings() {
    std::string out;
    for (std::uint64_t type = 0; type <= 15; ++type) {
        const auto* table = EnumStringValues::dictionaryForEnumType(static_cast<EnumType>(type));
        out += std::to_string(table ? table->size() : 0) + ':';
        for (std::uint64_t value = 0; value <= 20; ++value) {
            out += optionalText(
                       EnumStringValues::valueForAnEnumType(static_cast<EnumType>(type), value)) +
                   ',';
        }
    }
    return out;
}

std::string conversions() {
    std::string out;
    for (std::uint64_t v = 0; v <= 20; ++v) {
        out += DigitStringValues::stringForDigit(v) + ',' +
               std::to_string(static_cast<int>(ConversionHelper::toReversalReason(v))) + ',' +
               optionalText(Utilities::stringTerminalStatus(v)) + ',' +
               optionalText(Utilities::stringCurrencyCode(static_cast<CurrencyCode>(v))) + ',' +
               Utilities::hexStringFromEMVTagEnum(static_cast<std::int64_t>(v) * 0x9F01) + ';';
    }
    return out;
}

std::string hexConversions() {
    const Bytes bytes = TLVUtility::dataWithHexString("9f02 A-1FF");
    return TLVUtility::dataToHexString(bytes) + TLVUtility::stringToHex("Hi") +
           TLVUtility::hexToAscii("564953414G") + std::to_string(TLVDecoder::hexToInt(" 0x1A")) +
           thrown([] { TLVUtility::dataWithHexString("ABC"); }) +
           thrown([] { TLVUtility::dataWithHexString("00ZZ"); });
}

std::string splitter() {
    std::string out;
    for (const std::string& piece : TLVParser::splitTLVData(kFlatChipData))
        out += piece + ';';
    const auto tag = TLVUtility::tagFromTLVString("9F02060000");
    return out + TLVUtility::tagValueFromTLV(kFlatChipData) +
           TLVUtility::dataToHexString(tag->value()) +
           std::to_string(TLVParser::isIssuerScriptTemplate1("7103860100")) +
           std::to_string(TLVUtility::isIssuerScriptTemplate2("7203860100")) +
           std::to_string(TLVParser::tlvObjectsFromTLVData(kFlatChipData).size()) +
           thrown([] { TLVParser::splitTLVData("5A0812"); });
}

std::string decoder() {
    const std::vector<std::int32_t> numbers = {0x5A, 0x01, 0x11, 0x9F, 0x02, 0x01, 0x22};
    return render(TLVDecoder::decodeWithTLVString(kChipData)) +
           render(TLVDecoder::decodeWithTLVString(kFlatChipData)) +
           render(TLVDecoder::decodeTlv(numbers)) + render(TLVDecoder::decodeWithTLVString("ABC"));
}

std::string lookups() {
    const auto elements = TLVDecoder::decodeWithTLVString(kChipData);
    const auto found = TLVUtility::findTLVObject(0x9F27, elements);
    std::map<std::string, std::string> tags = {{"9F02", "000000001000"}, {"5F2A", "0840"}};
    TLVObject object("9F02");
    object.setLength("6");
    object.setValue("000000001000");
    // Every thread must get the one shared instance.
    const auto shared = reinterpret_cast<std::uintptr_t>(&TLVUtility::sharedInstance());
    return optionalText(found ? found->value() : std::nullopt) +
           TLVUtility::createTLVFromTag("9F02", std::string(400, 'A')) +
           optionalText(TLVUtility::fetchIccDataStringFromEmvTagsDictionary(tags)) +
           TLVUtility::fetchIccDataStringFromEmvTagsArray(elements) +
           std::to_string(
               TLVUtility::stripTagsEmvTagDescriptors(std::vector<std::string>{"77"}, elements)
                   .size()) +
           optionalText(TLVObject::generateHexStringFromTLVObject(&object)) +
           std::to_string(shared);
}

std::string tagModel() {
    std::string out;
    for (std::uint64_t n : {0, 127, 128, 255, 256, 65535}) {
        out += BerLength::getEncodedLengthHexString(n) + ',';
    }
    out += thrown([] { BerLength::getEncodedLengthHexString(65536); });
    for (const Tag& tag : {EMVTagHelper::applicationIdentifier(), EMVTagHelper::applicationLabel(),
                           EMVTagHelper::cardHolderName(), EMVTagHelper::cryptogram()}) {
        out += TLVUtility::dataToHexString(tag.value()) + ',';
    }
    return out + TLVUtility::dataToHexString(EMVTagHelper::berTagFromInt("DF8101")->value());
}

std::string brands() {
    std::string out;
    const CreditCardHelper helper;
    for (const char* pan :
         {"4111111111111111", "371449XXXXX8431", "555555XXXXXX4444", "305999XXXXXX", "601186XXXXXX",
          "352800XXXXXX", "501800XXXXXX", "222100XXXXXX0000", ""}) {
        out += std::to_string(static_cast<int>(helper.getCardTypeFromRedactedPan(pan)));
    }
    return out;
}

std::string cvmDecoders() {
    std::string out;
    for (const char* code :
         {"", "1F030", "1f0302", "1E0300", "420300", "010002", "3F0000", "5e0300", "1"}) {
        out += std::to_string(static_cast<int>(ReceiptHelper::cvmResultFromTlv(code))) + ',' +
               std::to_string(
                   static_cast<int>(EMVTagHelper::cardholderAuthenticationMethodfromTlv(code))) +
               ';';
    }
    return out;
}

std::string receipts() {
    CardData card;
    card.setPan("476173XXXXXX0010");
    card.setCardholderName("CARDHOLDER/VISA");
    card.setEmvTLVData(TLVDecoder::decodeWithTLVString(kFlatChipData));
    GatewayResponse response;
    response.setAuthCode("A1B2C3");
    response.setApprovedAmount(Decimal("12.50"));
    TransactionRequest request;
    request.setTransactionType(TransactionType::TransactionTypeSale);
    const TransactionReceipt emv = ReceiptHelper::buildEmvReceiptWith(&response, &card);
    const TransactionReceipt msr = ReceiptHelper::buildMsrReceiptFor(&request, nullptr, &card);
    return render(emv) + render(msr) + render(emv.copy()) +
           std::to_string(ReceiptHelper::validateEmvTagsPresent(std::nullopt));
}

std::string errorsAndPlatform() {
    const auto error = Error::emvErrorType(EMVErrorType{10}, "Timeout");
    const KeyedUnarchiver archive(R"({"rid":"A000000003","production_key":true})");
    KeyedArchiver archiver;
    AID aid;
    aid.setRid("A000000003");
    aid.encodeWithCoder(archiver);
    return error->domain() + std::to_string(error->code()) + error->userInfo().at("GENERAL_ERROR") +
           thrown([] { Error::emvErrorType(EMVErrorType{12}, "x"); }) +
           (Decimal("12.50") + Decimal("0.01")).description() +
           optionalText(archive.decodeObjectForKey("rid")) +
           std::to_string(archive.decodeBoolForKey("production_key")) + archiver.data() +
           SensitiveData::maskedValue("5A", "4761739001010010") +
           SensitiveData::maskedValue("57", "4761739001010010D2712201") +
           std::to_string(SensitiveData::isSensitive("DF16"));
}

struct Operation {
    const char* name;
    std::string (*run)();
};

constexpr Operation kOperations[] = {
    {"tag names", tagNames},        {"enumeration strings", enumerationStrings},
    {"conversions", conversions},   {"hex conversions", hexConversions},
    {"splitter", splitter},         {"decoder", decoder},
    {"lookups", lookups},           {"tag model", tagModel},
    {"brand detection", brands},    {"CVM decoders", cvmDecoders},
    {"receipt builders", receipts}, {"errors, decimals, archives, masking", errorsAndPlatform},
};
constexpr std::size_t kOperationCount = std::size(kOperations);

// Counts log lines without keeping them; safe to call from any thread.
class CountingHandler {
  public:
    void install() {
        log::setHandler([this](std::string_view) { lines_.fetch_add(1); });
    }
    [[nodiscard]] long lines() const { return lines_.load(); }

  private:
    std::atomic<long> lines_{0};
};

class ThreadSafetyTest : public ::testing::Test {
  protected:
    void TearDown() override {
        log::setHandler(nullptr);
        log::setEnabled(true);
        log::setMaskSensitiveData(true);
    }
};

// The threads make the first calls, so the tables are built while they race; the answers
// are compared with a single thread's afterwards.
TEST_F(ThreadSafetyTest, StatelessOperationsAnswerAsOnOneThread) {
    CountingHandler quiet;
    quiet.install();
    std::vector<std::vector<std::string>> firstAnswers(kThreads);
    std::vector<std::vector<std::string>> changed(kThreads);
    runTogether([&](int t) {
        std::vector<std::string>& first = firstAnswers[t];
        first.resize(kOperationCount);
        for (int round = 0; round < kRounds; ++round) {
            // Each thread starts at a different operation, so different ones overlap too.
            for (std::size_t k = 0; k < kOperationCount; ++k) {
                const std::size_t i = (k + static_cast<std::size_t>(t)) % kOperationCount;
                std::string answer = kOperations[i].run();
                if (round == 0) {
                    first[i] = std::move(answer);
                } else if (answer != first[i]) {
                    changed[t].push_back(kOperations[i].name);
                }
            }
        }
    });
    for (std::size_t i = 0; i < kOperationCount; ++i) {
        SCOPED_TRACE(kOperations[i].name);
        const std::string expected = kOperations[i].run();
        EXPECT_FALSE(expected.empty());
        for (int t = 0; t < kThreads; ++t)
            EXPECT_EQ(firstAnswers[t][i], expected) << "thread " << t;
    }
    for (int t = 0; t < kThreads; ++t)
        EXPECT_TRUE(changed[t].empty()) << "thread " << t << ": " << changed[t].front();
    EXPECT_GT(quiet.lines(), 0);
}

// Half the threads write lines while the other half keep replacing the handler: every line
// reaches exactly one of the handlers.
TEST_F(ThreadSafetyTest, HandlerCanBeReplacedWhileLinesAreWritten) {
    constexpr int kLinesPerWriter = 2000;
    CountingHandler handlers[3];
    handlers[0].install();
    runTogether([&](int t) {
        for (int i = 0; i < kLinesPerWriter; ++i) {
            if (t % 2 == 0) {
                log::write("Invalid TLV");
            } else {
                handlers[(i + t) % 3].install();
            }
        }
    });
    const long delivered = handlers[0].lines() + handlers[1].lines() + handlers[2].lines();
    EXPECT_EQ(delivered, static_cast<long>(kThreads / 2) * kLinesPerWriter);
}

// Decoding while another thread switches masking and logging on and off: the elements
// never change, and each summary line is wholly masked or wholly plain.
TEST_F(ThreadSafetyTest, LogSettingsCanChangeWhileDecoding) {
    const char* data = "5A0847617390010100105F20044A4F484E9F340101";
    std::mutex mutex;
    std::vector<std::string> lines;
    log::setHandler([&](std::string_view line) {
        const std::lock_guard lock(mutex);
        lines.emplace_back(line);
    });
    const std::string expected = render(TLVDecoder::decodeWithTLVString(data));
    std::vector<int> wrong(kThreads, 0);
    runTogether([&](int t) {
        for (int i = 0; i < 300; ++i) {
            if (t == 0) {
                log::setMaskSensitiveData(i % 2 == 0);
                log::setEnabled(i % 3 != 0);
            } else if (render(TLVDecoder::decodeWithTLVString(data)) != expected) {
                ++wrong[t];
            }
        }
    });
    log::setHandler(nullptr);
    for (int t = 0; t < kThreads; ++t)
        EXPECT_EQ(wrong[t], 0) << "thread " << t;
    ASSERT_FALSE(lines.empty());
    for (const std::string& line : lines) {
        const bool masked = line.find("\"476173******0010\"") != std::string::npos &&
                            line.find("\"<4 bytes>\"") != std::string::npos;
        const bool plain = line.find("4761739001010010;") != std::string::npos &&
                           line.find("4A4F484E;") != std::string::npos;
        EXPECT_TRUE(masked != plain) << line;
    }
}

}  // namespace
}  // namespace vastrel
