#include "vastrel/Oda/OdaVerifier.hpp"

#include <algorithm>

#include "Certificates.hpp"
#include "Explain/DecoderParts.hpp"
#include "vastrel/Codec/BerReader.hpp"
#include "vastrel/Explain/FieldDecoders.hpp"
#include "vastrel/Oda/CaKeyCheck.hpp"

namespace vastrel {
namespace {

using oda::ByteSpan;
using oda::Element;

constexpr std::uint32_t kFormat1 = 0x80;
constexpr std::uint32_t kRecordTemplate = 0x70;
constexpr std::uint32_t kAip = 0x82;
constexpr std::uint32_t kAfl = 0x94;
constexpr std::uint32_t kCaIndex = 0x8F;
constexpr std::uint32_t kIssuerCertificate = 0x90;
constexpr std::uint32_t kIssuerRemainder = 0x92;
constexpr std::uint32_t kIssuerExponent = 0x9F32;
constexpr std::uint32_t kIccCertificate = 0x9F46;
constexpr std::uint32_t kIccExponent = 0x9F47;
constexpr std::uint32_t kIccRemainder = 0x9F48;
constexpr std::uint32_t kSignedStaticData = 0x93;
constexpr std::uint32_t kSignedDynamicData = 0x9F4B;
constexpr std::uint32_t kStaticDataTagList = 0x9F4A;
constexpr std::uint32_t kCid = 0x9F27;
constexpr std::uint32_t kTvr = 0x95;

constexpr std::uint8_t kAipSda = 0x40;
constexpr std::uint8_t kAipDda = 0x20;
constexpr std::uint8_t kAipCda = 0x01;
constexpr std::uint8_t kLastSfiOfTemplateRecords = 10;
constexpr std::uint8_t kFirstIssuerEcc = 0x12;  // an ECC issuer certificate's format
constexpr std::uint8_t kFirstIccEcc = 0x14;     // an ECC ICC certificate's format

struct Located {
    ByteSpan value;
    std::size_t exchange = 0;
};

// The card's data objects as the session returned them: the records, then the GET PROCESSING
// OPTIONS response. The first occurrence of a tag counts.
class CardElements {
  public:
    explicit CardElements(const OdaInput& input) {
        for (const OdaRecord& record : input.records)
            add(record.response);
        if (input.processingOptions) add(*input.processingOptions);
        hasProcessingOptions_ = input.processingOptions.has_value();
    }

    [[nodiscard]] std::optional<Located> find(std::uint32_t tag) const {
        for (const auto& [read, exchange] : reads_) {
            if (const BerNode* node = explain::firstPrimitive(read.nodes, tag)) {
                return Located{node->value, exchange};
            }
        }
        return std::nullopt;
    }

    [[nodiscard]] Element value(std::uint32_t tag) const {
        const auto found = find(tag);
        return found ? Element(found->value) : std::nullopt;
    }

    [[nodiscard]] std::string cardNumber() const {
        for (const auto& [read, exchange] : reads_) {
            if (const BerNode* holder = explain::cardNumberHolder(read.nodes)) {
                return explain::cardNumberDigits(*holder);
            }
        }
        return {};
    }

    // The read of input.records[index].
    [[nodiscard]] const BerReadResult& recordRead(std::size_t index) const {
        return reads_[index].first;
    }

    // The read of the GET PROCESSING OPTIONS response; nullptr when the trace has none.
    [[nodiscard]] const BerReadResult* processingOptionsRead() const {
        return hasProcessingOptions_ ? &reads_.back().first : nullptr;
    }

