#include "Certificates.hpp"

#include <algorithm>

#include "Explain/DecoderParts.hpp"
#include "vastrel/Tags/CardDataPolicy.hpp"

namespace vastrel::oda {
namespace {

constexpr std::uint8_t kHeader = 0x6A;
constexpr std::uint8_t kTrailer = 0xBC;
constexpr std::uint8_t kPadding = 0xBB;
constexpr std::uint8_t kSha1 = 0x01;
constexpr std::uint8_t kRsa = 0x01;
constexpr std::size_t kHashLength = 20;

constexpr std::uint8_t kIssuerFormat = 0x02;
constexpr std::uint8_t kStaticFormat = 0x03;
constexpr std::uint8_t kIccFormat = 0x04;
constexpr std::uint8_t kDynamicFormat = 0x05;

// Bytes of each layout outside the public key or the padding: header, fixed fields, hash and
// trailer.
constexpr std::size_t kIssuerOverhead = 36;
constexpr std::size_t kIccOverhead = 42;
constexpr std::size_t kStaticOverhead = 26;
constexpr std::size_t kDynamicOverhead = 25;

using explain::hex;

std::string byteCount(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " byte" : " bytes");
}

void field(OdaStep& step, std::string name, std::string value) {
    step.fields.push_back({std::move(name), std::move(value)});
}

void check(OdaStep& step, std::string name, std::optional<bool> ok, std::string detail) {
    step.checks.push_back({std::move(name), ok, std::move(detail)});
}

// The digits of packed BCD up to its F padding; nothing when a nibble is neither a digit nor
// part of the trailing padding.
std::optional<std::string> paddedDigits(ByteSpan bytes) {
    std::string digits;
    bool padding = false;
    for (const std::uint8_t byte : bytes) {
        for (const int nibble : {byte >> 4, byte & 0x0F}) {
            if (nibble == 0x0F) {
                padding = true;
            } else if (padding || nibble > 9) {
                return std::nullopt;
            } else {
                digits += static_cast<char>('0' + nibble);
            }
        }
    }
    return digits;
}

// The frame every object shares: its length against the key's, the recovery, the header,
// the format and the trailer. The recovered bytes, or nothing when what follows would only
// read noise (a wrong length, header or trailer).
std::optional<Bytes> open(const PublicKey& key, ByteSpan object, std::uint8_t format,
                          std::size_t overhead, OdaStep& step) {
    const std::size_t size = object.size();
    if (size != key.modulus.size() || size < overhead) {
        check(step, "length", false,
              std::to_string(size) + " bytes; the key's modulus has " +
                  std::to_string(key.modulus.size()) +
                  (size < overhead ? " and the layout needs " + std::to_string(overhead) : ""));
        return std::nullopt;
    }
    check(step, "length", true, std::to_string(size) + " bytes, as the key's modulus");
    std::optional<Bytes> recovered = rsaPublic(key.modulus, key.exponent, object);
    if (!recovered) {
        check(step, "recovery", false, "not below the key's modulus, or the modulus is even");
        return std::nullopt;
    }
    const Bytes& x = *recovered;
    field(step, "Header", hex(x.front()));
    field(step, "Format", hex(x[1]));
    field(step, "Trailer", hex(x.back()));
    check(step, "header", x.front() == kHeader, hex(x.front()) + ", expected 6A");
    check(step, "trailer", x.back() == kTrailer, hex(x.back()) + ", expected BC");
    if (x.front() != kHeader || x.back() != kTrailer) return std::nullopt;
    check(step, "format", x[1] == format, hex(x[1]) + ", expected " + hex(format));
    return recovered;
}

void algorithms(OdaStep& step, std::uint8_t hash, std::optional<std::uint8_t> key) {
    field(step, "Hash algorithm", hex(hash) + (hash == kSha1 ? " (SHA-1)" : ""));
    check(step, "hash algorithm", hash == kSha1, hex(hash) + (hash == kSha1 ? "" : ": not SHA-1"));
    if (!key) return;
    field(step, "Public key algorithm", hex(*key) + (*key == kRsa ? " (RSA)" : ""));
    check(step, "public key algorithm", *key == kRsa,
          hex(*key) + (*key == kRsa ? "" : ": not RSA"));
}

// SHA-1 over the recovered bytes from the format to the end of the key or padding, then the
// parts the layout adds, against the hash the object carries. Not checked when the static
// data to be authenticated, the last part, is not known.
void hash(OdaStep& step, const Bytes& x, std::initializer_list<ByteSpan> parts,
          bool staticDataKnown = true) {
    const std::size_t n = x.size();
    const ByteSpan carried = ByteSpan(x).subspan(n - 1 - kHashLength, kHashLength);
    if (!staticDataKnown) {
        field(step, "Hash", hex(carried));
        check(step, "hash", std::nullopt,
              "the static data to be authenticated is incomplete: records are missing");
        return;
    }
    Sha1 sha;
    sha.update(ByteSpan(x).subspan(1, n - 2 - kHashLength));
    for (const ByteSpan part : parts)
        sha.update(part);
    const Sha1Digest computed = sha.finish();
    field(step, "Hash", hex(carried));
    const bool ok = std::ranges::equal(computed, carried);
    check(step, "hash", ok, ok ? "recomputed hash matches" : "recomputed " + hex(computed));
}

std::string monthText(int number) {
    const int month = number % 12 + 1;
    // Built in steps: GCC 12 reports a false -Wrestrict on the chained form.
    std::string text = month < 10 ? "0" : "";
    text += std::to_string(month);
    text += '/';
    text += std::to_string(number / 12);
    return text;
}

// A certificate's MMYY expiry against the transaction's month: valid through its last day.
void expiry(OdaStep& step, ByteSpan mmyy, const CardContext& card) {
    const auto digits = paddedDigits(mmyy);
    const int mm = digits && digits->size() == 4 ? std::stoi(digits->substr(0, 2)) : 0;
    if (mm < 1 || mm > 12) {
        field(step, "Expiry", hex(mmyy));
        check(step, "expiry", false, hex(mmyy) + " is not a month (MMYY)");
        return;
    }
    const int certificate = monthNumber(std::stoi(digits->substr(2, 2)), mm);
    field(step, "Expiry", monthText(certificate));
    if (!card.transactionMonth) {
        check(step, "expiry", std::nullopt, "no transaction date (9A) in the trace");
        return;
    }
    const bool valid = certificate >= *card.transactionMonth;
    check(step, "expiry", valid,
          std::string(valid ? "valid through " : "expired: valid through ") +
              monthText(certificate) + ", transaction in " + monthText(*card.transactionMonth));
}

// The public key a certificate carries: its leading part and, when it does not fit, the
// remainder element; the exponent element. Checks that the lengths agree.
std::optional<PublicKey> certifiedKey(OdaStep& step, ByteSpan leading, std::size_t keyLength,
                                      std::size_t exponentLength, Element remainder,
                                      Element exponent) {
    field(step, "Public key length", byteCount(keyLength));
    field(step, "Exponent length", byteCount(exponentLength));
    PublicKey key;
    std::string problem;
    if (keyLength <= leading.size()) {
        const ByteSpan padding = leading.subspan(keyLength);
        if (!std::ranges::all_of(padding, [](std::uint8_t b) { return b == kPadding; })) {
            problem = "the key's padding is not all BB";
        } else if (remainder && !remainder->empty()) {
            problem = "the key fits the certificate, yet a remainder is given";
        }
        const ByteSpan modulus = leading.first(keyLength);
        key.modulus.assign(modulus.begin(), modulus.end());
    } else {
        const std::size_t missing = keyLength - leading.size();
        if (!remainder || remainder->size() != missing) {
            problem = "the remainder should have " + std::to_string(missing) + " bytes, " +
                      (remainder ? "has " + std::to_string(remainder->size()) : "is absent");
        } else {
            key.modulus.assign(leading.begin(), leading.end());
            key.modulus.insert(key.modulus.end(), remainder->begin(), remainder->end());
        }
    }
    if (problem.empty() && (!exponent || exponent->size() != exponentLength)) {
        problem = "the exponent element should have " + std::to_string(exponentLength) +
                  " bytes, " + (exponent ? "has " + std::to_string(exponent->size()) : "is absent");
    }
    check(step, "key lengths", problem.empty(), problem.empty() ? "consistent" : problem);
    if (!problem.empty()) return std::nullopt;
    key.exponent.assign(exponent->begin(), exponent->end());
    return key;
}

ByteSpan orEmpty(Element element) { return element ? *element : ByteSpan(); }

bool allPadding(ByteSpan bytes) {
    return std::ranges::all_of(bytes, [](std::uint8_t b) { return b == kPadding; });
}

}  // namespace

