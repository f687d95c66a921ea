#include <cstring>
#include <new>
#include <stdexcept>
#include <string>

#include "CApiSupport.hpp"
#include "vastrel/Codec/HexDecoder.hpp"
#include "vastrel/Platform/AssertionFailure.hpp"
#include "vastrel/Platform/RangeError.hpp"

namespace vastrel::capi {
namespace {

thread_local std::string lastErrorMessage;

}  // namespace

vastrel_status fail(vastrel_status status, std::string_view message) {
    try {
        lastErrorMessage.assign(message);
    } catch (...) {
        lastErrorMessage.clear();
    }
    return status;
}

vastrel_status statusOfCurrentException() {
    try {
        throw;
    } catch (const Failure& failure) {
        return fail(failure.status, failure.message);
    } catch (const AssertionFailure&) {
        // The library's message quotes the text, which may be card data.
        return fail(VASTREL_ERROR_INVALID_HEX,
                    "hex has an odd number of digits or a character that is not a hex digit");
    } catch (const RangeError& e) {
        return fail(VASTREL_ERROR_OUT_OF_RANGE, e.what());
    } catch (const std::bad_alloc&) {
        return fail(VASTREL_ERROR_OUT_OF_MEMORY, "out of memory");
    } catch (const std::invalid_argument& e) {
        return fail(VASTREL_ERROR_INVALID_ARGUMENT, e.what());
    } catch (const std::exception& e) {
        return fail(VASTREL_ERROR_INTERNAL, e.what());
    } catch (...) {
        return fail(VASTREL_ERROR_INTERNAL, "unknown failure");
    }
}

Bytes hexArgument(std::string_view hex, const char* what) {
    Bytes bytes;
    if (const auto error = HexDecoder::decode(hex, bytes)) {
        throw Failure{VASTREL_ERROR_INVALID_HEX, std::string(what) + ": " +
                                                     std::string(describe(error->kind)) +
                                                     " at offset " + std::to_string(error->offset)};
    }
    return bytes;
}

std::string_view textArgument(const char* text, std::size_t length, const char* what) {
    if (text == nullptr && length != 0) {
        throw Failure{VASTREL_ERROR_NULL_ARGUMENT,
                      std::string(what) + " is NULL with a length of " + std::to_string(length)};
    }
    return text == nullptr ? std::string_view() : std::string_view(text, length);
}

std::optional<std::string_view> optionalTextArgument(const char* text, std::size_t length) {
    if (text == nullptr) return std::nullopt;
    return std::string_view(text, length);
}

vastrel_status writeBytes(std::span<const std::uint8_t> bytes, std::uint8_t* out,
                          std::size_t capacity, std::size_t* length, Terminator terminator) {
    if (length != nullptr) *length = bytes.size();
    const std::size_t needed = bytes.size() + (terminator == Terminator::Nul ? 1 : 0);
    if (capacity < needed) {
        return fail(VASTREL_ERROR_BUFFER_TOO_SMALL, "the result needs " + std::to_string(needed) +
                                                        " bytes, the buffer has " +
                                                        std::to_string(capacity));
    }
    if (needed == 0) return VASTREL_OK;
    require(out, "out");
    if (!bytes.empty()) std::memcpy(out, bytes.data(), bytes.size());
    if (terminator == Terminator::Nul) out[bytes.size()] = 0;
    return VASTREL_OK;
}

vastrel_status writeText(std::string_view text, char* out, std::size_t capacity,
                         std::size_t* length) {
    return writeBytes({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()},
                      reinterpret_cast<std::uint8_t*>(out), capacity, length, Terminator::Nul);
}

vastrel_status writeOptionalText(const std::optional<std::string>& text, char* out,
                                 std::size_t capacity, std::size_t* length) {
    if (text) return writeText(*text, out, capacity, length);
    const vastrel_status status = writeText({}, out, capacity, length);
    return status == VASTREL_OK ? VASTREL_ABSENT : status;
}

void requireIndex(std::size_t index, std::size_t count) {
    if (index >= count) {
        throw Failure{
            VASTREL_ERROR_INVALID_ARGUMENT,
            "index " + std::to_string(index) + " is past the last of " + std::to_string(count)};
    }
}

}  // namespace vastrel::capi

using namespace vastrel::capi;

extern "C" {

const char* vastrel_status_text(int status) {
    switch (status) {
        case VASTREL_OK:
            return "VASTREL_OK";
        case VASTREL_ABSENT:
            return "VASTREL_ABSENT";
        case VASTREL_ERROR_NULL_ARGUMENT:
            return "VASTREL_ERROR_NULL_ARGUMENT";
        case VASTREL_ERROR_BUFFER_TOO_SMALL:
            return "VASTREL_ERROR_BUFFER_TOO_SMALL";
        case VASTREL_ERROR_INVALID_HEX:
            return "VASTREL_ERROR_INVALID_HEX";
        case VASTREL_ERROR_OUT_OF_RANGE:
            return "VASTREL_ERROR_OUT_OF_RANGE";
        case VASTREL_ERROR_INVALID_ARGUMENT:
            return "VASTREL_ERROR_INVALID_ARGUMENT";
        case VASTREL_ERROR_OUT_OF_MEMORY:
            return "VASTREL_ERROR_OUT_OF_MEMORY";
        case VASTREL_ERROR_INTERNAL:
            return "VASTREL_ERROR_INTERNAL";
    }
    return "VASTREL_UNKNOWN_STATUS";
}

const char* vastrel_last_error_message(void) { return lastErrorMessage.c_str(); }

}  // extern "C"
