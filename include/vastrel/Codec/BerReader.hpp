#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace vastrel {

// One element read by BerReader. Its tag and value point into the reader's input, which must
// outlive the node. Nodes come in document order: a constructed element is followed by its
// whole subtree, which ends at index subtreeEnd.
struct BerNode {
    static constexpr std::uint32_t kNoParent = 0xFFFFFFFF;

    std::span<const std::uint8_t> tag;
    std::span<const std::uint8_t> value;
    std::size_t offset = 0;            // of the first tag byte, in the input
    std::uint32_t depth = 0;           // 0 at the top level
    std::uint32_t parent = kNoParent;  // index of the enclosing template
    std::uint32_t subtreeEnd = 0;      // index one past the last element inside this one
    std::uint8_t lengthFieldSize = 0;  // 1 for the short form, 2 to 5 for 81 to 84
    bool constructed = false;          // bit 6 of the first tag byte

    // The tag as a number, its bytes big-endian (9F26 is 0x9F26); tags longer than four bytes,
    // which no EMV element has, give 0xFFFFFFFF.
    [[nodiscard]] std::uint32_t tagNumber() const noexcept { return tagNumberOf(tag); }

    // The number of the tag written in bytes, as tagNumber gives it.
    [[nodiscard]] static std::uint32_t tagNumberOf(std::span<const std::uint8_t> bytes) noexcept {
        if (bytes.size() > 4) return 0xFFFFFFFF;
        std::uint32_t value = 0;
        for (const std::uint8_t byte : bytes)
            value = value << 8 | byte;
        return value;
    }
};

enum class BerErrorKind {
    TruncatedTag,      // the data ends inside a tag
    TruncatedLength,   // the data ends inside a length field
    LengthPastEnd,     // the value runs past the end of the data or of its template
    LengthTooLarge,    // a length field of more than 4 length bytes (85 and above)
    IndefiniteLength,  // the length byte 80, which EMV does not allow
    TooDeep,           // templates nested deeper than the reader's limit
};

// The words for an error kind, as the tool prints them: "length past the end".
[[nodiscard]] std::string_view describe(BerErrorKind kind) noexcept;

// Why a read stopped, and where: the offset in the input of the first tag byte of the
// element that could not be read.
struct BerError {
    BerErrorKind kind = BerErrorKind::TruncatedTag;
    std::size_t offset = 0;

    friend bool operator==(const BerError&, const BerError&) = default;
};

struct BerReadResult {
    std::vector<BerNode> nodes;  // everything read, up to the error if there is one
    std::optional<BerError> error;
    std::size_t paddingBytes = 0;  // 00 bytes skipped where a tag was due

    [[nodiscard]] bool ok() const noexcept { return !error.has_value(); }
};

// A strict BER-TLV reader for EMV data, beside the lenient decoder the receipts use. Every
// constructed element is expanded, at every level. Tags may be of any length; lengths take
// the short form or 81 to 84. A 00 byte where a tag is due is padding and is skipped, as EMV
// allows between elements. Anything else that does not fit is an error value, never an
// exception: the nodes read before it are kept. The reader copies nothing, uses no recursion
// and runs in time linear in the input.
class BerReader {
  public:
    static constexpr std::uint32_t kDefaultMaxDepth = 32;

    // Reads all of data. Elements may nest maxDepth levels deep (top level included); an
    // element one level deeper fails the read with TooDeep.
    static BerReadResult read(std::span<const std::uint8_t> data,
                              std::uint32_t maxDepth = kDefaultMaxDepth);

    // The same into caller-owned storage: result's vector keeps its capacity between reads.
    static void read(std::span<const std::uint8_t> data, BerReadResult& result,
                     std::uint32_t maxDepth = kDefaultMaxDepth);
};

}  // namespace vastrel
