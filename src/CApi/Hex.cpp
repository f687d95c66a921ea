#include "CApiSupport.hpp"
#include "vastrel/Codec/TLVUtility.hpp"

using namespace vastrel;
using namespace vastrel::capi;

extern "C" {

vastrel_status vastrel_hex_to_bytes(const char* hex, size_t hex_length, uint8_t* out,
                                    size_t out_capacity, size_t* out_length) {
    return guarded([&] {
        const Bytes bytes = hexArgument(textArgument(hex, hex_length, "hex"), "hex");
        return writeBytes(bytes, out, out_capacity, out_length, Terminator::None);
    });
}

vastrel_status vastrel_bytes_to_hex(const uint8_t* bytes, size_t length, char* out,
                                    size_t out_capacity, size_t* out_length) {
    return guarded([&] {
        return writeText(TLVUtility::dataToHexString(bytesArgument(bytes, length, "bytes")), out,
                         out_capacity, out_length);
    });
}

vastrel_status vastrel_text_to_hex(const char* text, size_t length, char* out, size_t out_capacity,
                                   size_t* out_length) {
    return guarded([&] {
        return writeText(TLVUtility::stringToHex(textArgument(text, length, "text")), out,
                         out_capacity, out_length);
    });
}

vastrel_status vastrel_hex_to_text(const char* hex, size_t hex_length, char* out,
                                   size_t out_capacity, size_t* out_length) {
    return guarded([&] {
        return writeText(TLVUtility::hexToAscii(textArgument(hex, hex_length, "hex")), out,
                         out_capacity, out_length);
    });
}

}  // extern "C"