int monthNumber(int yy, int mm) { return (yy < 50 ? 2000 + yy : 1900 + yy) * 12 + mm - 1; }

Recovered issuerCertificate(const PublicKey& ca, ByteSpan certificate, Element remainder,
                            Element exponent, const CardContext& card) {
    Recovered result;
    OdaStep& step = result.step;
    step.object = "issuer certificate";
    const auto x = open(ca, certificate, kIssuerFormat, kIssuerOverhead, step);
    if (!x) return result;
    result.opened = true;
    const ByteSpan bytes(*x);
    const auto identifier = paddedDigits(bytes.subspan(2, 4));
    field(step, "Issuer identifier", identifier ? *identifier : hex(bytes.subspan(2, 4)));
    if (!identifier || identifier->size() < 3) {
        check(step, "issuer identifier", false, "not 3 to 8 digits padded with F");
    } else if (card.cardNumber.empty()) {
        check(step, "issuer identifier", std::nullopt, "no card number in the trace");
    } else {
        const bool ok = card.cardNumber.starts_with(*identifier);
        check(step, "issuer identifier", ok,
              ok ? "the card number starts with it" : "the card number does not start with it");
    }
    expiry(step, bytes.subspan(6, 2), card);
    field(step, "Serial number", hex(bytes.subspan(8, 3)));
    algorithms(step, bytes[11], bytes[12]);
    result.key = certifiedKey(step, bytes.subspan(15, bytes.size() - kIssuerOverhead), bytes[13],
                              bytes[14], remainder, exponent);
    hash(step, *x, {orEmpty(remainder), orEmpty(exponent)});
    return result;
}

