#pragma once

#include <cstdint>
#include <string>

namespace vastrel {

// The ISO 7816-4 status word that ends a card's response (R-APDU): SW1 SW2.
class StatusWord {
  public:
    // True when sw1 is one the standard defines: 90, or 61 to 6F.
    [[nodiscard]] static bool isStatusWord(std::uint8_t sw1, std::uint8_t sw2) noexcept;

    // What the word means, in the standard's words: "normal processing" for 9000,
    // "verification failed, 2 tries left" for 63C2. A word outside the standard list is
    // named by its group's meaning.
    [[nodiscard]] static std::string meaning(std::uint8_t sw1, std::uint8_t sw2);
};

}  // namespace vastrel
