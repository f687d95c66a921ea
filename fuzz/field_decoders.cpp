// Every field decoder on every value: the input's first two bytes pick the scheme and the
// currency, the rest is the value. A decoder either has findings or is not there.
#include <cstdint>

#include "FuzzSupport.hpp"
#include "vastrel/Explain/FieldDecoders.hpp"

using namespace vastrel;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) return 0;
    DecodeContext context;
    context.scheme = static_cast<PaymentScheme>(data[0] % 15);
    context.showSensitive = (data[0] & 0x80) != 0;
    if ((data[1] & 0x80) != 0) context.currency = static_cast<std::uint16_t>(data[1] * 7);
    if ((data[1] & 0x40) != 0) context.currencyExponent = data[1] & 0x0F;
    const std::span<const std::uint8_t> value(data + 2, size - 2);
    static constexpr std::uint32_t kTags[] = {
        0x4F,   0x50,   0x57,   0x5A,   0x5F24, 0x5F25, 0x5F28,   0x5F2A,  0x5F2D, 0x5F30, 0x81,
        0x82,   0x84,   0x8E,   0x95,   0x9A,   0x9B,   0x9C,     0x9F02,  0x9F03, 0x9F04, 0x9F06,
        0x9F07, 0x9F0D, 0x9F10, 0x9F12, 0x9F1A, 0x9F21, 0x9F27,   0x9F33,  0x9F34, 0x9F35, 0x9F39,
        0x9F40, 0x9F42, 0x9F4E, 0x9F66, 0x9F6B, 0x9F6C, 0xDF8120, 0xDF8123};
    for (const auto tag : kTags) {
        const Findings findings = FieldDecoders::decode(tag, value, context);
        FUZZ_CHECK(findings.empty() != FieldDecoders::has(tag, context.scheme));
    }
    return 0;
}