Recovered iccCertificate(const PublicKey& issuer, ByteSpan certificate, Element remainder,
                         Element exponent, Element staticData, const CardContext& card) {
    Recovered result;
    OdaStep& step = result.step;
    step.object = "icc certificate";
    const auto x = open(issuer, certificate, kIccFormat, kIccOverhead, step);
    if (!x) return result;
    result.opened = true;
    const ByteSpan bytes(*x);
    const auto number = paddedDigits(bytes.subspan(2, 10));
    std::string shown = number ? *number : hex(bytes.subspan(2, 10));
    if (!card.showSensitive) CardDataPolicy::maskValue(0x5A, PaymentScheme::Any, shown);
    field(step, "Card number", shown);
    if (!number || number->empty()) {
        check(step, "card number", false, "not digits padded with F");
    } else if (card.cardNumber.empty()) {
        check(step, "card number", std::nullopt, "no card number in the trace");
    } else {
        const bool ok = *number == card.cardNumber;
        check(step, "card number", ok,
              ok ? "the card's number" : "differs from the card number the records hold");
    }
    expiry(step, bytes.subspan(12, 2), card);
    field(step, "Serial number", hex(bytes.subspan(14, 3)));
    algorithms(step, bytes[17], bytes[18]);
    result.key = certifiedKey(step, bytes.subspan(21, bytes.size() - kIccOverhead), bytes[19],
                              bytes[20], remainder, exponent);
    hash(step, *x, {orEmpty(remainder), orEmpty(exponent), orEmpty(staticData)},
         staticData.has_value());
    return result;
}

