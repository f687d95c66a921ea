#pragma once

// What every function of the C interface shares: turning exceptions into status codes,
// reading the caller's (pointer, length) text, and writing text into the caller's buffer.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <exception>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "vastrel/Codec/BerReader.hpp"
#include "vastrel/Codec/HexDecoder.hpp"
#include "vastrel/Platform/Bytes.hpp"
#include "vastrel/Tags/PaymentScheme.hpp"
#include "vastrel/vastrel.h"

namespace vastrel::capi {

// A status with its message, thrown inside the interface and caught at its edge.
struct Failure {
    vastrel_status status;
    std::string message;
};

// Records message as this thread's last error and returns status.
vastrel_status fail(vastrel_status status, std::string_view message);

// The status for the exception in flight, with its message recorded.
vastrel_status statusOfCurrentException();

// Runs body, which returns a status, and turns anything it throws into a status: nothing
// thrown ever crosses the C boundary.
template <class Body>
vastrel_status guarded(Body&& body) noexcept {
    try {
        return body();
    } catch (...) {
        return statusOfCurrentException();
    }
}

// Throws NULL_ARGUMENT naming what when pointer is null.
inline void require(const void* pointer, const char* what) {
    if (pointer == nullptr)
        throw Failure{VASTREL_ERROR_NULL_ARGUMENT, std::string(what) + " is NULL"};
}

// The caller's text: NULL with length 0 is "", NULL with any other length a failure.
std::string_view textArgument(const char* text, std::size_t length, const char* what);

// The bytes at data; throws NULL_ARGUMENT when data is null and length is not 0.
inline std::span<const std::uint8_t> bytesArgument(const std::uint8_t* data, std::size_t length,
                                                   const char* what) {
    if (length != 0) require(data, what);
    return {data, length};
}

// Strict hex (two digits a byte, nothing else) as bytes; throws INVALID_HEX naming what, the
// fault and its offset, never the text.
Bytes hexArgument(std::string_view hex, const char* what);

// The INVALID_HEX failure for error in the text named what.
Failure hexFailure(const HexError& error, const char* what);

// Like textArgument, but NULL (whatever the length) is absent.
std::optional<std::string_view> optionalTextArgument(const char* text, std::size_t length);

enum class Terminator { None, Nul };

// Copies bytes (and a NUL with Terminator::Nul) into out, or reports the size needed; *length
// receives bytes.size() either way. A size query (out NULL, capacity 0) returns VASTREL_OK
// without touching the last error. See vastrel.h.
vastrel_status writeBytes(std::span<const std::uint8_t> bytes, std::uint8_t* out,
                          std::size_t capacity, std::size_t* length, Terminator terminator);

// writeBytes of text with its NUL.
vastrel_status writeText(std::string_view text, char* out, std::size_t capacity,
                         std::size_t* length);

// writeText of bytes as uppercase hex, written straight into out.
vastrel_status writeHex(std::span<const std::uint8_t> bytes, char* out, std::size_t capacity,
                        std::size_t* length);

// writeText of the value, or "" with VASTREL_ABSENT when there is none.
vastrel_status writeOptionalText(const std::optional<std::string_view>& text, char* out,
                                 std::size_t capacity, std::size_t* length);
vastrel_status writeOptionalText(const std::optional<std::string>& text, char* out,
                                 std::size_t capacity, std::size_t* length);

// The caller's input struct, which must declare a struct_size that covers every field this
// version reads: fields added in later versions will be read only where struct_size
// reaches them. nullptr stays nullptr.
template <class T>
const T* inputStruct(const T* input, const char* what) {
    if (input != nullptr && input->struct_size < sizeof(T)) {
        throw Failure{VASTREL_ERROR_INVALID_ARGUMENT, std::string(what) + ".struct_size is " +
                                                          std::to_string(input->struct_size) +
                                                          "; set it to sizeof the struct"};
    }
    return input;
}

// Writes full into the caller's struct out, whose struct_size says how much of it the
// caller has: the fields after struct_size, as far as both sizes reach.
template <class T>
vastrel_status writeStruct(const T& full, T* out, std::size_t callerSize, const char* what) {
    constexpr std::size_t kHeader = sizeof(std::size_t);
    if (callerSize < kHeader) {
        throw Failure{VASTREL_ERROR_INVALID_ARGUMENT,
                      std::string(what) + ".struct_size is not set"};
    }
    const std::size_t size = std::min(callerSize, sizeof(T));
    std::memcpy(reinterpret_cast<char*>(out) + kHeader,
                reinterpret_cast<const char*>(&full) + kHeader, size - kHeader);
    return VASTREL_OK;
}

// The name of tag in scheme's kernel from the full dictionary, or "" with VASTREL_ABSENT.
vastrel_status writeTagName(std::uint32_t tag, PaymentScheme scheme, char* out,
                            std::size_t capacity, std::size_t* length);

// The C value of a strict read's error kind.
int berErrorKindOf(BerErrorKind kind);

// Throws INVALID_ARGUMENT when index is not below count.
void requireIndex(std::size_t index, std::size_t count);

}  // namespace vastrel::capi
