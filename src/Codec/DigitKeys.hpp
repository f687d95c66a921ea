#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

// The decimal keys of the enumeration string tables. Values 0 to 16 have their own key;
// every larger value (and every negative one, read as unsigned) shares the key "17".
// The enumeration tables depend on that sharing, so the cap stays.
namespace vastrel::digitkeys {

inline constexpr std::size_t kKeyCount = 18;

inline constexpr std::array<std::string_view, kKeyCount> kKeys = {
    "0", "1",  "2",  "3",  "4",  "5",  "6",  "7",  "8",
    "9", "10", "11", "12", "13", "14", "15", "16", "17",
};

// The position of value's key in kKeys.
constexpr std::size_t keyIndex(std::uint64_t value) {
    return value < kKeyCount - 1 ? static_cast<std::size_t>(value) : kKeyCount - 1;
}

}  // namespace vastrel::digitkeys