OdaStep signedStaticData(const PublicKey& issuer, ByteSpan signature, Element staticData) {
    OdaStep step;
    step.object = "signed static data";
    const auto x = open(issuer, signature, kStaticFormat, kStaticOverhead, step);
    if (!x) return step;
    const ByteSpan bytes(*x);
    algorithms(step, bytes[2], std::nullopt);
    field(step, "Data authentication code", hex(bytes.subspan(3, 2)));
    const bool padded = allPadding(bytes.subspan(5, bytes.size() - kStaticOverhead));
    check(step, "padding", padded, padded ? "all BB" : "not all BB");
    hash(step, *x, {orEmpty(staticData)}, staticData.has_value());
    return step;
}

OdaStep signedDynamicData(const PublicKey& icc, ByteSpan signature, ByteSpan terminalData,
                          const std::optional<CdaExpectation>& cda) {
    OdaStep step;
    step.object = "signed dynamic data";
    field(step, "Method", cda ? "CDA" : "DDA");
    const auto x = open(icc, signature, kDynamicFormat, kDynamicOverhead, step);
    if (!x) return step;
    const ByteSpan bytes(*x);
    algorithms(step, bytes[2], std::nullopt);
    const std::size_t dynamicLength = bytes[3];
    const std::size_t room = bytes.size() - kDynamicOverhead;
    if (dynamicLength > room) {
        check(step, "dynamic data length", false,
              std::to_string(dynamicLength) + " bytes; the signature has room for " +
                  std::to_string(room));
        return step;
    }
    const ByteSpan dynamic = bytes.subspan(4, dynamicLength);
    const bool padded = allPadding(bytes.subspan(4 + dynamicLength, room - dynamicLength));
    check(step, "padding", padded, padded ? "all BB" : "not all BB");
    const std::size_t numberLength = dynamic.empty() ? 0 : dynamic[0];
    const bool numberFits = numberLength >= 2 && numberLength <= 8 && numberLength < dynamic.size();
    check(step, "ICC dynamic number", numberFits,
          numberFits ? byteCount(numberLength)
                     : "its length " + std::to_string(numberLength) +
                           " is not 2 to 8 bytes within the dynamic data");
    if (numberFits) field(step, "ICC dynamic number", hex(dynamic.subspan(1, numberLength)));
    if (cda && numberFits) {
        constexpr std::size_t kCidAcHash = 1 + 8 + kHashLength;
        const std::size_t at = 1 + numberLength;
        if (dynamic.size() < at + kCidAcHash) {
            check(step, "CDA dynamic data", false,
                  "too short for the CID, the cryptogram and the transaction data hash");
        } else {
            const std::uint8_t cid = dynamic[at];
            field(step, "Cryptogram information data", hex(cid));
            field(step, "Application cryptogram", hex(dynamic.subspan(at + 1, 8)));
            const ByteSpan carried = dynamic.subspan(at + 9, kHashLength);
            field(step, "Transaction data hash", hex(carried));
            if (cda->cid) {
                check(step, "CID", cid == *cda->cid,
                      cid == *cda->cid ? "as in the response"
                                       : "the response says " + hex(*cda->cid));
            } else {
                check(step, "CID", std::nullopt, "the response holds no 9F27");
            }
            const bool same = std::ranges::equal(carried, cda->transactionDataHash);
            check(step, "transaction data hash", same,
                  same ? "matches the hash of the PDOL and CDOL data and the response"
                       : "recomputed " + hex(cda->transactionDataHash));
        }
    }
    hash(step, *x, {terminalData});
    return step;
}

}  // namespace vastrel::oda
