#include "CApiSupport.hpp"
#include "vastrel/Codec/HexDecoder.hpp"

using namespace vastrel;
using namespace vastrel::capi;

extern "C" {

vastrel_status vastrel_hex_to_bytes(const char* hex, size_t hex_length, uint8_t* out,
                                    size_t out_capacity, size_t* out_length) {
    return guarded([&] {
        const std::string_view text = textArgument(hex, hex_length, "hex");
        // Checked before the size query answers, so that a query of bad hex fails too.
        if (out == nullptr || out_capacity < text.size() / 2) {
            const Bytes bytes = hexArgument(text, "hex");
            return writeBytes(bytes, out, out_capacity, out_length, Terminator::None);
        }
        // Room enough: decoded straight into the caller's buffer.
        if (const auto error = HexDecoder::decode(text, {out, text.size() / 2})) {
            throw hexFailure(*error, "hex");
        }
        if (out_length != nullptr) *out_length = text.size() / 2;
        return VASTREL_OK;
    });
}

vastrel_status vastrel_hex_clean(const char* text, size_t length, char* out, size_t out_capacity,
                                 size_t* out_length) {
    return guarded([&] {
        auto cleaned = HexDecoder::clean(textArgument(text, length, "text"), ":");
        if (cleaned.error) throw hexFailure(*cleaned.error, "text");
        return writeText(cleaned.digits, out, out_capacity, out_length);
    });
}

vastrel_status vastrel_bytes_to_hex(const uint8_t* bytes, size_t length, char* out,
                                    size_t out_capacity, size_t* out_length) {
    return guarded([&] {
        return writeHex(bytesArgument(bytes, length, "bytes"), out, out_capacity, out_length);
    });
}

}  // extern "C"