  private:
    void add(const OdaResponse& response) {
        reads_.emplace_back(BerReader::read(response.data), response.exchange);
    }
    std::vector<std::pair<BerReadResult, std::size_t>> reads_;
    bool hasProcessingOptions_ = false;
};

// The AIP and AFL of the GET PROCESSING OPTIONS response, in format 1 (80: AIP then AFL) or
// format 2 (77 with 82 and 94).
struct ProcessingOptions {
    Element aip;
    Element afl;
};

ProcessingOptions processingOptionsOf(const CardElements& card) {
    if (const BerReadResult* read = card.processingOptionsRead();
        read != nullptr && !read->nodes.empty() && read->nodes.front().tagNumber() == kFormat1 &&
        read->nodes.front().value.size() >= 2) {
        const ByteSpan value = read->nodes.front().value;
        return {value.first(2), value.subspan(2)};
    }
    return {card.value(kAip), card.value(kAfl)};
}

// The static data to be authenticated: the records the AFL marks for offline data
// authentication (a 70 template's value for SFI 1 to 10, the whole record above), then the
// AIP when the static data tag list asks for it.
struct StaticData {
    Bytes bytes;
    std::string problem;  // why it cannot be built; empty when it could
};

// The index in input.records of the record read first from sfi under number.
std::optional<std::size_t> recordOf(const OdaInput& input, std::uint8_t sfi, std::uint8_t number) {
    for (std::size_t i = 0; i < input.records.size(); ++i) {
        if (input.records[i].sfi == sfi && input.records[i].number == number) return i;
    }
    return std::nullopt;
}

StaticData staticDataOf(const OdaInput& input, const ProcessingOptions& options,
                        const CardElements& card) {
    StaticData data;
    if (!options.afl) return {{}, "no AFL (94) in the trace"};
    if (options.afl->size() % 4 != 0) return {{}, "the AFL is not a multiple of 4 bytes"};
    std::string missing;
    for (std::size_t i = 0; i < options.afl->size(); i += 4) {
        const ByteSpan entry = options.afl->subspan(i, 4);
        const std::uint8_t sfi = entry[0] >> 3;
        for (unsigned number = entry[1]; number < entry[1] + entry[3] && number <= 0xFF; ++number) {
            const std::string name =
                "SFI " + std::to_string(sfi) + " record " + std::to_string(number);
            const auto record = recordOf(input, sfi, static_cast<std::uint8_t>(number));
            if (!record) {
                missing += (missing.empty() ? "" : ", ") + name;
                continue;
            }
            const Bytes& bytes = input.records[*record].response.data;
            if (sfi > kLastSfiOfTemplateRecords) {
                data.bytes.insert(data.bytes.end(), bytes.begin(), bytes.end());
                continue;
            }
            const BerReadResult& read = card.recordRead(*record);
            const bool onlyTemplate =
                !read.nodes.empty() && read.nodes.front().tagNumber() == kRecordTemplate &&
                read.nodes.front().value.data() + read.nodes.front().value.size() ==
                    bytes.data() + bytes.size();
            if (!onlyTemplate) return {{}, name + " is not one 70 template"};
            data.bytes.insert(data.bytes.end(), read.nodes.front().value.begin(),
                              read.nodes.front().value.end());
        }
    }
    if (!missing.empty()) return {{}, "records missing: " + missing};
    if (const Element tags = card.value(kStaticDataTagList)) {
        const bool onlyAip = tags->size() == 1 && (*tags)[0] == kAip;
        if (!onlyAip) return {{}, "the static data tag list (9F4A) holds tags other than 82"};
        if (!options.aip) return {{}, "9F4A asks for the AIP, which the trace does not show"};
        data.bytes.insert(data.bytes.end(), options.aip->begin(), options.aip->end());
    }
    return data;
}

std::optional<int> transactionMonth(const std::optional<Bytes>& date) {
    if (!date || date->size() != 3) return std::nullopt;
    const auto yy = explain::smallBcdNumber(ByteSpan(*date).first(1), 99);
    const auto mm = explain::smallBcdNumber(ByteSpan(*date).subspan(1, 1), 12);
    if (!yy || !mm || *mm == 0) return std::nullopt;
    return oda::monthNumber(*yy, *mm);
}

// An ECC certificate is not recovered: it is sent as it is, its format byte first, and its
// length is not the RSA key's.
bool isEcc(ByteSpan certificate, std::uint8_t format, std::size_t rsaModulusLength) {
    return !certificate.empty() && certificate.front() == format &&
           certificate.size() != rsaModulusLength;
}

OdaCheck caKeyCheck(const CaPublicKey& key) {
    switch (key.origin) {
        case CaKeyOrigin::Verified:
            return {"CA key checksum", true, "built in; its published checksum verifies"};
        case CaKeyOrigin::Unverified:
            return {"CA key checksum", std::nullopt, "built in; no checksum was published"};
        case CaKeyOrigin::Supplied:
            break;
    }
    OdaCheck checksum = CaKeyCheck::check(key).front();
    checksum.name = "CA key checksum";
    return checksum;
}

// Everything one verification works with, and the chain of steps built once for all methods.
class Verification {
  public:
    Verification(const OdaInput& input, const CaKeyTable& keys)
        : input_(input), keys_(keys), card_(input), options_(processingOptionsOf(card_)) {
        context_.cardNumber = card_.cardNumber();
        context_.transactionMonth = transactionMonth(input.transactionDate);
        context_.showSensitive = input.showSensitive;
        staticData_ = staticDataOf(input, options_, card_);
    }

