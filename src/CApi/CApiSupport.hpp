#pragma once

// What every function of the C interface shares: turning exceptions into status codes,
// reading the caller's (pointer, length) text, and writing text into the caller's buffer.

#include <cstddef>
#include <cstdint>
#include <exception>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "vastrel/Platform/Bytes.hpp"
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

// Like textArgument, but NULL (whatever the length) is absent.
std::optional<std::string_view> optionalTextArgument(const char* text, std::size_t length);

enum class Terminator { None, Nul };

// Copies bytes (and a NUL with Terminator::Nul) into out, or reports the size needed; *length
// receives bytes.size() either way. See vastrel.h.
vastrel_status writeBytes(std::span<const std::uint8_t> bytes, std::uint8_t* out,
                          std::size_t capacity, std::size_t* length, Terminator terminator);

// writeBytes of text with its NUL.
vastrel_status writeText(std::string_view text, char* out, std::size_t capacity,
                         std::size_t* length);

// writeText of the value, or "" with VASTREL_ABSENT when there is none.
vastrel_status writeOptionalText(const std::optional<std::string>& text, char* out,
                                 std::size_t capacity, std::size_t* length);

// Throws INVALID_ARGUMENT when index is not below count.
void requireIndex(std::size_t index, std::size_t count);

}  // namespace vastrel::capi
