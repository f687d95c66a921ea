#include <cstring>
#include <new>
#include <stdexcept>
#include <string>

#include "CApiSupport.hpp"
#include "Codec/HexEncode.hpp"
#include "vastrel/Codec/HexDecoder.hpp"
#include "vastrel/Explain/EmvDictionary.hpp"
#include "vastrel/Platform/AssertionFailure.hpp"

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
    } catch (const std::bad_alloc&) {
        return fail(VASTREL_ERROR_OUT_OF_MEMORY, "out of memory");
    } catch (const std::invalid_argument&) {
        // The library's messages may quote the argument; this one never does.
        return fail(VASTREL_ERROR_INVALID_ARGUMENT, "an argument could not be read");
    } catch (const std::exception&) {
        return fail(VASTREL_ERROR_INTERNAL, "internal failure");
    } catch (...) {
        return fail(VASTREL_ERROR_INTERNAL, "unknown failure");
    }
}

Failure hexFailure(const HexError& error, const char* what) {
    return Failure{VASTREL_ERROR_INVALID_HEX, std::string(what) + ": " +
                                                  std::string(describe(error.kind)) +
                                                  " at offset " + std::to_string(error.offset)};
}

Bytes hexArgument(std::string_view hex, const char* what) {
    Bytes bytes;
    if (const auto error = HexDecoder::decode(hex, bytes)) throw hexFailure(*error, what);
    return bytes;
}

std::string_view textArgument(const char* text, std::size_t length, const char* what) {
    if (text == nullptr && length != 0) {
        throw Failure{VASTREL_ERROR_NULL_ARGUMENT,
                      std::string(what) + " is NULL with a length of " + std::to_string(length)};
    }
    return text == nullptr ? std::string_view() : std::string_view(text, length);
}

namespace {

// Checks the caller's buffer for a result of size bytes plus the NUL if any: false for a
// size query, which leaves out untouched; throws BUFFER_TOO_SMALL or NULL_ARGUMENT.
bool roomFor(std::size_t size, void* out, std::size_t capacity, std::size_t* length,
             Terminator terminator) {
    if (length != nullptr) *length = size;
    if (out == nullptr && capacity == 0) return false;
    const std::size_t needed = size + (terminator == Terminator::Nul ? 1 : 0);
    if (capacity < needed) {
        throw Failure{VASTREL_ERROR_BUFFER_TOO_SMALL, "the result needs " + std::to_string(needed) +
                                                          " bytes, the buffer has " +
                                                          std::to_string(capacity)};
    }
    require(out, "out");
    return true;
}

}  // namespace

vastrel_status writeBytes(std::span<const std::uint8_t> bytes, std::uint8_t* out,
                          std::size_t capacity, std::size_t* length, Terminator terminator) {
    if (!roomFor(bytes.size(), out, capacity, length, terminator)) return VASTREL_OK;
    if (!bytes.empty()) std::memcpy(out, bytes.data(), bytes.size());
    if (terminator == Terminator::Nul) out[bytes.size()] = 0;
    return VASTREL_OK;
}

vastrel_status writeHex(std::span<const std::uint8_t> bytes, char* out, std::size_t capacity,
                        std::size_t* length) {
    if (!roomFor(2 * bytes.size(), out, capacity, length, Terminator::Nul)) return VASTREL_OK;
    codec::writeHex<true>(bytes, out);
    out[2 * bytes.size()] = '\0';
    return VASTREL_OK;
}

vastrel_status writeTagName(std::uint32_t tag, PaymentScheme scheme, char* out,
                            std::size_t capacity, std::size_t* length) {
    const TagInfo* info = EmvDictionary::find(tag, scheme);
    return writeOptionalText(info ? std::optional<std::string_view>(info->name) : std::nullopt, out,
                             capacity, length);
}

static_assert(static_cast<int>(PaymentScheme::Visa) == VASTREL_SCHEME_VISA &&
              static_cast<int>(PaymentScheme::Eftpos) == VASTREL_SCHEME_EFTPOS);

int berErrorKindOf(BerErrorKind kind) { return static_cast<int>(kind) + 1; }

static_assert(static_cast<int>(BerErrorKind::TruncatedTag) + 1 == VASTREL_BER_TRUNCATED_TAG &&
              static_cast<int>(BerErrorKind::TooDeep) + 1 == VASTREL_BER_TOO_DEEP);

vastrel_status writeText(std::string_view text, char* out, std::size_t capacity,
                         std::size_t* length) {
    return writeBytes({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()},
                      reinterpret_cast<std::uint8_t*>(out), capacity, length, Terminator::Nul);
}

vastrel_status writeOptionalText(const std::optional<std::string_view>& text, char* out,
                                 std::size_t capacity, std::size_t* length) {
    if (text) return writeText(*text, out, capacity, length);
    const vastrel_status status = writeText({}, out, capacity, length);
    return status == VASTREL_OK ? VASTREL_ABSENT : status;
}

vastrel_status writeOptionalText(const std::optional<std::string>& text, char* out,
                                 std::size_t capacity, std::size_t* length) {
    return writeOptionalText(text ? std::optional<std::string_view>(*text) : std::nullopt, out,
                             capacity, length);
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
        case VASTREL_ERROR_MALFORMED_DATA:
            return "VASTREL_ERROR_MALFORMED_DATA";
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

#define VASTREL_STRINGIFY(x) #x
#define VASTREL_VERSION_TEXT(major, minor, patch) \
    VASTREL_STRINGIFY(major) "." VASTREL_STRINGIFY(minor) "." VASTREL_STRINGIFY(patch)

const char* vastrel_version(void) {
    return VASTREL_VERSION_TEXT(VASTREL_VERSION_MAJOR, VASTREL_VERSION_MINOR,
                                VASTREL_VERSION_PATCH);
}

}  // extern "C"