    OdaReport run() {
        OdaReport report;
        terminalFindings(report);
        const bool aipKnown = options_.aip && options_.aip->size() == 2;
        const std::uint8_t aip = aipKnown ? (*options_.aip)[0] : 0;
        const bool cda = std::ranges::any_of(input_.generateAcs, &OdaGenerateAc::cdaRequested);
        const bool dda = input_.internalAuthenticate.has_value();
        const bool sda = card_.find(kSignedStaticData).has_value();
        // The methods the trace shows; else the one a terminal would choose by the AIP.
        if (cda || (!dda && !sda && (aip & kAipCda) != 0)) judgeCda(report);
        if (dda || (!cda && !sda && (aip & (kAipCda | kAipDda)) == kAipDda)) judgeDda(report);
        if (sda || (!cda && !dda && (aip & (kAipCda | kAipDda | kAipSda)) == kAipSda)) {
            judgeSda(report);
        }
        if (report.methods.empty() && aipKnown) {
            report.methods.push_back({"none", OdaVerdict::NotPossible,
                                      "the AIP names no method of offline data authentication"});
        }
        for (OdaStep& step : steps_)
            report.steps.push_back(std::move(step));
        return report;
    }

  private:
    void terminalFindings(OdaReport& report) const {
        const Bytes& tvr = input_.terminalVerificationResults.value_or(Bytes{});
        if (tvr.size() != 5) return;
        const Bytes firstByte{tvr[0], 0, 0, 0, 0};
        report.terminalFindings = FieldDecoders::decode(kTvr, firstByte);
        if (report.terminalFindings == Findings{"no bit set"}) {
            report.terminalFindings = {"no offline data authentication finding"};
        }
    }

    // The CA key named by the AID's RID and 8F; why not, when it cannot be.
    std::string caKeyProblem() const {
        if (input_.aid.size() < CaPublicKey::kRidLength) return "no application was selected";
        const Element index = card_.value(kCaIndex);
        if (!index || index->size() != 1) return "no CA public key index (8F) in the trace";
        const auto found = keys_.find(ByteSpan(input_.aid).first(5), (*index)[0]);
        if (found.empty()) {
            return "CA key " + explain::hex(ByteSpan(input_.aid).first(5)) + " " +
                   explain::hex(*index) + " is not in the key table";
        }
        return {};
    }

    // The issuer certificate, recovered once: with the first CA key of the RID and index whose
    // recovery reads (several keys may share them).
    std::optional<oda::PublicKey> issuerKey(std::string& problem) {
        if (issuerDone_) {
            problem = issuerProblem_;
            return issuerKey_;
        }
        issuerDone_ = true;
        problem = issuerProblem_ = caKeyProblem();
        const auto certificate = card_.find(kIssuerCertificate);
        if (problem.empty() && !certificate) {
            problem = issuerProblem_ = "no issuer public key certificate (90) in the trace";
        }
        if (!problem.empty()) return std::nullopt;
        const ByteSpan rid = ByteSpan(input_.aid).first(5);
        const std::uint8_t index = (*card_.value(kCaIndex))[0];
        const auto candidates = keys_.find(rid, index);
        if (isEcc(certificate->value, kFirstIssuerEcc, candidates.front()->modulus.size())) {
            OdaStep step;
            step.object = "issuer certificate";
            step.fields = {{"Format", explain::hex(certificate->value.first(1))}};
            step.checks = {{"algorithm", std::nullopt, "an ECC (XDA) certificate: not checked"}};
            issuerIndex_ = addStep(std::move(step), certificate->exchange);
            problem = issuerProblem_ =
                "the issuer certificate is an ECC (XDA) certificate: not checked";
            return std::nullopt;
        }
        std::optional<oda::Recovered> chosen;
        const CaPublicKey* chosenKey = nullptr;
        for (const CaPublicKey* key : candidates) {
            oda::Recovered recovered = oda::issuerCertificate(
                {key->modulus, key->exponent}, certificate->value, card_.value(kIssuerRemainder),
                card_.value(kIssuerExponent), context_);
            if (!chosen || (recovered.opened && !chosen->opened)) {
                chosen = std::move(recovered);
                chosenKey = key;
            }
            if (chosen->opened) break;  // the key that signed it
        }
        OdaStep& step = chosen->step;
        std::string keyName = chosenKey->name();
        if (candidates.size() > 1) {
            keyName += " (one of " + std::to_string(candidates.size()) + " keys of that name)";
        }
        step.fields.insert(step.fields.begin(), {"CA key", keyName});
        step.checks.insert(step.checks.begin(), caKeyCheck(*chosenKey));
        issuerIndex_ = addStep(std::move(step), certificate->exchange);
        issuerKey_ = chosen->key;
        if (!issuerKey_) problem = issuerProblem_ = failureOf(*issuerIndex_);
        return issuerKey_;
    }

