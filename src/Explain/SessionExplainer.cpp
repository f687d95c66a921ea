#include "vastrel/Explain/SessionExplainer.hpp"

#include <algorithm>
#include <string>

#include "DecoderParts.hpp"
#include "vastrel/Codec/Tag.hpp"
#include "vastrel/Explain/ApplicationIdentifier.hpp"
#include "vastrel/Explain/CommandApdu.hpp"
#include "vastrel/Explain/DataObjectList.hpp"
#include "vastrel/Explain/EmvDictionary.hpp"
#include "vastrel/Explain/StatusWord.hpp"
#include "vastrel/Tags/CardDataPolicy.hpp"

namespace vastrel {
namespace {

using explain::firstPrimitive;
using explain::hex;
using explain::tagHex;

constexpr std::uint32_t kPdol = 0x9F38;
constexpr std::uint32_t kCdol1 = 0x8C;
constexpr std::uint32_t kCdol2 = 0x8D;
constexpr std::uint32_t kDdol = 0x9F49;
constexpr std::uint32_t kCommandTemplate = 0x83;
constexpr std::uint32_t kDfName = 0x84;
constexpr std::uint32_t kLabel = 0x50;
constexpr std::uint32_t kPan = 0x5A;
constexpr std::uint32_t kCid = 0x9F27;
constexpr std::uint32_t kTvr = 0x95;
constexpr std::uint32_t kCurrency = 0x5F2A;
constexpr std::uint32_t kKernelIdentifier = 0x9F2A;
constexpr std::uint32_t kTransactionDate = 0x9A;
constexpr std::uint32_t kUnpredictableNumber = 0x9F37;
constexpr std::uint32_t kTerminalTransactionQualifiers = 0x9F66;
constexpr std::uint8_t kCidTypeMask = 0xC0;
constexpr std::uint8_t kCdaRequested = 0x10;

constexpr std::string_view kCryptogramNames[] = {"AAC", "TC", "ARQC", "RFU"};

enum class CardInterface : std::uint8_t { NotShown, Contact, Contactless };

// What the session has shown so far, which later exchanges are read with.
struct SessionState {
    PaymentScheme scheme = PaymentScheme::Any;
    std::optional<std::string> application;
    std::optional<std::string> label;
    std::optional<std::vector<DolEntry>> pdol;
    std::optional<std::vector<DolEntry>> cdol1;
    std::optional<std::vector<DolEntry>> cdol2;
    std::optional<std::vector<DolEntry>> ddol;
    std::optional<std::uint16_t> currency;
    bool sawProcessingOptions = false;
    CardInterface cardInterface = CardInterface::NotShown;
    std::optional<std::uint8_t> kernelId;  // 9F2A in the FCI
    // The command whose answer a 61xx left for GET RESPONSE to fetch.
    std::optional<CommandApdu> awaitingResponse;
    std::size_t exchange = 0;  // the one being read
    OdaInput oda;              // what offline data authentication will be replayed from
};

std::string headerOf(const CommandApdu& apdu) {
    const auto byte = [](std::string_view name, std::uint8_t value) {
        return std::string(name) + " " + hex(value);
    };
    std::string header = byte("CLA", apdu.cla) + "  " + byte("INS", apdu.ins) + "  " +
                         byte("P1", apdu.p1) + "  " + byte("P2", apdu.p2);
    if (apdu.lc) header += "  " + byte("Lc", *apdu.lc);
    if (apdu.le) header += "  " + byte("Le", *apdu.le);
    return header;
}

// The command data's fields as elements: named in the session's kernel, decoded, card data
// masked unless shown.
std::vector<ExplainedElement> dolElements(const std::vector<DolField>& fields,
                                          const SessionState& state,
                                          const ExplainOptions& options) {
    DecodeContext context;
    context.scheme = state.scheme;
    context.showSensitive = options.showSensitive;
    context.currency = state.currency;
    for (const DolField& field : fields) {
        if (field.tag == kCurrency) context.currency = explain::smallBcdNumber(field.value, 999);
    }
    std::vector<ExplainedElement> elements;
    for (const DolField& field : fields) {
        ExplainedElement& element = elements.emplace_back();
        element.tag = tagHex(field.tag);
        const TagInfo* info = EmvDictionary::find(field.tag, state.scheme);
        element.name = info != nullptr ? info->name : Tag::kUnknownTagName;
        element.length = field.value.size();
        element.value = hex(field.value);
        if (!options.showSensitive)
            CardDataPolicy::maskValue(field.tag, state.scheme, element.value);
        element.subtreeEnd = static_cast<std::uint32_t>(elements.size());
        if (field.value.size() < field.declaredLength) {
            element.meaning.push_back("The data ends " +
                                      std::to_string(field.declaredLength - field.value.size()) +
                                      " bytes short of the length the DOL asks for");
            element.decoded = true;
        } else if (FieldDecoders::has(field.tag, state.scheme)) {
            element.meaning = FieldDecoders::decode(field.tag, field.value, context);
            element.decoded = true;
        }
    }
    return elements;
}

// The DOL that lays out the data of command, if the session has shown it. The first
// GENERATE AC of the session, already counted in state, is laid out by CDOL1, later ones by
// CDOL2.
const std::optional<std::vector<DolEntry>>* dolFor(const CommandApdu& apdu,
                                                   const SessionState& state,
                                                   std::string_view& dolName) {
    switch (apdu.command) {
        case EmvCommand::GetProcessingOptions:
            dolName = "PDOL (9F38)";
            return &state.pdol;
        case EmvCommand::GenerateAc:
            if (state.oda.generateAcs.size() <= 1) {
                dolName = "CDOL1 (8C)";
                return &state.cdol1;
            }
            dolName = "CDOL2 (8D)";
            return &state.cdol2;
        case EmvCommand::InternalAuthenticate:
            dolName = "DDOL (9F49)";
            return &state.ddol;
        default:
            return nullptr;
    }
}

void explainCommandData(const CommandApdu& apdu, ExplainedCommand& command, SessionState& state,
                        SessionSummary& summary, const ExplainOptions& options) {
    std::string_view dolName;
    const auto* dol = dolFor(apdu, state, dolName);
    if (dol == nullptr || apdu.data.empty()) return;
    std::span<const std::uint8_t> data = apdu.data;
    if (apdu.command == EmvCommand::GetProcessingOptions) {
        // The PDOL data comes inside the command template 83.
        const BerReadResult read = BerReader::read(data);
        if (read.error || read.nodes.empty() || read.nodes[0].tagNumber() != kCommandTemplate) {
            command.note = "The data is not a command template (83)";
            return;
        }
        data = read.nodes[0].value;
        state.oda.pdolData = Bytes(data.begin(), data.end());
        if (data.empty()) return;
    }
    if (!dol->has_value()) {
        command.note = "The card's " + std::string(dolName) +
                       " is not in the trace: the data is shown as it is";
        return;
    }
    const auto fields = DataObjectList::split(**dol, data);
    command.dol = dolElements(fields, state, options);
    if (data.size() != DataObjectList::totalLength(**dol)) {
        command.note = "The data has " + std::to_string(data.size()) + " bytes; the " +
                       std::string(dolName) + " asks for " +
                       std::to_string(DataObjectList::totalLength(**dol));
    }
    for (const DolField& field : fields) {
        const auto value = [&field] { return Bytes(field.value.begin(), field.value.end()); };
        if (field.tag == kTransactionDate) state.oda.transactionDate = value();
        if (apdu.command != EmvCommand::GenerateAc) continue;
        if (field.tag == kUnpredictableNumber && !state.oda.generateAcs.empty()) {
            state.oda.generateAcs.back().unpredictableNumber = value();
        }
        if (field.tag != kTvr) continue;
        state.oda.terminalVerificationResults = value();
        summary.terminalVerificationResults = FieldDecoders::decode(kTvr, field.value);
        if (summary.terminalVerificationResults.empty()) {
            summary.terminalVerificationResults.push_back("No finding: every bit is clear");
        }
    }
}

// The command's hex as it may be shown: the PIN block of a VERIFY hidden whole, the fields
// split by a DOL as they are shown (card data masked), and other data that reads as BER-TLV
// with its card data masked where it lies.
std::string shownCommandHex(const CommandApdu& apdu, std::span<const std::uint8_t> bytes,
                            const ExplainedCommand& command, const SessionState& state,
                            const ExplainOptions& options) {
    std::string shown = hex(bytes);
    if (options.showSensitive || apdu.data.empty()) return shown;
    constexpr std::size_t kDataStart = 2 * 5;  // after CLA INS P1 P2 Lc
    std::string data;
    if (apdu.command == EmvCommand::Verify) {
        data.assign(2 * apdu.data.size(), '*');
    } else if (!command.dol.empty() && apdu.command != EmvCommand::GetProcessingOptions) {
        for (const ExplainedElement& field : command.dol)
            data += field.value;
    } else if (const BerReadResult read = BerReader::read(apdu.data); !read.error) {
        data = hex(apdu.data);
        CardDataPolicy::maskTlvHex(apdu.data, read, state.scheme, data);
    }
    shown.replace(kDataStart, data.size(), data);
    return shown;
}

ExplainedCommand explainCommand(const CommandApdu& apdu, std::span<const std::uint8_t> bytes,
                                SessionState& state, SessionSummary& summary,
                                const ExplainOptions& options) {
    ExplainedCommand command;
    command.name = std::string(apdu.name());
    command.header = headerOf(apdu);
    command.parameters = apdu.parameters();
    if (apdu.command == EmvCommand::GenerateAc) {
        OdaGenerateAc& generateAc = state.oda.generateAcs.emplace_back();
        generateAc.commandData.assign(apdu.data.begin(), apdu.data.end());
        generateAc.cdaRequested = (apdu.p1 & kCdaRequested) != 0;
    }
    if (apdu.command == EmvCommand::InternalAuthenticate) {
        state.oda.internalAuthenticate =
            OdaInternalAuthenticate{Bytes(apdu.data.begin(), apdu.data.end()), {}};
    }
    explainCommandData(apdu, command, state, summary, options);
    command.hex = shownCommandHex(apdu, bytes, command, state, options);
    if (apdu.command == EmvCommand::ReadRecord) {
        summary.recordsRead.push_back("SFI " + std::to_string(apdu.p2 >> 3) + " record " +
                                      std::to_string(apdu.p1));
    }
    if (apdu.command == EmvCommand::GenerateAc) {
        summary.cryptograms.push_back("Asked for " + std::string(kCryptogramNames[apdu.p1 >> 6]) +
                                      ((apdu.p1 & kCdaRequested) != 0 ? " with CDA" : ""));
    }
    return command;
}

// The status word read for the command it answers: 63Cx counts PIN tries only after a
// VERIFY.
std::string statusMeaning(std::uint8_t sw1, std::uint8_t sw2, const CommandApdu* apdu) {
    if (sw1 == 0x63 && (sw2 & 0xF0) == 0xC0 &&
        (apdu == nullptr || apdu->command != EmvCommand::Verify)) {
        return "warning: state of non-volatile memory changed, counter " +
               std::to_string(sw2 & 0x0F);
    }
    return StatusWord::meaning(sw1, sw2);
}

std::optional<std::vector<DolEntry>> dolIn(const std::vector<BerNode>& nodes, std::uint32_t tag) {
    const BerNode* node = firstPrimitive(nodes, tag);
    if (node == nullptr) return std::nullopt;
    return DataObjectList::parse(node->value);
}

// What offline data authentication needs of a response that completed its command.
void keepForOda(std::span<const std::uint8_t> data, const CommandApdu& apdu, SessionState& state) {
    const OdaResponse response{Bytes(data.begin(), data.end()), state.exchange};
    switch (apdu.command) {
        case EmvCommand::GetProcessingOptions:
            state.oda.processingOptions = response;
            break;
        case EmvCommand::ReadRecord:
            state.oda.records.push_back(
                {static_cast<std::uint8_t>(apdu.p2 >> 3), apdu.p1, response});
            break;
        case EmvCommand::GenerateAc:
            if (!state.oda.generateAcs.empty()) state.oda.generateAcs.back().response = response;
            break;
        case EmvCommand::InternalAuthenticate:
            if (state.oda.internalAuthenticate) state.oda.internalAuthenticate->response = response;
            break;
        default:
            break;
    }
}

// What a response teaches the session: the application selected, its DOLs, the card number,
// the cryptogram returned, the PIN's fate, and what offline data authentication needs.
void learnFrom(std::span<const std::uint8_t> data, const std::vector<BerNode>& nodes,
               std::uint8_t sw1, std::uint8_t sw2, const CommandApdu* apdu, SessionState& state,
               SessionSummary& summary, const ExplainOptions& options) {
    const bool ok = sw1 == 0x90 && sw2 == 0x00;
    if (apdu != nullptr && apdu->command == EmvCommand::Select && ok) {
        const std::string name(apdu->data.begin(), apdu->data.end());
        const bool directory = name == "1PAY.SYS.DDF01" || name == "2PAY.SYS.DDF01";
        if (name == "1PAY.SYS.DDF01") state.cardInterface = CardInterface::Contact;
        if (name == "2PAY.SYS.DDF01") state.cardInterface = CardInterface::Contactless;
        const BerNode* dfName = firstPrimitive(nodes, kDfName);
        const auto aid = dfName != nullptr ? dfName->value : apdu->data;
        if (!directory && !aid.empty()) {
            state.oda.aid.assign(aid.begin(), aid.end());
            state.scheme = ApplicationIdentifier::identify(aid).scheme;
            state.application = explain::describeAid(aid);
        }
        if (const BerNode* label = firstPrimitive(nodes, kLabel); label != nullptr && !directory) {
            state.label = explain::printableText(label->value);
        }
    }
    if (const BerNode* kernel = firstPrimitive(nodes, kKernelIdentifier);
        kernel != nullptr && !kernel->value.empty() && !state.kernelId) {
        // The short kernel ID is the first byte's low six bits; the top two say whose it is.
        state.kernelId = kernel->value[0] & 0x3F;
        state.cardInterface = CardInterface::Contactless;
    }
    for (const auto& [tag, dol] :
         {std::pair{kPdol, &state.pdol}, std::pair{kCdol1, &state.cdol1},
          std::pair{kCdol2, &state.cdol2}, std::pair{kDdol, &state.ddol}}) {
        if (auto found = dolIn(nodes, tag)) *dol = std::move(found);
    }
    const auto asksForTtq = [](const DolEntry& entry) {
        return entry.tag == kTerminalTransactionQualifiers;
    };
    if (state.pdol && std::any_of(state.pdol->begin(), state.pdol->end(), asksForTtq)) {
        state.cardInterface = CardInterface::Contactless;
    }
    if (const BerNode* currency = firstPrimitive(nodes, kCurrency)) {
        if (const auto code = explain::smallBcdNumber(currency->value, 999)) {
            state.currency = static_cast<std::uint16_t>(*code);
        }
    }
    if (const BerNode* holder = explain::cardNumberHolder(nodes); holder && !summary.cardNumber) {
        std::string digits = explain::cardNumberDigits(*holder);
        if (!options.showSensitive) CardDataPolicy::maskValue(kPan, PaymentScheme::Any, digits);
        summary.cardNumber = digits;
    }
    if (apdu == nullptr) return;
    if (ok) keepForOda(data, *apdu, state);
    if (apdu->command == EmvCommand::GenerateAc) {
        const BerNode* cid = firstPrimitive(nodes, kCid);
        if (cid != nullptr && cid->value.size() == 1 && !summary.cryptograms.empty()) {
            summary.cryptograms.back() +=
                ", card returned " +
                std::string(kCryptogramNames[(cid->value[0] & kCidTypeMask) >> 6]) + " (CID " +
                hex(cid->value) + ")";
        }
    }
    if (apdu->command == EmvCommand::Verify) {
        const std::string form = apdu->p2 == 0x80   ? "Plaintext PIN"
                                 : apdu->p2 == 0x88 ? "Enciphered PIN"
                                                    : "PIN (qualifier " + hex(apdu->p2) + ")";
        summary.verification.push_back(form + ": " +
                                       (ok ? "verified" : statusMeaning(sw1, sw2, apdu)));
    }
    if (apdu->command == EmvCommand::GetProcessingOptions) state.sawProcessingOptions = true;
}

ExplainedResponse explainResponse(const TraceApdu& response, const CommandApdu* apdu,
                                  SessionState& state, SessionSummary& summary,
                                  const ExplainOptions& options) {
    ExplainedResponse explained;
    const Bytes& bytes = response.bytes;
    if (bytes.size() < 2) {
        explained.hex = options.showSensitive ? hex(bytes) : std::string(2 * bytes.size(), '*');
        explained.error = "The response has " + std::to_string(bytes.size()) +
                          " byte(s): too short for a status word";
        return explained;
    }
    const std::uint8_t sw1 = bytes[bytes.size() - 2];
    const std::uint8_t sw2 = bytes[bytes.size() - 1];
    const auto data = std::span<const std::uint8_t>(bytes).first(bytes.size() - 2);
    const BerReadResult read = BerReader::read(data);
    explained.hex = hex(bytes);
    if (!options.showSensitive) {
        CardDataPolicy::maskTlvHex(data, read, state.scheme,
                                   std::span<char>(explained.hex).first(2 * data.size()));
    }
    ExplainOptions responseOptions = options;
    responseOptions.scheme = state.scheme;
    explained.explanation = Explainer::explain(data, responseOptions);
    // The last two bytes are the status word whatever the data holds.
    explained.explanation.status = ExplainedStatus{
        hex(std::span<const std::uint8_t>(bytes).last(2)), statusMeaning(sw1, sw2, apdu)};
    // A GET RESPONSE answers the command that announced it with 61xx.
    const CommandApdu* answered = apdu;
    if (apdu != nullptr && apdu->command == EmvCommand::GetResponse && state.awaitingResponse) {
        answered = &*state.awaitingResponse;
    }
    learnFrom(data, read.nodes, sw1, sw2, answered, state, summary, options);
    state.awaitingResponse.reset();
    if (sw1 == 0x61 && answered != nullptr) state.awaitingResponse = *answered;
    return explained;
}

// Notes that join an exchange to the one before: GET RESPONSE fetching what 61xx announced,
// a command sent again with the Le that 6Cxx asked for.
void notePairing(std::vector<ExplainedExchange>& exchanges, const std::optional<CommandApdu>& apdu,
                 const std::optional<TraceExchange>& previous) {
    if (!previous || !previous->response || previous->response->bytes.size() < 2 || !apdu) return;
    const Bytes& last = previous->response->bytes;
    const std::uint8_t sw1 = last[last.size() - 2];
    const std::uint8_t sw2 = last[last.size() - 1];
    const std::size_t before = exchanges.size() - 1;
    if (sw1 == 0x61 && apdu->command == EmvCommand::GetResponse) {
        exchanges.back().notes.push_back("Fetches the " + std::to_string(sw2) +
                                         " bytes that exchange " + std::to_string(before) +
                                         " announced (61" + hex(sw2) + ")");
    }
    if (sw1 == 0x6C && previous->command && apdu->le == sw2) {
        exchanges.back().notes.push_back("Sends exchange " + std::to_string(before) +
                                         "'s command again with the Le that 6C" + hex(sw2) +
                                         " asked for");
    }
}

// The contactless kernel that reads a scheme's cards; 0 when the scheme has none of its own.
int contactlessKernel(PaymentScheme scheme) {
    switch (scheme) {
        case PaymentScheme::Mastercard:
        case PaymentScheme::Maestro:
            return 2;
        case PaymentScheme::Visa:
            return 3;
        case PaymentScheme::Amex:
            return 4;
        case PaymentScheme::Jcb:
            return 5;
        case PaymentScheme::Discover:
        case PaymentScheme::Diners:
            return 6;
        case PaymentScheme::UnionPay:
            return 7;
        default:
            return 0;
    }
}

// Which kernel read the card: the contact kernel of EMV, or a contactless one chosen by the
// card's kernel identifier (9F2A), else by the scheme of its AID. The interface shows in the
// selection of PSE or PPSE, a kernel identifier, or a PDOL asking for the TTQ.
std::string kernelOf(const SessionState& state) {
    const std::string scheme(schemeName(state.scheme));
    const std::string contact = "EMV contact (" + scheme + " application)";
    if (state.cardInterface == CardInterface::Contact) return contact;
    const int kernel = state.kernelId ? *state.kernelId : contactlessKernel(state.scheme);
    std::string contactless =
        kernel == 0 ? "contactless, kernel not known for " + scheme
                    : "contactless kernel " + std::to_string(kernel) + " (" + scheme + ")";
    if (state.cardInterface == CardInterface::NotShown) {
        return contact + " or " + contactless + ": the trace shows neither PSE nor PPSE";
    }
    if (kernel != 0) contactless += state.kernelId ? ", from 9F2A" : ", from the AID";
    return contactless;
}

void summarise(const SessionState& state, SessionSummary& summary) {
    if (state.application) {
        summary.application = *state.application;
        if (state.label) *summary.application += ", label " + *state.label;
        summary.kernel = kernelOf(state);
    } else {
        summary.notShown.push_back("which application was selected (no SELECT of an AID)");
    }
    if (!summary.cardNumber) summary.notShown.push_back("the card number (no 5A or 57)");
    if (summary.verification.empty()) {
        summary.notShown.push_back("a VERIFY: the PIN, if any, was checked online or not at all");
    }
    if (summary.cryptograms.empty()) summary.notShown.push_back("a GENERATE AC");
    if (summary.terminalVerificationResults.empty()) {
        summary.notShown.push_back("the TVR (no 95 in GENERATE AC data split by a CDOL)");
    }
    if (!state.sawProcessingOptions) summary.notShown.push_back("a GET PROCESSING OPTIONS");
}

}  // namespace

SessionExplanation SessionExplainer::explain(const TraceRead& trace,
                                             const ExplainOptions& options) {
    SessionExplanation session;
    session.error = trace.error;
    SessionState state;
    std::optional<TraceExchange> previous;
    for (const TraceExchange& exchange : trace.exchanges) {
        state.exchange = session.exchanges.size();
        ExplainedExchange& explained = session.exchanges.emplace_back();
        std::optional<CommandApdu> apdu;
        if (exchange.command) {
            explained.line = exchange.command->line;
            apdu = CommandApdu::parse(exchange.command->bytes);
            if (apdu) {
                explained.command =
                    explainCommand(*apdu, exchange.command->bytes, state, session.summary, options);
            } else {
                ExplainedCommand unreadable;
                unreadable.hex = hex(exchange.command->bytes);
                unreadable.name = "MALFORMED COMMAND";
                unreadable.note =
                    "Not a command APDU: shorter than 4 bytes, or its Lc disagrees "
                    "with its length";
                explained.command = unreadable;
            }
            notePairing(session.exchanges, apdu, previous);
        } else {
            explained.line = exchange.response->line;
            explained.notes.push_back("A response without its command (lost from the trace)");
        }
        if (exchange.response) {
            explained.response = explainResponse(*exchange.response, apdu ? &*apdu : nullptr, state,
                                                 session.summary, options);
        } else {
            explained.notes.push_back("No response in the trace");
        }
        previous = exchange;
    }
    summarise(state, session.summary);
    state.oda.showSensitive = options.showSensitive;
    session.summary.oda = OdaVerifier::verify(
        state.oda, options.caKeys != nullptr ? *options.caKeys : CaKeyTable::builtIn());
    return session;
}

}  // namespace vastrel
