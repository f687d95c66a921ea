#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vastrel {

// One entry of a data object list: which element the terminal must send, in how many bytes.
struct DolEntry {
    std::uint32_t tag = 0;  // its bytes big-endian, 0x9F02
    std::size_t length = 0;
};

// One field of command data laid out by a DOL.
struct DolField {
    std::uint32_t tag = 0;
    std::size_t declaredLength = 0;
    std::span<const std::uint8_t> value;  // shorter than declared when the data ran out
};

// A data object list (PDOL 9F38, CDOL1 8C, CDOL2 8D, DDOL 9F49, TDOL 97, UDOL 9F69): tags
// with lengths and no values, which say how the terminal lays out the data of a command.
class DataObjectList {
  public:
    // The entries of dol; nullopt when it ends inside a tag or before a length.
    [[nodiscard]] static std::optional<std::vector<DolEntry>> parse(
        std::span<const std::uint8_t> dol);

    // The entries of a tag list (9F4A): tags only.
    [[nodiscard]] static std::optional<std::vector<std::uint32_t>> parseTags(
        std::span<const std::uint8_t> list);

    // data cut into the fields the entries describe, in order; fields the data is too short
    // for come out short or empty.
    [[nodiscard]] static std::vector<DolField> split(const std::vector<DolEntry>& entries,
                                                     std::span<const std::uint8_t> data);

    // The number of bytes the entries ask for.
    [[nodiscard]] static std::size_t totalLength(const std::vector<DolEntry>& entries) noexcept;
};

}  // namespace vastrel