    std::optional<oda::PublicKey> iccKey(std::string& problem) {
        if (iccDone_) {
            problem = iccProblem_;
            return iccKey_;
        }
        iccDone_ = true;
        const auto issuer = issuerKey(problem);
        const auto certificate = card_.find(kIccCertificate);
        if (problem.empty() && !certificate) {
            problem = "no ICC public key certificate (9F46) in the trace";
        }
        if (problem.empty() && isEcc(certificate->value, kFirstIccEcc, issuer->modulus.size())) {
            problem = "the ICC certificate is an ECC (XDA) certificate: not checked";
        }
        if (!problem.empty()) {
            iccProblem_ = problem;
            return std::nullopt;
        }
        oda::Recovered recovered =
            oda::iccCertificate(*issuer, certificate->value, card_.value(kIccRemainder),
                                card_.value(kIccExponent), staticDataElement(), context_);
        iccIndex_ = addStep(std::move(recovered.step), certificate->exchange);
        iccKey_ = recovered.key;
        if (!iccKey_) problem = iccProblem_ = failureOf(*iccIndex_);
        return iccKey_;
    }

    Element staticDataElement() const {
        return staticData_.problem.empty() ? Element(staticData_.bytes) : std::nullopt;
    }

    std::size_t addStep(OdaStep step, std::size_t exchange) {
        step.exchange = exchange;
        if (input_.aid.size() >= CaPublicKey::kRidLength) {
            step.keyRid = explain::hex(ByteSpan(input_.aid).first(5));
        }
        if (const Element index = card_.value(kCaIndex); index && !index->empty()) {
            step.keyIndex = explain::hex(index->first(1));
        }
        steps_.push_back(std::move(step));
        return steps_.size() - 1;
    }

    std::string failureOf(std::size_t step) const { return steps_[step].firstFailure(); }

    // The verdict of a method whose chain ends at step (or could not reach one).
    void judge(OdaReport& report, std::string method, const std::string& problem,
               std::initializer_list<std::optional<std::size_t>> chain) {
        for (const auto& index : chain) {
            if (index && !steps_[*index].passed()) {
                report.methods.push_back(
                    {std::move(method), OdaVerdict::Failed, failureOf(*index)});
                return;
            }
        }
        if (!problem.empty()) {
            report.methods.push_back({std::move(method), OdaVerdict::NotPossible, problem});
            return;
        }
        if (!staticData_.problem.empty()) {
            report.methods.push_back(
                {std::move(method), OdaVerdict::NotPossible, staticData_.problem});
            return;
        }
        report.methods.push_back({std::move(method), OdaVerdict::Passed, ""});
    }

    void judgeSda(OdaReport& report) {
        std::string problem;
        const auto issuer = issuerKey(problem);
        const auto signature = card_.find(kSignedStaticData);
        if (problem.empty() && !signature) problem = "no signed static data (93) in the trace";
        std::optional<std::size_t> step;
        if (problem.empty()) {
            step = addStep(oda::signedStaticData(*issuer, signature->value, staticDataElement()),
                           signature->exchange);
        }
        judge(report, "SDA", problem, {issuerIndex_, step});
    }

    void judgeDda(OdaReport& report) {
        std::string problem;
        const auto icc = iccKey(problem);
        const auto& authenticate = input_.internalAuthenticate;
        if (problem.empty() && !authenticate) {
            problem = "no INTERNAL AUTHENTICATE in the trace";
        }
        std::optional<std::size_t> step;
        if (problem.empty()) {
            const BerReadResult read = BerReader::read(authenticate->response.data);
            // Format 1 carries the signature as the whole value of 80; format 2 in 9F4B.
            const BerNode* signature =
                !read.nodes.empty() && read.nodes.front().tagNumber() == kFormat1
                    ? &read.nodes.front()
                    : explain::firstPrimitive(read.nodes, kSignedDynamicData);
            if (signature == nullptr) {
                problem = "the INTERNAL AUTHENTICATE response holds no signed dynamic data";
            } else {
                step = addStep(oda::signedDynamicData(*icc, signature->value,
                                                      authenticate->commandData, std::nullopt),
                               authenticate->response.exchange);
            }
        }
        judge(report, "DDA", problem, {issuerIndex_, iccIndex_, step});
    }

    void judgeCda(OdaReport& report) {
        std::string problem;
        const auto icc = iccKey(problem);
        Bytes cdolData;
        std::optional<std::size_t> step;
        for (const OdaGenerateAc& generateAc : input_.generateAcs) {
            cdolData.insert(cdolData.end(), generateAc.commandData.begin(),
                            generateAc.commandData.end());
            if (!generateAc.cdaRequested || !problem.empty()) continue;
            const BerReadResult read = BerReader::read(generateAc.response.data);
            const BerNode* signature = explain::firstPrimitive(read.nodes, kSignedDynamicData);
            if (signature == nullptr) {
                problem = "the GENERATE AC response holds no signed dynamic data (9F4B)";
            } else if (!generateAc.unpredictableNumber) {
                problem = "no unpredictable number (9F37) in the GENERATE AC data";
            } else {
                const BerNode* cid = explain::firstPrimitive(read.nodes, kCid);
                const oda::CdaExpectation expected{transactionDataHash(cdolData, read.nodes),
                                                   cid != nullptr && cid->value.size() == 1
                                                       ? std::optional<std::uint8_t>(cid->value[0])
                                                       : std::nullopt};
                step = addStep(oda::signedDynamicData(*icc, signature->value,
                                                      *generateAc.unpredictableNumber, expected),
                               generateAc.response.exchange);
            }
            break;  // the first GENERATE AC that asked for CDA
        }
        if (problem.empty() && !step) problem = "no GENERATE AC asked for CDA";
        judge(report, "CDA", problem, {issuerIndex_, iccIndex_, step});
    }

    // SHA-1 over the PDOL data, the CDOL data sent so far, and every data object of the
    // response's template except the signature, tag, length and value, in the order returned.
    oda::Sha1Digest transactionDataHash(const Bytes& cdolData,
                                        const std::vector<BerNode>& response) const {
        oda::Sha1 sha;
        if (input_.pdolData) sha.update(*input_.pdolData);
        sha.update(cdolData);
        for (const BerNode& node : response) {
            if (node.depth != 1 || node.tagNumber() == kSignedDynamicData) continue;
            const std::uint8_t* end = node.value.data() + node.value.size();
            sha.update({node.tag.data(), static_cast<std::size_t>(end - node.tag.data())});
        }
        return sha.finish();
    }

    const OdaInput& input_;
    const CaKeyTable& keys_;
    CardElements card_;
    ProcessingOptions options_;
    oda::CardContext context_;
    StaticData staticData_;
    std::vector<OdaStep> steps_;
    bool issuerDone_ = false;
    std::string issuerProblem_;
    std::optional<oda::PublicKey> issuerKey_;
    std::optional<std::size_t> issuerIndex_;
    bool iccDone_ = false;
    std::string iccProblem_;
    std::optional<oda::PublicKey> iccKey_;
    std::optional<std::size_t> iccIndex_;
};

}  // namespace

std::string_view describe(OdaVerdict verdict) noexcept {
    switch (verdict) {
        case OdaVerdict::Passed:
            return "passed";
        case OdaVerdict::Failed:
            return "failed";
        case OdaVerdict::NotPossible:
            break;
    }
    return "not possible";
}

bool OdaStep::passed() const {
    return std::ranges::none_of(checks, [](const OdaCheck& c) { return c.ok == false; });
}

std::string OdaStep::firstFailure() const {
    for (const OdaCheck& c : checks) {
        if (c.ok == false) return object + ": " + c.name;
    }
    return {};
}

OdaReport OdaVerifier::verify(const OdaInput& input, const CaKeyTable& keys) {
    return Verification(input, keys).run();
}

}  // namespace vastrel
